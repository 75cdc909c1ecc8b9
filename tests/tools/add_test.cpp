// What `tavo add` puts into the calendar, and what it says of it.
#include "tests/tools/command_run.h"
#include "tools/calendar_day.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo::tools {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

Day GetUtcDay() {
    return std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
}

class Add : public testing::Test {
  protected:
    std::string List(const std::string& from, const std::string& to) {
        return Device.Run({"agenda", "--from", from, "--to", to, "--tsv"}).Output;
    }

    // What is said of a good one.
    std::string Make(std::vector<std::string> words) {
        words.insert(words.begin(), {"add", "Dentist"});
        const CommandResult result = Device.Run(words);
        EXPECT_EQ(result.Status, 0) << result.Errors;
        EXPECT_THAT(result.Errors, IsEmpty());
        return result.Output;
    }

    // What is said of one that makes no sense; nothing is made.
    std::string Refuse(std::vector<std::string> words) {
        words.insert(words.begin(), "add");
        const CommandResult result = Device.Run(words);
        EXPECT_EQ(result.Status, 2);
        EXPECT_THAT(result.Output, IsEmpty());
        EXPECT_FALSE(std::filesystem::exists(Device.Home()));
        return result.Errors;
    }

    CommandDevice Device;
};

TEST_F(Add, TheReadingIsToldWithTheNumber) {
    EXPECT_EQ(Make({"--start", "2026-12-02 15:00"}), "Added item 1: Dentist, Wed 2 December 2026 15:00 - 16:00\n");
    EXPECT_EQ(List("2026-12-02", "2026-12-02"), "2026-12-02T15:00\t2026-12-02T16:00\tAppointment\t1\tDentist\n");
}

TEST_F(Add, TomorrowIsTheDayAfterThisOne) {
    Device.Environment["TZ"] = "UTC";
    Day before;
    Day after;
    std::string said;
    do {
        before = GetUtcDay();
        said = Make({"--start", "tomorrow 15:00"});
        after = GetUtcDay();
    } while (before != after); // midnight came in between
    EXPECT_THAT(said, HasSubstr(": Dentist, " + WriteDayWithWeekday(after + std::chrono::days(1)) + " 15:00 - 16:00"));
}

TEST_F(Add, AnEndOrALengthMayBeGiven) {
    EXPECT_THAT(Make({"--start", "2026-12-02 15:00", "--end", "17:30"}), HasSubstr("December 2026 15:00 - 17:30\n"));
    EXPECT_THAT(Make({"--start", "2026-12-02 15:00", "--for", "1h30"}), HasSubstr("December 2026 15:00 - 16:30\n"));
    EXPECT_THAT(Make({"--start", "2026-12-02 15:00", "--for=0"}), HasSubstr("Wed 2 December 2026 15:00\n"));
    EXPECT_THAT(Make({"--start", "2026-12-02 22:00", "--end", "2:00"}),
                HasSubstr("Wed 2 December 2026 22:00 - Thu 3 December 2026 02:00\n"));
    EXPECT_THAT(Make({"--start", "2026-12-02 22:00", "--end", "2026-12-04 8:00"}),
                HasSubstr("Wed 2 December 2026 22:00 - Fri 4 December 2026 08:00\n"));
}

TEST_F(Add, WithoutATimeItLastsAllDay) {
    EXPECT_THAT(Make({"--start", "2026-12-02"}), HasSubstr("Wed 2 December 2026, all day\n"));
    EXPECT_THAT(Make({"--start", "2026-12-02", "--end", "2026-12-04", "--all-day"}),
                HasSubstr("Wed 2 December 2026 - Fri 4 December 2026, all day\n"));
    EXPECT_THAT(Make({"--start", "2026-12-02", "--for", "2 days"}), HasSubstr("2 December 2026 - Thu 3 December 2026"));
    EXPECT_EQ(List("2026-12-04", "2026-12-04"), "2026-12-02T00:00\t2026-12-05T00:00\tAppointment\t2\tDentist\n");
}

TEST_F(Add, PlaceAndNoteAreKept) {
    Make({"--start", "2026-12-02 15:00", "--location", "Main street 1", "--note", "Bring the card"});
    const std::string calendar = Device.Run({"export"}).Output;
    EXPECT_THAT(calendar, HasSubstr("\r\nLOCATION:Main street 1\r\n"));
    EXPECT_THAT(calendar, HasSubstr("\r\nDESCRIPTION:Bring the card\r\n"));
}

TEST_F(Add, WhatIsSaidIsHarmless) {
    const CommandResult result = Device.Run({"add", "Red\x1b[31m\nline", "--start", "2026-12-02 15:00"});
    EXPECT_EQ(result.Output, "Added item 1: Red␛[31m␊line, Wed 2 December 2026 15:00 - 16:00\n");
}

TEST_F(Add, WhatIsMissingIsNamed) {
    EXPECT_THAT(Refuse({}), HasSubstr("Say what it is: its subject."));
    EXPECT_THAT(Refuse({"", "--start", "fri"}), HasSubstr("Say what it is: its subject."));
    EXPECT_THAT(Refuse({"Dentist"}), HasSubstr("Say with --start when it is."));
    EXPECT_THAT(Refuse({"Dentist", "--start"}), HasSubstr("--start needs a value"));
    EXPECT_THAT(Refuse({"Dentist", "tomorrow"}), HasSubstr("\"tomorrow\" is one word too many"));
    EXPECT_THAT(Refuse({"Dentist", "--when", "fri"}), HasSubstr("There is no option --when"));
    EXPECT_THAT(Refuse({"Dentist", "--start", "fri", "--all-day=yes"}), HasSubstr("takes no value"));
}

TEST_F(Add, WhatCannotBeIsSaidInWords) {
    EXPECT_THAT(Refuse({"Dentist", "--start", "30 feb"}), HasSubstr("February has 29 days at the most"));
    EXPECT_THAT(Refuse({"Dentist", "--start", "fri 15:00", "--end", "14:00", "--for", "1h"}), HasSubstr("not both"));
    EXPECT_THAT(Refuse({"Dentist", "--start", "2026-12-02 15:00", "--end", "2026-12-02 14:00"}),
                HasSubstr("It would end before it begins."));
    EXPECT_THAT(Refuse({"Dentist", "--start", "2026-12-02", "--end", "2026-12-01"}),
                HasSubstr("It would end before it begins."));
    EXPECT_THAT(Refuse({"Dentist", "--start", "2026-12-02", "--for", "32 days"}), HasSubstr("longer than 31 days"));
    EXPECT_THAT(Refuse({"Dentist", "--start", "fri 15:00", "--all-day"}), HasSubstr("What lasts all day has no time"));
    EXPECT_THAT(Refuse({"Dentist", "--start", "fri", "--for", "2h"}), HasSubstr("at what time it begins"));
    EXPECT_THAT(Refuse({"Dentist", "--start", "fri 15:00", "--end", "sat"}), HasSubstr("at what time it ends"));
}

} // namespace
} // namespace tavo::tools
