// What `tavo check` says of sound and of damaged files.
#include "tests/tools/command_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

namespace tavo::tools {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

const std::string kOne = "BEGIN:VEVENT\nUID:a\nDTSTART;VALUE=DATE:20260101\nSUMMARY:New year\nEND:VEVENT\n";

class Check : public testing::Test {
  protected:
    void MakeStore() {
        ASSERT_EQ(Device.Run({"import", Device.WriteCalendar("a.ics", kOne), "--as", "holiday"}).Status, 0);
    }

    CommandDevice Device;
};

TEST_F(Check, ASoundCalendarIsStatusZero) {
    MakeStore();
    const CommandResult result = Device.Run({"check"});
    EXPECT_EQ(result.Status, 0) << result.Output;
    EXPECT_THAT(result.Output, HasSubstr("is sound. Alarms: 0, holidays: 1, anniversaries: 0."));
    EXPECT_THAT(result.Output, Not(HasSubstr("What to do")));
}

TEST_F(Check, AFolderThatOthersMayWriteIsRefusedAndSaysHowToCloseIt) {
    MakeStore();
    std::filesystem::permissions(Device.Home(), std::filesystem::perms::all);
    for (const char* command : {"check", "agenda"}) {
        const CommandResult refused = Device.Run({command});
        EXPECT_EQ(refused.Status, 1);
        EXPECT_EQ(refused.Errors, "tavo: Others may write to the folder " + Device.Home().string() +
                                      "; close it to them with: chmod go-w '" + Device.Home().string() +
                                      "', or set TAVO_HOME to a folder of your own.\n");
    }
    std::filesystem::permissions(Device.Home(), std::filesystem::perms(0755));
    EXPECT_EQ(Device.Run({"check"}).Status, 0);
}

TEST_F(Check, NoCalendarYetIsNothingWrong) {
    const CommandResult result = Device.Run({"check"});
    EXPECT_EQ(result.Status, 0) << result.Output;
    EXPECT_FALSE(std::filesystem::exists(Device.StorePath()));
}

TEST_F(Check, ADamagedStoreIsSaidInWordsAndLeftByteForByte) {
    MakeStore();
    {
        std::fstream file(Device.StorePath(), std::ios::binary | std::ios::in | std::ios::out);
        file.seekp(4096);
        file << std::string(std::size_t{3} * 4096, '\xAA');
    }
    const std::string damaged = ReadWhole(Device.StorePath());
    const CommandResult result = Device.Run({"check"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Output, AllOf(HasSubstr("Store: "), HasSubstr("What to do: ")));
    EXPECT_EQ(ReadWhole(Device.StorePath()), damaged);
}

TEST_F(Check, AFileThatIsNoStoreIsSaidInWords) {
    const std::string letter = "Dear Anna. " + std::string(5000, '!');
    Device.WriteFile("home/Outlook.db", letter);
    const CommandResult result = Device.Run({"check"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Output, AllOf(HasSubstr("Store: "), HasSubstr("What to do: ")));
    EXPECT_EQ(ReadWhole(Device.StorePath()), letter);
}

TEST_F(Check, ADamagedListOfTagsIsSaidInWords) {
    MakeStore();
    Device.WriteFile("home/My Documents/TavoCalendar/TavoCalendar.dat", "\x05");
    const CommandResult result = Device.Run({"check"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Output, AllOf(HasSubstr("TavoCalendar.dat is damaged."), HasSubstr("What to do: ")));
    EXPECT_EQ(ReadWhole(Device.TagPath()), "\x05");
}

} // namespace
} // namespace tavo::tools
