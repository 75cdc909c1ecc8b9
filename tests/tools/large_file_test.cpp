// Calendar files whose size is meant to do harm: read or refused in the memory and time that any other file takes.
#include "tests/support/processor_time.h"
#include "tests/tools/command_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <functional>

namespace tavo::tools {
namespace {

using testing::HasSubstr;

constexpr long kMostKilobytes = 60 * 1024;
constexpr std::size_t kMegabyte = 1024 * 1024;

const std::string kGood = "BEGIN:VEVENT\nUID:good@test\nDTSTART:20260314T090000\nSUMMARY:Good\nEND:VEVENT\n";

class LargeFile : public testing::Test {
  protected:
    // `write` adds the next few bytes of the body until there are so many; a good event stands behind it.
    std::string WriteFile(std::size_t size, const std::function<void(std::string& text, int number)>& write) {
        const std::string path = Device.Place("large.ics").string();
        std::ofstream file(path, std::ios::binary);
        file << "BEGIN:VCALENDAR\nVERSION:2.0\n";
        std::size_t written = 0;
        std::string text;
        for (int number = 0; written < size; ++number) {
            text.clear();
            write(text, number);
            file << text;
            written += text.size();
        }
        file << kGood << "END:VCALENDAR\n";
        return path;
    }

    // What the import says; it and all later steps stay within memory.
    CommandResult Take(const std::string& path) {
        CommandResult result = Device.Run({"import", path});
        EXPECT_NE(result.Status, -1) << "it was ended by a signal";
        ExpectLittleMemory(result);
        const CommandResult listed = Device.Run({"agenda", "--from", "2026-03-14", "--to", "2026-03-14", "--tsv"});
        EXPECT_THAT(listed.Output, HasSubstr("\tGood\n"));
        ExpectLittleMemory(listed);
        ExpectLittleMemory(Device.Run({"reminders", "list"}));
        const CommandResult checked = Device.Run({"check"});
        EXPECT_EQ(checked.Status, 0) << checked.Output;
        ExpectLittleMemory(checked);
        return result;
    }

    static void ExpectLittleMemory(const CommandResult& result) {
        if (test::kSlowdown == 1) { // the sanitizers' own memory is another matter
            EXPECT_LE(result.PeakKilobytes, kMostKilobytes);
        }
    }

    // Four times the file takes about four times as long.
    void ExpectLinearTime(std::size_t size, const std::function<void(std::string& text, int number)>& write) {
        const double quarter = Device.Run({"import", WriteFile(size / 4, write)}).Seconds;
        const CommandResult whole = Take(WriteFile(size, write));
        EXPECT_LT(whole.Seconds, 7 * quarter + 0.2);
    }

