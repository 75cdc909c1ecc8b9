// What was deleted and changed comes back.
#include "tests/tools/command_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo::tools {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;

class History : public testing::Test {
  protected:
    void SetUp() override {
        Run({"add", "Dentist", "--start", "2026-12-02 15:00"});
        Run({"add", "Wake", "--start", "2026-12-03 7:00", "--kind", "alarm", "--repeat", "daily 3 times"});
    }

    std::string Run(const std::vector<std::string>& words) {
        const CommandResult result = Device.Run(words);
        Status = result.Status;
        return result.Errors.empty() ? result.Output : result.Errors;
    }

    std::string List() { return Run({"agenda", "--from", "2026-12-01", "--to", "2026-12-31", "--tsv"}); }

    CommandDevice Device;
    int Status = -1;
};

TEST_F(History, DeletingTellsWhatItWasAndUndoBringsItBackWithItsKind) {
    const std::string before = List();
    EXPECT_EQ(Run({"delete", "1", "2"}), "Deleted item 1: Dentist, Wed 2 December 2026 15:00 - 16:00\n"
                                         "Deleted item 2: Wake, Thu 3 December 2026 07:00, daily, 3 times  [Alarm]\n");
    EXPECT_THAT(List(), IsEmpty());
    EXPECT_THAT(Run({"check"}), HasSubstr("Alarms: 0"));
    EXPECT_EQ(Run({"undo"}), "Taken back: \"Deletion of an appointment\", 2 items.\n");
    EXPECT_EQ(List(), before);
    EXPECT_THAT(Run({"check"}), HasSubstr("Alarms: 1"));
}

TEST_F(History, AllAreDeletedOrNone) {
    const std::string before = List();
    EXPECT_EQ(Run({"delete", "1", "99"}), "tavo: Nothing was deleted: there is no item 99.\n");
    EXPECT_EQ(Status, 1);
    EXPECT_EQ(Run({"delete", "1", "1"}), "tavo: Nothing was deleted: there is no item 1.\n");
    EXPECT_EQ(List(), before);
    EXPECT_THAT(Run({"delete"}), HasSubstr("Say which items"));
    EXPECT_THAT(Run({"delete", "0"}), HasSubstr("\"0\" is no number of an item"));
    EXPECT_THAT(Run({"delete", "1", "--json"}), HasSubstr("There is no option --json"));
}

TEST_F(History, UndoGoesOnWithTheStepBefore) {
    EXPECT_EQ(Run({"undo"}), "Taken back: \"New appointment\", 1 item.\n");
    EXPECT_EQ(List(), "2026-12-02T15:00\t2026-12-02T16:00\tAppointment\t1\tDentist\n");
    EXPECT_THAT(Run({"check"}), HasSubstr("Alarms: 0"));
    EXPECT_EQ(Run({"undo"}), "Taken back: \"New appointment\", 1 item.\n");
    EXPECT_THAT(List(), IsEmpty());
    EXPECT_THAT(Run({"undo"}), HasSubstr("Nothing was taken back: nothing was changed in the last hour"));
    EXPECT_EQ(Status, 1);
}

TEST_F(History, AnImportIsOneStep) {
    const std::string path =
        Device.WriteCalendar("two.ics", "BEGIN:VEVENT\nUID:a\nDTSTART:20261205T090000\nSUMMARY:One\nEND:VEVENT\n"
                                        "BEGIN:VEVENT\nUID:b\nDTSTART:20261206T090000\nSUMMARY:Two\nEND:VEVENT\n");
    const std::string before = List();
    Run({"import", path});
    EXPECT_THAT(Run({"undo"}), HasSubstr(", 2 items.\n"));
    EXPECT_EQ(List(), before);
}

TEST_F(History, TheListNamesEachStep) {
    Run({"edit", "1", "--subject", "Doctor"});
    Run({"delete", "2"});
    Run({"undo"});
    const std::string time = "[0-9-]+ [0-9:]+";
    EXPECT_THAT(Run({"history"}),
                MatchesRegex(time + "  Deletion of an appointment  \\(taken back\\)\n" + time +
                             "  Change of an appointment: item 1, Doctor\n" + time +
                             "  New appointment: item 2, Wake\n" + time + "  New appointment: item 1, Doctor\n"));
    EXPECT_THAT(Run({"history", "--steps", "1"}), EndsWith("Deletion of an appointment  (taken back)\n"));
    EXPECT_THAT(Run({"history", "--steps", "2", "--tsv"}),
                EndsWith("\tChange of an appointment\t0\t1\t1\tchanged\tDoctor\n"));
    EXPECT_THAT(Run({"history", "--steps", "1", "--json"}),
                HasSubstr("\"name\": \"Deletion of an appointment\", \"undone\": true"));
    EXPECT_THAT(Run({"history", "--steps", "0"}), HasSubstr("is no number of steps"));
    EXPECT_THAT(Run({"history", "--json", "--tsv"}), HasSubstr("not both"));
}

TEST_F(History, ACalendarWithoutChangesSaysSo) {
    const CommandDevice fresh;
    EXPECT_EQ(fresh.Run({"history"}).Output, "Nothing was changed yet.\n");
    EXPECT_EQ(fresh.Run({"history", "--json"}).Output, "[]\n");
    EXPECT_FALSE(std::filesystem::exists(fresh.StorePath()));
}

TEST_F(History, ADeletedItemIsRestoredLaterAndAloneUnderItsNumber) {
    const std::string before = List();
    Run({"delete", "2"});
    Run({"delete", "1"});
    Run({"add", "New", "--start", "2026-12-20"});
    EXPECT_EQ(Run({"restore", "2"}), "Restored item 2: Wake, Thu 3 December 2026 07:00, daily, 3 times  [Alarm]\n");
    EXPECT_THAT(Run({"check"}), HasSubstr("Alarms: 1"));
    EXPECT_EQ(Run({"restore", "1"}), "Restored item 1: Dentist, Wed 2 December 2026 15:00 - 16:00\n");
    Run({"delete", "3"});
    EXPECT_EQ(List(), before);
}

TEST_F(History, AChangedItemIsRestoredAsItWas) {
    Run({"edit", "1", "--start", "2026-12-09 9:00"});
    EXPECT_EQ(Run({"restore", "1"}), "Restored item 1: Dentist, Wed 2 December 2026 15:00 - 16:00\n");
    EXPECT_EQ(Run({"undo"}), "Taken back: \"Restoring of an appointment\", 1 item.\n");
    EXPECT_THAT(List(), HasSubstr("2026-12-09T09:00"));
}

TEST_F(History, WhatNobodyRemembersIsSaid) {
    EXPECT_EQ(Run({"restore", "77"}), "tavo: Item 77 is not restored: nothing of it is remembered.\n");
    EXPECT_EQ(Status, 1);
    EXPECT_EQ(Run({"restore", "1"}), "tavo: Item 1 is not restored: nothing of it is remembered.\n"); // never changed
}

TEST_F(History, AnItemThatCameAnewKeepsItsUid) {
    const std::string path =
        Device.WriteCalendar("one.ics", "BEGIN:VEVENT\nUID:a\nDTSTART:20261205T090000\nSUMMARY:One\nEND:VEVENT\n");
    Run({"import", path});
    Run({"delete", "3"});
    Run({"import", path});
    EXPECT_THAT(Run({"restore", "3"}), HasSubstr("Restored item 3: One"));
    EXPECT_THAT(Run({"show", "4"}), HasSubstr("  UID       a\n"));
    EXPECT_THAT(Run({"check"}), HasSubstr("The store is in good order."));
}

} // namespace
} // namespace tavo::tools
