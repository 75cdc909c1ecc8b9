// What `tavo edit` changes of an item, and what stays.
#include "tests/tools/command_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo::tools {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class Edit : public testing::Test {
  protected:
    void SetUp() override { Run({"add", "Dentist", "--start", "2026-12-02 15:00", "--location", "Main street"}); }

    // What is said; of a refusal, its sentence.
    std::string Run(const std::vector<std::string>& words) {
        const CommandResult result = Device.Run(words);
        Status = result.Status;
        return result.Errors.empty() ? result.Output : result.Errors;
    }

    // Of item 1, behind its number.
    std::string Change(std::vector<std::string> words) {
        words.insert(words.begin(), {"edit", "1"});
        const std::string said = Run(words);
        const std::string_view head = "Changed item 1: ";
        return said.starts_with(head) ? said.substr(head.size()) : said;
    }

    std::string List(const std::string& from, const std::string& to) {
        return Run({"agenda", "--from", from, "--to", to, "--tsv"});
    }

    CommandDevice Device;
    int Status = -1;
};

TEST_F(Edit, WhatIsNotSaidStays) {
    EXPECT_EQ(Change({"--start", "16:30"}), "Dentist, Wed 2 December 2026 16:30 - 17:30\n");
    EXPECT_EQ(Change({"--start", "2026-12-04"}), "Dentist, Fri 4 December 2026 16:30 - 17:30\n");
    EXPECT_EQ(Change({"--for", "2h"}), "Dentist, Fri 4 December 2026 16:30 - 18:30\n");
    EXPECT_EQ(Change({"--subject", "Doctor"}), "Doctor, Fri 4 December 2026 16:30 - 18:30\n");
    EXPECT_EQ(Change({"--end", "17:00"}), "Doctor, Fri 4 December 2026 16:30 - 17:00\n");
    EXPECT_THAT(Run({"show", "1"}), HasSubstr("  Place     Main street\n"));
}

TEST_F(Edit, WholeDaysAndTimesReplaceEachOther) {
    EXPECT_EQ(Change({"--all-day"}), "Dentist, Wed 2 December 2026, all day\n");
    EXPECT_EQ(Change({"--for", "3 days"}), "Dentist, Wed 2 December 2026 - Fri 4 December 2026, all day\n");
    EXPECT_EQ(Change({"--start", "2026-12-07"}), "Dentist, Mon 7 December 2026 - Wed 9 December 2026, all day\n");
    EXPECT_EQ(Change({"--start", "9:00"}), "Dentist, Mon 7 December 2026 09:00 - 10:00\n");
}

TEST_F(Edit, TextsCanBeTakenAway) {
    Change({"--location", "", "--note", "Bring the card"});
    EXPECT_THAT(Run({"show", "1"}), Not(HasSubstr("Place")));
    EXPECT_THAT(Run({"show", "1"}), HasSubstr("  Note      Bring the card\n"));
}

TEST_F(Edit, RemindersComeAndGo) {
    EXPECT_THAT(Change({"--remind", "30"}), HasSubstr(", reminder 30 minutes before\n"));
    EXPECT_THAT(Change({"--sound", "Bell"}), HasSubstr(", reminder 30 minutes before, with Bell.wav\n"));
    EXPECT_THAT(Change({"--remind", "5"}), HasSubstr(", reminder 5 minutes before, with Bell.wav\n"));
    EXPECT_THAT(Change({"--sound", ""}), HasSubstr(", reminder 5 minutes before\n"));
    EXPECT_THAT(Change({"--no-remind"}), Not(HasSubstr("reminder")));
    EXPECT_THAT(Change({"--sound", "Bell"}), HasSubstr("say --remind too"));
    EXPECT_EQ(Status, 2);
}

TEST_F(Edit, KindsChange) {
    EXPECT_EQ(Change({"--kind", "alarm"}), "Dentist, Wed 2 December 2026 15:00  [Alarm]\n");
    EXPECT_EQ(List("2026-12-02", "2026-12-02"), "2026-12-02T15:00\t2026-12-02T15:00\tAlarm\t1\tDentist\n");
    EXPECT_EQ(Change({"--start", "7:15"}), "Dentist, Wed 2 December 2026 07:15  [Alarm]\n");
    EXPECT_THAT(Change({"--for", "1h"}), HasSubstr("An alarm has no length"));
    EXPECT_EQ(Change({"--kind", "holiday", "--start", "2026-12-02", "--no-remind"}),
              "Dentist, Wed 2 December 2026, all day  [Holiday]\n");
    EXPECT_EQ(Change({"--kind", "appointment", "--start", "9:00"}), "Dentist, Wed 2 December 2026 09:00 - 10:00\n");
    EXPECT_EQ(List("2026-12-02", "2026-12-02"), "2026-12-02T09:00\t2026-12-02T10:00\tAppointment\t1\tDentist\n");
}