    CommandDevice Device;
};

// Nothing that begins ends, and every line is against the format in another way.
void AppendHarm(std::string& text, int number) {
    switch (number % 8) {
    case 0:
        text = "BEGIN:VEVENT\nDTSTART;TZID=\"" + std::string(200, 'x') + "\n";
        break;
    case 1:
        text = "SUMMARY;" + std::string(300, ';') + ":\n " + std::string(400, '\\') + "\n";
        break;
    case 2:
        text = "BEGIN:VALARM\nTRIGGER:P" + std::string(100, '9') + "W\n";
        break;
    case 3:
        text = std::string(500, '\0') + "\n\t\n \n";
        break;
    case 4:
        text = "RRULE:FREQ=YEARLY;BYDAY=" + std::string(300, '-') + "\nEND:VEVENT\n";
        break;
    case 5:
        text = "ATTACH;ENCODING=BASE64;VALUE=BINARY:" + std::string(1000, '=') + "\n";
        break;
    case 6:
        text = "\xFF\xFE\xC3" + std::string(300, '\x80') + ":\nEND:VTODO\n";
        break;
    default:
        text = "X-" + std::to_string(number) + ";A=" + std::string(100, '^') + ":" + std::string(500, ',') + "\n";
    }
}

TEST_F(LargeFile, AHundredMegabytesOfHarmAreReadInLittleMemory) {
    const auto size = static_cast<std::size_t>(100 / test::kSlowdown) * kMegabyte;
    ExpectLinearTime(size, AppendHarm);
}

TEST_F(LargeFile, ComponentsWithinComponentsWithoutEnd) {
    ExpectLinearTime(8 * kMegabyte, [](std::string& text, int number) {
        text = "BEGIN:X-" + std::to_string(number) + "\nBEGIN:VEVENT\n";
    });
}

TEST_F(LargeFile, AnEventThatNeverEnds) {
    ExpectLinearTime(20 * kMegabyte, [](std::string& text, int number) {
        text = number == 0 ? "BEGIN:VEVENT\nDTSTART:20260101T080000\n" : "ATTENDEE:mailto:somebody@example.org\n";
    });
}

TEST_F(LargeFile, ALineOfFiftyMegabytes) {
    const CommandResult result = Take(WriteFile(50 * kMegabyte, [](std::string& text, int number) {
        text = number == 0 ? "BEGIN:VEVENT\nUID:wide\nDTSTART:20260101T080000\nSUMMARY:" : std::string(kMegabyte, 'w');
        text += number == 50 ? "\nEND:VEVENT\n" : "";
    }));
    EXPECT_EQ(result.Output, "2 new, 0 changed, 0 unchanged, 0 refused, 1 mended.\n");
    EXPECT_THAT(result.Errors, HasSubstr("large.ics:6: mended: this text is too large"));
}

TEST_F(LargeFile, AThousandZonesEachWithItsEntry) {
    std::string events;
    for (int number = 0; number < 1000; ++number) {
        const std::string name = "Zone " + std::to_string(number);
        const std::string offset = number % 2 == 0 ? "+0130" : "-0230";
        events += "BEGIN:VTIMEZONE\nTZID:" + name +
                  "\nBEGIN:STANDARD\nDTSTART:19700101T000000\nTZOFFSETFROM:" + offset + "\nTZOFFSETTO:" + offset +
                  "\nEND:STANDARD\nEND:VTIMEZONE\n" + "BEGIN:VEVENT\nUID:" + std::to_string(number) +
                  "\nDTSTART;TZID=" + name + ":20260314T120000\nSUMMARY:" + name + "\nEND:VEVENT\n";
    }
    const CommandResult result = Take(Device.WriteCalendar("zones.ics", events + kGood));
    EXPECT_EQ(result.Output, "1001 new, 0 changed, 0 unchanged, 0 refused.\n") << result.Errors;
    EXPECT_LT(result.Seconds, test::AtMost(2));
    const CommandResult listed = Device.Run({"agenda", "--from", "2026-03-14", "--to", "2026-03-14", "--tsv"});
    EXPECT_THAT(listed.Output, HasSubstr("2026-03-14T11:30\t2026-03-14T11:30\tAppointment\t999\tZone 998\n"));
    EXPECT_THAT(listed.Output, HasSubstr("2026-03-14T15:30\t2026-03-14T15:30\tAppointment\t1000\tZone 999\n"));
    EXPECT_LT(listed.Seconds, test::AtMost(1));
    const CommandResult exported = Device.Run({"export"});
    EXPECT_THAT(exported.Output, HasSubstr("\r\nTZID:Zone 999\r\n"));
    EXPECT_LT(exported.Seconds, test::AtMost(1));
}

std::string CancelledDays(int count) {
    std::string event = "BEGIN:VEVENT\nUID:rare\nDTSTART:20260105T090000\nRRULE:FREQ=DAILY\nEXDATE:";
    for (int number = 0; number < count; ++number) {
        std::array<char, 40> text{};
        std::snprintf(text.data(), text.size(), "%04d%02d%02dT090000", 2026 + number / 336, number / 28 % 12 + 1,
                      number % 28 + 1);
        event += (number == 0 ? "" : ",") + std::string(text.data());
    }
    return event + "\nEND:VEVENT\n";
}

TEST_F(LargeFile, SixtyThousandCancelledDaysInOneLineComeInAndLeaveAgain) {
    const CommandResult result = Take(Device.WriteCalendar("list.ics", CancelledDays(60'000) + kGood));
    EXPECT_EQ(result.Output, "2 new, 0 changed, 0 unchanged, 0 refused.\n") << result.Errors;
    const std::string written = Device.Place("out.ics").string();
    const CommandResult exported = Device.Run({"export", written});
    EXPECT_EQ(exported.Status, 0);
    ExpectLittleMemory(exported);
    CommandDevice other;
    EXPECT_EQ(other.Run({"import", written}).Output, "2 new, 0 changed, 0 unchanged, 0 refused.\n");
}

// A line of more than a mebibyte is none that anybody reads.
TEST_F(LargeFile, AHundredThousandCancelledDaysInOneLineAreRefusedWithTheirEntryAlone) {
    const CommandResult result = Take(Device.WriteCalendar("list.ics", CancelledDays(100'000) + kGood));
    EXPECT_EQ(result.Output, "1 new, 0 changed, 0 unchanged, 1 refused.\n");
    EXPECT_THAT(result.Errors, HasSubstr("list.ics:7: refused: this entry is too large\n"));
}

} // namespace
} // namespace tavo::tools
