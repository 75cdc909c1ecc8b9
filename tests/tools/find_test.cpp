// Which items `tavo find` finds and what `tavo show` tells of them.
#include "tests/tools/command_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo::tools {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class Find : public testing::Test {
  protected:
    void SetUp() override {
        Run({"add", "Dentist", "--start", "2026-12-02 15:00", "--location", "Main street 1", "--note",
             "Bring the card\nand money", "--remind", "15", "--sound", "Bell"});
        Run({"add", "Zahnärztin Überweisung", "--start", "2026-11-30", "--kind", "holiday"});
        Run({"add", "Swim", "--start", "2026-12-01 7:00", "--repeat", "weekly on tue,thu", "--note", "main pool"});
    }

    std::string Run(const std::vector<std::string>& words) {
        const CommandResult result = Device.Run(words);
        Status = result.Status;
        return result.Errors.empty() ? result.Output : result.Errors;
    }

    CommandDevice Device;
    int Status = -1;
};

const std::string kDentist = "     1  Wed 2 December 2026 15:00       Dentist (Main street 1)\n";
const std::string kHoliday = "     2  Mon 30 November 2026            Zahnärztin Überweisung  [Holiday]\n";
const std::string kSwim = "     3  Tue 1 December 2026 07:00 ...   Swim\n";

TEST_F(Find, SubjectsPlacesAndNotesInAnyCase) {
    EXPECT_EQ(Run({"find", "dENT"}), kDentist);
    EXPECT_EQ(Run({"find", "STREET"}), kDentist);
    EXPECT_EQ(Run({"find", "money"}), kDentist);
    EXPECT_EQ(Run({"find", "zahnÄRZTIN"}), kHoliday);
    EXPECT_EQ(Status, 0);
}

TEST_F(Find, SeveralComeInOrderOfTheirStarts) {
    EXPECT_EQ(Run({"find", "main"}), kSwim + kDentist);
}

TEST_F(Find, AllWordsHaveToBeThereWhereverTheyAre) {
    EXPECT_EQ(Run({"find", "card", "dentist"}), kDentist);
    EXPECT_EQ(Run({"find", "card dentist"}), kDentist);
    EXPECT_EQ(Run({"find", "main", "überweisung"}), "tavo: Nothing was found with \"main überweisung\".\n");
    EXPECT_EQ(Run({"find", "1Bring"}), "tavo: Nothing was found with \"1Bring\".\n"); // of two texts
    EXPECT_EQ(Status, 1);
}

TEST_F(Find, OtherProgramsReadIt) {
    EXPECT_EQ(Run({"find", "swim", "--tsv"}), "3\t2026-12-01T07:00\t0\t1\tAppointment\tSwim\t\n");
    EXPECT_EQ(Run({"find", "swim", "--json"}),
              "[\n {\"item\": 3, \"start\": \"2026-12-01T07:00\", \"allDay\": false, \"recurring\": true, \"kind\": "
              "\"Appointment\", \"subject\": \"Swim\", \"location\": \"\"}\n]\n");
    EXPECT_EQ(Run({"find", "nobody", "--json"}), "[]\n");
    EXPECT_EQ(Status, 1);
}

TEST_F(Find, NothingToFindIsNoCommand) {
    EXPECT_THAT(Run({"find"}), HasSubstr("Say what to find"));
    EXPECT_THAT(Run({"find", " "}), HasSubstr("Say what to find"));
    EXPECT_EQ(Status, 2);
    const CommandDevice fresh;
    EXPECT_EQ(fresh.Run({"find", "x"}).Status, 1);
    EXPECT_FALSE(std::filesystem::exists(fresh.StorePath()));
}

TEST_F(Find, ShowTellsAllOfIt) {
    EXPECT_EQ(Run({"show", "1"}), "Item 1: Dentist\n"
                                  "  Kind      Appointment\n"
                                  "  When      Wed 2 December 2026 15:00 - 16:00\n"
                                  "  Reminds   15 minutes before, with Bell.wav\n"
                                  "  Place     Main street 1\n"
                                  "  Note      Bring the card\n"
                                  "            and money\n");
    EXPECT_EQ(Run({"show", "3"}), "Item 3: Swim\n"
                                  "  Kind      Appointment\n"
                                  "  When      Tue 1 December 2026 07:00 - 08:00\n"
                                  "  Repeats   weekly on Tue, Thu\n"
                                  "  Note      main pool\n");
}

TEST_F(Find, ShowTellsWhatIsDifferentOfASeries) {
    const std::string path = Device.WriteCalendar(
        "series.ics",
        "BEGIN:VEVENT\nUID:s\nDTSTART;TZID=America/New_York:20261201T090000\nDURATION:PT1H\n"
        "RRULE:FREQ=DAILY;COUNT=5\nEXDATE;TZID=America/New_York:20261202T090000\nSUMMARY:Stand\nEND:VEVENT\n"
        "BEGIN:VEVENT\nUID:s\nRECURRENCE-ID;TZID=America/New_York:20261203T090000\n"
        "DTSTART;TZID=America/New_York:20261203T110000\nDURATION:PT1H\nSUMMARY:Late\nEND:VEVENT\n");
    Run({"import", path});
    EXPECT_EQ(Run({"show", "4"}), "Item 4: Stand\n"
                                  "  Kind      Appointment\n"
                                  "  When      Tue 1 December 2026 15:00 - 16:00\n"
                                  "  Zone      America/New_York\n"
                                  "  Repeats   daily, 5 times\n"
                                  "  Except    Wed 2 December 2026 does not take place\n"
                                  "            Thu 3 December 2026 is Thu 3 December 2026 11:00 - 12:00, Late\n"
                                  "  UID       s\n");
}

TEST_F(Find, ShowGoesOnAfterWhatIsNotThere) {
    const CommandResult result = Device.Run({"show", "99", "2"});
    EXPECT_EQ(result.Errors, "tavo: There is no item 99.\n");
    EXPECT_THAT(result.Output, StartsWith("Item 2: "));
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(Run({"show"}), HasSubstr("Say which items"));
}

TEST_F(Find, ShowIsReadByOtherProgramsWithItsLineBreaks) {
    EXPECT_THAT(Run({"show", "1", "--json"}), HasSubstr("\"note\": \"Bring the card\\nand money\""));
    EXPECT_THAT(Run({"show", "1", "--tsv"}), HasSubstr("\tBring the card"));
    Run({"edit", "1", "--subject", "a\"b\\c\td\x1b"});
    EXPECT_THAT(Run({"show", "1", "--json"}), HasSubstr(R"("subject": "a\"b\\c\u0009d\u001b")"));
}

} // namespace
} // namespace tavo::tools