TEST_F(Edit, ItRepeatsAndDoesNotAnyMore) {
    EXPECT_THAT(Change({"--repeat", "weekly on mon,wed"}), HasSubstr("15:00 - 16:00, weekly on Mon, Wed\n"));
    EXPECT_THAT(Change({"--repeat", "monthly 3 times"}), HasSubstr(", monthly on day 2, 3 times\n"));
    EXPECT_EQ(Change({"--no-repeat"}), "Dentist, Wed 2 December 2026 15:00 - 16:00\n");
    EXPECT_THAT(List("2026-12-03", "2027-12-31"), IsEmpty());
    EXPECT_THAT(Change({"--repeat", "daily", "--no-repeat"}), HasSubstr("not both"));
}

struct Moving {
    const char* Rule;
    const char* To;
    const char* Days; // that it repeats on then
};

class MovedSeries : public Edit, public testing::WithParamInterface<Moving> {};

TEST_P(MovedSeries, TakesItsDaysAlong) {
    Change({"--start", "2026-12-02", "--repeat", GetParam().Rule});
    EXPECT_THAT(Change({"--start", GetParam().To}), HasSubstr(", " + std::string(GetParam().Days) + "\n"));
    EXPECT_EQ(Status, 0);
    EXPECT_THAT(List(GetParam().To, GetParam().To), HasSubstr("Dentist"));
}

INSTANTIATE_TEST_SUITE_P(
    Edit, MovedSeries,
    testing::Values(Moving{"weekly", "2026-12-04", "weekly on Fri"}, Moving{"weekly", "2026-11-29", "weekly on Sun"},
                    Moving{"every 2 weeks on wed,fri", "2026-12-05", "every 2 weeks on Mon, Sat"},
                    Moving{"monthly", "2026-12-15", "monthly on day 15"},
                    Moving{"FREQ=MONTHLY;BYDAY=1WE", "2026-12-11", "monthly on the second Fri"},
                    Moving{"yearly", "2027-01-20", "yearly on 20 January"},
                    Moving{"FREQ=YEARLY;BYMONTH=12;BYDAY=1WE", "2026-11-30", "yearly on the last Mon of November"},
                    Moving{"daily", "2026-12-10", "daily"}));

TEST_F(Edit, ARuleOfOtherCalendarsNamesItsOwnDays) {
    Change({"--repeat", "FREQ=MONTHLY;BYMONTHDAY=2,20"});
    EXPECT_THAT(Change({"--start", "2026-12-05"}), HasSubstr("say with --repeat"));
    EXPECT_EQ(Status, 2);
    EXPECT_THAT(Change({"--start", "16:00"}), HasSubstr("16:00 - 17:00, by the rule"));
}

TEST_F(Edit, WhatCannotBeChangesNothing) {
    EXPECT_EQ(Run({"edit", "99", "--subject", "x"}), "tavo: Nothing was changed: there is no item 99.\n");
    EXPECT_EQ(Status, 1);
    EXPECT_THAT(Change({}), HasSubstr("Say what to change"));
    EXPECT_THAT(Run({"edit"}), HasSubstr("Say which item"));
    EXPECT_THAT(Run({"edit", "first", "--subject", "x"}), HasSubstr("\"first\" is no number of an item"));
    EXPECT_THAT(Change({"--end", "2026-12-01 9:00"}), HasSubstr("It would end before it begins."));
    EXPECT_THAT(Change({"--repeat", "daily until 1 dec 2026"}), HasSubstr("it ends before it begins"));
    EXPECT_THAT(Change({"--start", "31 nov"}), HasSubstr("November has 30 days"));
    EXPECT_EQ(List("2026-12-02", "2026-12-02"), "2026-12-02T15:00\t2026-12-02T16:00\tAppointment\t1\tDentist\n");
}

