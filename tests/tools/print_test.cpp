// The calendar as a PDF file, from the command line.
#include "host/ink/codec.h"
#include "tests/ink/handwriting.h"
#include "tests/tools/command_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace tavo::tools {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

namespace fs = std::filesystem;

class PrintCommand : public testing::Test {
  protected:
    std::string File(const std::string& name) const { return Device.Place(name).string(); }

    CommandResult Print(std::vector<std::string> words) const {
        words.insert(words.begin(), {"print", File("out.pdf")});
        return Device.Run(words);
    }

    CommandDevice Device;
};

TEST_F(PrintCommand, WhatCannotBeMeantIsRefusedInWords) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases{
        {{"--day", "2026-02-30"}, "2026-02-30"},
        {{"--month", "25:00"}, "25:00"},
        {{"--paper", "a3"}, "Papers are a4 and letter, not \"a3\"."},
        {{"--paper"}, "--paper"},
        {{"--week", "fri", "--day", "fri"}, "Name one of --month, --week, --day, and --from with --to."},
        {{"--from", "2026-02-02", "--to", "2026-02-01"}, "lies before"},
        {{"--from", "2026-02-02", "--to", "2096-02-01"}, "ten years"},
        {{"second.pdf"}, "Name one file only"},
        {{"--colour"}, "--colour"}};
    for (const auto& [words, told] : cases) {
        const CommandResult result = Print(words);
        EXPECT_EQ(result.Status, 2) << told;
        EXPECT_THAT(result.Errors, HasSubstr(told));
        EXPECT_FALSE(fs::exists(File("out.pdf")));
    }
    EXPECT_THAT(Device.Run({"print"}).Errors, HasSubstr("Name the file, such as month.pdf."));
}

#ifdef TAVO_INK_EXPORT // the desktop's programs are there
TEST_F(PrintCommand, EachKindIsAFileOfItsPaper) {
    Device.Run({"add", "Dentist", "--start", "2026-11-24 9:30"});
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases{
        {{"--month", "2026-11-24", "--paper", "a4"}, "/MediaBox [0 0 842.000000 595.000000]"},
        {{"--month", "2026-11-24", "--paper", "letter"}, "/MediaBox [0 0 792.000000 612.000000]"},
        {{"--week", "2026-11-24", "--paper", "a4"}, "/MediaBox [0 0 595.000000 842.000000]"},
        {{"--day", "2026-11-24", "--paper", "letter"}, "/MediaBox [0 0 612.000000 792.000000]"},
        {{"--from", "2026-11-24", "--to", "2026-12-24", "--paper", "a4"}, "/MediaBox [0 0 595.000000 842.000000]"}};
    for (const auto& [words, box] : cases) {
        const CommandResult result = Print(words);
        EXPECT_EQ(result.Status, 0) << result.Errors;
        EXPECT_THAT(ReadWhole(File("out.pdf")), AllOf(StartsWith("%PDF-"), HasSubstr(box))) << words[0];
        EXPECT_EQ(fs::status(File("out.pdf")).permissions() & fs::perms::all,
                  fs::perms::owner_read | fs::perms::owner_write);
    }
}

TEST_F(PrintCommand, AnEmptyCalendarHasAMonthToo) {
    EXPECT_EQ(Print({}).Status, 0);
    EXPECT_THAT(ReadWhole(File("out.pdf")), StartsWith("%PDF-"));
}

TEST_F(PrintCommand, ALongListHasManyPages) {
    Device.Run({"add", "Every day", "--start", "2026-01-01 9:30", "--repeat", "daily"});
    EXPECT_EQ(Print({"--from", "2026-01-01", "--to", "2026-12-31", "--paper", "a4"}).Status, 0);
    EXPECT_THAT(ReadWhole(File("out.pdf")), HasSubstr("/Count 2")); // 25 or so pages
}

TEST_F(PrintCommand, ADaysInkIsInItAndAMemoThatCannotBeReadIsSaid) {
    const fs::path memos = Device.Home() / "My Documents" / "TavoCalendar";
    EXPECT_EQ(Print({"--day", "2026-11-24"}).Status, 0);
    const std::uintmax_t bare = fs::file_size(File("out.pdf"));
    fs::create_directories(memos);
    const std::vector<std::uint8_t> ink = ink::Encode(ink::WriteByHand(30, 40));
    std::ofstream(memos / "20261124_080000.pwi", std::ios::binary)
        .write(reinterpret_cast<const char*>(ink.data()), static_cast<std::streamsize>(ink.size()));
    std::ofstream(memos / "20261124_090000.pwi") << "no ink";
    const CommandResult result = Print({"--day", "2026-11-24"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_THAT(result.Errors, HasSubstr("The memo 20261124_090000.pwi cannot be read and is not printed."));
    EXPECT_GT(fs::file_size(File("out.pdf")), bare + 2000);
}

TEST_F(PrintCommand, AFileThatCannotBeWrittenIsSaidAndTheOldOneStays) {
    const CommandResult result = Device.Run({"print", File("no/such/folder.pdf")});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Errors, HasSubstr("cannot be written. What was there before is as it was."));
}
#endif

} // namespace
} // namespace tavo::tools
