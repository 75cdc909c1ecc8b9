// How `tavo import --as` tags what it brings, with and without the program at work.
#include "host/outlook/store.h"
#include "host/posix/instance_lock.h"
#include "host/posix/store_machine.h"
#include "tests/tools/command_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace tavo::tools {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

const std::string kTwo = "BEGIN:VEVENT\nUID:a\nDTSTART;VALUE=DATE:20260101\nSUMMARY:New year\nEND:VEVENT\n"
                         "BEGIN:VEVENT\nUID:b\nDTSTART;VALUE=DATE:20261225\nSUMMARY:Christmas\nEND:VEVENT\n";

// The bytes of TavoCalendar.dat with these lists.
std::string MakeTagFile(const std::vector<std::vector<char>>& lists) {
    std::string bytes;
    for (const std::vector<char>& list : lists) {
        bytes += std::string{static_cast<char>(list.size()), 0, 0, 0};
        for (const char oid : list) {
            bytes += std::string{oid, 0, 0, 0};
        }
        bytes += ';';
    }
    return bytes;
}

class Tags : public testing::Test {
  protected:
    std::string ListYear() {
        return Device.Run({"agenda", "--from", "2026-01-01", "--to", "2026-12-31", "--tsv"}).Output;
    }

    std::vector<TagRequest> ReadRequests() {
        std::vector<TagRequest> requests;
        outlook::StorePtr store;
        EXPECT_EQ(outlook::OpenStore(posix::SystemMachine(), Device.StorePath(), {}, store), Status::Ok);
        EXPECT_TRUE(Succeeded(outlook::MakeOutlookApp(store)->Tags().GetRequests(requests)));
        return requests;
    }

    CommandDevice Device;
};

TEST_F(Tags, WithNoProgramRunningTheDataFileIsWritten) {
    const CommandResult result = Device.Run({"import", Device.WriteCalendar("a.ics", kTwo), "--as", "holiday"});
    EXPECT_EQ(result.Status, 0) << result.Errors;
    EXPECT_EQ(ReadWhole(Device.TagPath()), MakeTagFile({{}, {1, 2}, {}}));
    EXPECT_EQ(ListYear(), "2026-01-01T00:00\t2026-01-01T00:00\tHoliday\t1\tNew year\n"
                          "2026-12-25T00:00\t2026-12-25T00:00\tHoliday\t2\tChristmas\n");
    EXPECT_THAT(ReadRequests(), IsEmpty());
}

TEST_F(Tags, EachKindHasItsList) {
    EXPECT_EQ(Device.Run({"import", "--as=alarm", Device.WriteCalendar("a.ics", kTwo)}).Status, 0);
    EXPECT_EQ(ReadWhole(Device.TagPath()), MakeTagFile({{1, 2}, {}, {}}));
    EXPECT_THAT(ListYear(), HasSubstr("\tAlarm\t1\tNew year\n"));
    CommandDevice other;
    EXPECT_EQ(other.Run({"import", "--as=anniversary", other.WriteCalendar("a.ics", kTwo)}).Status, 0);
    EXPECT_EQ(ReadWhole(other.TagPath()), MakeTagFile({{}, {}, {1, 2}}));
}

TEST_F(Tags, ItemsThatWereThereAlreadyAreTaggedTooAndNoneTwice) {
    const std::string file = Device.WriteCalendar("a.ics", kTwo);
    Device.Run({"import", file});
    for (int turn = 0; turn < 2; ++turn) {
        const CommandResult result = Device.Run({"import", file, "--as", "holiday"});
        EXPECT_EQ(result.Output, "0 new, 0 changed, 2 unchanged, 0 refused.\n");
        EXPECT_EQ(ReadWhole(Device.TagPath()), MakeTagFile({{}, {1, 2}, {}}));
    }
}

TEST_F(Tags, TheOtherListsOfTheFileStay) {
    Device.WriteFile("home/My Documents/TavoCalendar/TavoCalendar.dat", MakeTagFile({{7}, {8, 1}, {9}}));
    EXPECT_EQ(Device.Run({"import", Device.WriteCalendar("a.ics", kTwo), "--as", "holiday"}).Status, 0);
    EXPECT_EQ(ReadWhole(Device.TagPath()), MakeTagFile({{7}, {8, 1, 2}, {9}}));
}

TEST_F(Tags, WithTheProgramRunningTheTagsAreAskedForAndTheFileIsLeftAlone) {
    EXPECT_EQ(Device.Run({"import", Device.WriteCalendar("none.ics", "")}).Status, 0); // makes the folders
    posix::InstanceLock program((Device.Home() / "Run").string());
    ASSERT_EQ(program.Acquire(posix::InstanceRole::Program, std::chrono::milliseconds(0)), posix::LockOutcome::Held);
    const CommandResult result = Device.Run({"import", Device.WriteCalendar("a.ics", kTwo), "--as", "holiday"});
    EXPECT_EQ(result.Status, 0) << result.Errors;
    EXPECT_FALSE(std::filesystem::exists(Device.TagPath()));
    const std::vector<TagRequest> requests = ReadRequests();
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_EQ(requests[0].Item, 1);
    EXPECT_EQ(requests[1].Item, 2);
    for (const TagRequest& request : requests) {
        EXPECT_EQ(request.List, TagList::Holiday);
        EXPECT_TRUE(request.Set);
    }
}

TEST_F(Tags, ADamagedDataFileIsLeftByteForByteAndTheTagsWait) {
    const std::string damaged = MakeTagFile({{7}, {8}, {9}}).substr(0, 12);
    Device.WriteFile("home/My Documents/TavoCalendar/TavoCalendar.dat", damaged);
    const CommandResult result = Device.Run({"import", Device.WriteCalendar("a.ics", kTwo), "--as", "holiday"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Errors, HasSubstr("TavoCalendar.dat, is damaged"));
    EXPECT_EQ(ReadWhole(Device.TagPath()), damaged);
    EXPECT_EQ(ReadRequests().size(), 2U);
}

TEST_F(Tags, ABrokenCalendarTagsNothing) {
    const CommandResult result =
        Device.Run({"import", Device.WriteCalendar("a.ics", kTwo + "BEGIN:VEVENT\n"), "--as", "holiday"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(ReadRequests(), IsEmpty());
}

} // namespace
} // namespace tavo::tools