TEST_F(Edit, IsOneStepOfUndo) {
    Change({"--start", "2026-12-04 9:00", "--repeat", "weekly", "--kind", "alarm", "--subject", "Wake"});
    EXPECT_EQ(Run({"undo"}), "Taken back: \"Change of an appointment\", 1 item.\n");
    EXPECT_EQ(List("2026-12-01", "2027-12-31"), "2026-12-02T15:00\t2026-12-02T16:00\tAppointment\t1\tDentist\n");
}

class SeriesDay : public Edit {
  protected:
    void SetUp() override {
        Edit::SetUp();
        Change({"--start", "2026-12-02 7:00", "--repeat", "weekly 4 times", "--subject", "Swim"});
    }

    std::string ListAll() { return List("2026-12-01", "2027-12-31"); }
};

TEST_F(SeriesDay, CanHaveTimesASubjectAndAPlaceOfItsOwn) {
    EXPECT_EQ(Run({"edit", "1", "--on", "2026-12-09", "--start", "8:30", "--subject", "Race", "--location", "Lake"}),
              "Changed Wed 9 December 2026 of item 1: Race, Wed 9 December 2026 08:30 - 09:30\n");
    EXPECT_EQ(ListAll(), "2026-12-02T07:00\t2026-12-02T08:00\tAppointment\t1\tSwim\n"
                         "2026-12-09T08:30\t2026-12-09T09:30\tAppointment\t1\tRace\n"
                         "2026-12-16T07:00\t2026-12-16T08:00\tAppointment\t1\tSwim\n"
                         "2026-12-23T07:00\t2026-12-23T08:00\tAppointment\t1\tSwim\n");
    EXPECT_THAT(Run({"agenda", "--from", "2026-12-09", "--to", "2026-12-09"}), HasSubstr("Race (Lake)"));
    EXPECT_THAT(Run({"export"}), HasSubstr("RECURRENCE-ID"));
}

TEST_F(SeriesDay, GoesToAnotherDayAndStaysThereWhenTheSeriesChanges) {
    EXPECT_THAT(Run({"edit", "1", "--on", "2026-12-09", "--start", "2026-12-10"}), HasSubstr("Thu 10 December 2026"));
    Change({"--subject", "Swimming"});
    EXPECT_EQ(List("2026-12-09", "2026-12-10"), "2026-12-10T07:00\t2026-12-10T08:00\tAppointment\t1\tSwimming\n");
    EXPECT_THAT(Run({"edit", "1", "--on", "2026-12-10", "--for", "2h"}), HasSubstr("07:00 - 09:00"));
}

TEST_F(SeriesDay, CanBeDeletedAndComesBack) {
    const std::string before = ListAll();
    EXPECT_EQ(Run({"delete", "1", "--on", "2026-12-16"}), "Deleted Wed 16 December 2026 of item 1: Swim\n");
    EXPECT_THAT(List("2026-12-16", "2026-12-16"), IsEmpty());
    EXPECT_THAT(Run({"show", "1"}), HasSubstr("  Except    Wed 16 December 2026 does not take place\n"));
    Run({"undo"});
    EXPECT_EQ(ListAll(), before);
    Run({"edit", "1", "--on", "2026-12-16", "--subject", "Race"});
    EXPECT_EQ(Run({"undo"}), "Taken back: \"Change of an appointment\", 1 item.\n");
    EXPECT_EQ(ListAll(), before);
}

TEST_F(SeriesDay, WhatCannotBeChangesNothing) {
    const std::string before = ListAll();
    EXPECT_EQ(Run({"delete", "1", "--on", "2026-12-10"}),
              "tavo: Nothing was deleted: item 1 does not begin on Thu 10 December 2026.\n");
    EXPECT_EQ(Run({"edit", "1", "--on", "2026-12-10", "--subject", "x"}),
              "tavo: Nothing was changed: item 1 does not begin on Thu 10 December 2026.\n");
    EXPECT_THAT(Run({"edit", "1", "--on", "2026-12-09", "--remind", "5"}), HasSubstr("the whole series'"));
    EXPECT_THAT(Run({"edit", "1", "--on", "2026-12-09", "--end", "2026-12-08 9:00"}), HasSubstr("before it begins"));
    EXPECT_THAT(Run({"delete", "99", "--on", "2026-12-09"}), HasSubstr("Nothing was deleted"));
    EXPECT_EQ(ListAll(), before);
    Change({"--no-repeat"});
    EXPECT_THAT(Run({"delete", "1", "--on", "2026-12-02"}), HasSubstr("item 1 takes place once: leave --on away"));
}

} // namespace
} // namespace tavo::tools
