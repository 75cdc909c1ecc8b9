// `tavo memo`: what it lists, and the files that it has drawn.
#include "tests/ink/handwriting.h"
#include "tests/tools/command_run.h"

#include "host/ink/codec.h"

#include <gmock/gmock.h>

namespace tavo::tools {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

namespace fs = std::filesystem;

class Memo : public testing::Test {
  protected:
    void WriteMemo(const std::string& name, const std::vector<std::uint8_t>& bytes) {
        const fs::path folder = Device.Home() / "My Documents" / "TavoCalendar";
        fs::create_directories(folder);
        const std::string from = Device.WriteFile("memo.tmp", std::string(bytes.begin(), bytes.end()));
        fs::copy_file(from, folder / name);
    }

    static std::vector<std::uint8_t> Ink() { return ink::Encode(ink::WriteByHand(10, 40)); }

    std::string Export(const std::string& format) {
        const CommandResult result =
            Device.Run({"memo", "export", "--all", "--to", Device.Place("out").string(), "--format", format});
        EXPECT_EQ(result.Status, 0) << result.Errors;
        return ReadWhole(Device.Place("out") / ("20041103_171005." + format));
    }

    CommandDevice Device;
};

TEST_F(Memo, ListsTheMemosInOrderOrThoseOfADay) {
    WriteMemo("20041104_080000.pwi", Ink());
    WriteMemo("20041103_171005.pwi", Ink());
    WriteMemo("notes.txt", Ink());
    EXPECT_EQ(Device.Run({"memo", "list"}).Output, "20041103_171005.pwi\n20041104_080000.pwi\n");
    EXPECT_EQ(Device.Run({"memo", "list", "--date", "2004-11-04"}).Output, "20041104_080000.pwi\n");
    EXPECT_EQ(Device.Run({"memo", "list", "--date", "2004-11-05"}).Output, "");
}

TEST_F(Memo, WithoutAnyMemoTheListIsEmpty) {
    const CommandResult result = Device.Run({"memo", "list"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Output, "");
}

TEST_F(Memo, WordsThatMakeNoSenseAreRefused) {
    using Words = std::vector<std::string>;
    for (const Words& words :
         {Words{"memo"}, Words{"memo", "draw"}, Words{"memo", "export"}, Words{"memo", "export", "x"},
          Words{"memo", "export", "--to", "x"}, Words{"memo", "export", "a", "--all", "--to", "x"},
          Words{"memo", "export", "--all", "--to", "x", "--format", "gif"}, Words{"memo", "list", "a"},
          Words{"memo", "list", "--date", "9:00"}}) {
        const CommandResult result = Device.Run(words);
        EXPECT_EQ(result.Status, 2) << words.size();
        EXPECT_THAT(result.Errors, HasSubstr("tavo memo --help"));
    }
}

TEST_F(Memo, AMemoThatThereIsNotIsSaid) {
    const CommandResult result =
        Device.Run({"memo", "export", "20041103_171005", "--to", Device.Place("out").string()});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Errors, HasSubstr("There is no memo \"20041103_171005\"."));
}

#ifdef TAVO_INK_EXPORT
TEST_F(Memo, IsExportedAtTheSizeOfItsPaper) {
    WriteMemo("20041103_171005.pwi", Ink());
    // 227 by 268 pixels of 96 to the inch.
    const std::string svg = Export("svg");
    EXPECT_THAT(svg, AllOf(HasSubstr("<svg width=\"60.0604mm\" height=\"70.9083mm\""),
                           HasSubstr("viewBox=\"0 0 227 268\""), HasSubstr("<path")));
    const std::string png = Export("png");
    ASSERT_THAT(png, StartsWith("\x89PNG"));
    EXPECT_EQ(png.substr(16, 8), std::string("\0\0\x01\xC6\0\0\x02\x18", 8)); // 454 by 536
    EXPECT_THAT(Export("pdf"),
                AllOf(StartsWith("%PDF-"), HasSubstr("/MediaBox [0 0 170.000000 201.000000]"))); // whole points
}

TEST_F(Memo, AnExportReplacesItsFileAndFollowsNoLink) {
    WriteMemo("20041103_171005.pwi", Ink());
    Device.WriteFile("victim", "kept");
    const std::string first = Export("svg");
    EXPECT_EQ(Export("svg"), first); // over the file of before
    const fs::path file = Device.Place("out") / "20041103_171005.svg";
    fs::remove(file);
    fs::create_symlink(Device.Place("victim"), file);
    const CommandResult result = Device.Run({"memo", "export", "--all", "--to", Device.Place("out").string()});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(ReadWhole(Device.Place("victim")), "kept");
}

TEST_F(Memo, ForeignOnesAreNamedAndTheOthersGoOn) {
    WriteMemo("20041103_171005.pwi", Ink());
    WriteMemo("20041102_171005.pwi", {'x'});
    const CommandResult result = Device.Run({"memo", "export", "--all", "--to", Device.Place("out").string()});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Errors, HasSubstr("20041102_171005.pwi was written by another program."));
    EXPECT_TRUE(fs::exists(Device.Place("out") / "20041103_171005.svg"));
    EXPECT_FALSE(fs::exists(Device.Place("out") / "20041102_171005.svg"));
}
#endif

} // namespace
} // namespace tavo::tools
