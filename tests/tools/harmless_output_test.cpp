// Whatever files, arguments, folders and stores hold: nothing that the command prints commands a terminal.
#include "host/locale/harmless_text.h"
#include "tests/tools/command_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ctime>
#include <sstream>

namespace tavo::tools {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

// Colours, a title, the upper escape, letters turned round, a byte order mark, no characters.
constexpr const char* kNasty = "n\x1b[31m\x1b]0;x\x07\xC2\x9B"
                               "2J\xE2\x80\xAE\xE2\x81\xA6\xEF\xBB\xBF\xEF\xBF\xBF\xEF\xB7\x90\x7F";
constexpr const char* kNastyShown = "n␛[31m␛]0;x␇\uFFFD2J\uFFFD\uFFFD␡";

void ExpectHarmless(const std::string& output, char ownSeparator = ' ') {
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) {
        for (char& letter : line) {
            letter = letter == ownSeparator ? ' ' : letter;
        }
        EXPECT_TRUE(locale::IsHarmless(line)) << locale::MakeHarmless(line);
    }
}

class HarmlessOutput : public testing::Test {
  protected:
    HarmlessOutput() {
        Device.Environment["TZ"] = "UTC";
        Device.Environment["XDG_CONFIG_HOME"] = Device.Place("config").string();
    }

    CommandResult Run(const std::vector<std::string>& words, char ownSeparator = ' ') const {
        CommandResult result = Device.Run(words);
        ExpectHarmless(result.Output, ownSeparator);
        ExpectHarmless(result.Errors);
        return result;
    }

    std::string WriteEvent(const std::string& lines) const {
        return Device.WriteCalendar("a.ics", "BEGIN:VEVENT\nUID:a\n" + lines + "END:VEVENT\n");
    }

    CommandDevice Device;
};

TEST_F(HarmlessOutput, ArgumentsThatAreNotUnderstood) {
    const std::string nasty = kNasty;
    for (const std::vector<std::string>& words : {std::vector<std::string>{nasty},
                                                  {"--" + nasty},
                                                  {"agenda", "--" + nasty},
                                                  {"agenda", nasty},
                                                  {"agenda", "--from", nasty},
                                                  {"import", "--as", nasty, "x"},
                                                  {"import", "--" + nasty},
                                                  {"check", nasty},
                                                  {"memo", nasty},
                                                  {"memo", "export", "--all", "--to", "x", "--format", nasty},
                                                  {"memo", "export", nasty},
                                                  {"add", "x", "--start", nasty},
                                                  {"add", "x", "--start", "fri", "--repeat", nasty},
                                                  {"edit", nasty},
                                                  {"show", nasty},
                                                  {"week", nasty},
                                                  {"history", "--steps", nasty},
                                                  {"reminders", nasty},
                                                  {"reminders", "list", "--days", nasty}}) {
        EXPECT_EQ(Run(words).Status, 2);
    }
    EXPECT_THAT(Run({nasty}).Errors, HasSubstr(std::string("command ") + kNastyShown));
    EXPECT_THAT(Run({"agenda", nasty + "\nsecond"}).Errors, HasSubstr("␊second"));
}

TEST_F(HarmlessOutput, NamesOfFiles) {
    EXPECT_THAT(Run({"import", "\xC2\xFF"}).Errors, HasSubstr("\uFFFD\uFFFD: there is no such file"));
    EXPECT_THAT(Run({"import", kNasty}).Errors, HasSubstr(std::string(kNastyShown) + ": there is no such file"));
    const std::string broken = Device.WriteFile(std::string(kNasty) + "\nb.ics", "no calendar");
    EXPECT_THAT(Run({"import", broken}).Errors, HasSubstr(std::string(kNastyShown) + "␊b.ics:1: "));
    Device.WriteFile(std::string("folder/") + kNasty + ".ics", "no calendar");
    EXPECT_THAT(Run({"import", Device.Place("folder").string()}).Errors, HasSubstr(kNastyShown));
}

TEST_F(HarmlessOutput, ZonesTimesAndRulesOfAFile) {
    for (const char* line : {"DTSTART;TZID=", "DTSTART;TZID=\"Mars", "DTSTART:20260314T09", "DTSTART;VALUE=",
                             "DTSTART:20260314T090000\nRRULE:FREQ=DAILY;BYDAY=", "DTSTART:20260314T090000\nRRULE:FREQ=",
                             "DTSTART:20260314T090000\nRRULE:FREQ=DAILY;RSCALE=", "DTSTART:20260314T090000\nRDATE:",
                             "DTSTART:20260314T090000\nEXDATE;TZID=", "DTSTART:20260314T090000\nEXRULE:FREQ=",
                             "DTSTART:20260314T090000\nDURATION:", "DTSTART:20260314T090000\nRECURRENCE-ID;TZID="}) {
        for (const char* ending : {":20260314T090000\n", "\":20260314T090000\n", "\n"}) {
            Run({"import", WriteEvent(std::string(line) + kNasty + ending)});
        }
    }
    const CommandResult zone = Run({"import", WriteEvent("DTSTART;TZID=Ma\x1b[31mrs:20260314T090000\n")});
    EXPECT_THAT(zone.Errors, HasSubstr("\"Ma␛[31mrs\" is not known"));
}

TEST_F(HarmlessOutput, WhatStandsInTheCalendar) {
    const std::time_t later = std::time(nullptr) + 3600; // late in the evening, tomorrow
    std::array<char, 32> start{};
    std::array<char, 16> day{};
    std::strftime(day.data(), day.size(), "%Y-%m-%d", std::gmtime(&later));
    std::strftime(start.data(), start.size(), "%Y%m%dT%H%M%S", std::gmtime(&later));
    const std::string lines = std::string("DTSTART:") + start.data() + "\nSUMMARY:" + kNasty +
                              "\\nb\nLOCATION:" + kNasty +
                              "\nBEGIN:VALARM\nACTION:DISPLAY\nTRIGGER:-PT15M\nEND:VALARM\n";
    ASSERT_EQ(Run({"import", WriteEvent(lines)}).Status, 0);
    const std::string shown = std::string(kNastyShown) + "␊b";
    EXPECT_THAT(Run({"agenda", "--to", day.data()}).Output, HasSubstr(shown + " (" + kNastyShown + ")\n"));
    EXPECT_THAT(Run({"agenda", "--to", day.data(), "--tsv"}, '\t').Output, HasSubstr('\t' + shown + '\n'));
    EXPECT_THAT(Run({"find", "31m"}).Output, HasSubstr(shown + " (" + kNastyShown + ")\n"));
    EXPECT_THAT(Run({"find", "31m", "--json"}).Output, HasSubstr("\\u001b[31m\\u001b]0;x\\u0007"));
    EXPECT_THAT(Run({"show", "1"}).Output, HasSubstr("Item 1: " + shown + "\n"));
    EXPECT_THAT(Run({"edit", "1", "--remind", "15"}).Output, HasSubstr("Changed item 1: " + shown + ", "));
    EXPECT_THAT(Run({"history"}).Output, HasSubstr(": item 1, " + shown + "\n"));
    EXPECT_THAT(Run({"reminders", "list"}).Output, HasSubstr(shown + " ("));
    EXPECT_EQ(Run({"check"}).Status, 0);
}

TEST_F(HarmlessOutput, TheDevicesFolder) {
    Device.Environment["TAVO_HOME"] = Device.Place(kNasty).string();
    EXPECT_THAT(Run({"check"}).Output, Not(IsEmpty()));
    ASSERT_EQ(Run({"import", WriteEvent("DTSTART:20260314T090000\n")}).Status, 0);
    Device.WriteFile(std::string(kNasty) + "/My Documents/TavoCalendar/TavoCalendar.dat", "damaged");
    EXPECT_THAT(Run({"check"}).Output, HasSubstr(kNastyShown));
    Device.WriteFile(std::string(kNasty) + "/Outlook.db", "no store");
    EXPECT_EQ(Run({"agenda"}).Status, 1);
    EXPECT_EQ(Run({"check"}).Status, 1);
    Device.WriteFile(std::string(kNasty) + "file", "");
    Device.Environment["TAVO_HOME"] = Device.Place(std::string(kNasty) + "file").string();
    EXPECT_THAT(Run({"agenda"}).Errors, HasSubstr(std::string(kNastyShown) + "file cannot be used"));
}

TEST_F(HarmlessOutput, NamesOfMemos) {
    ASSERT_EQ(Run({"import", WriteEvent("DTSTART:20260314T090000\n")}).Status, 0);
    Device.WriteFile(std::string("home/My Documents/TavoCalendar/") + kNasty + ".pwi", "no ink");
    EXPECT_THAT(Run({"memo", "list"}).Output, HasSubstr(std::string(kNastyShown) + ".pwi\n"));
    const std::string folder = Device.Place("drawn").string();
    EXPECT_THAT(Run({"memo", "export", std::string("no") + kNasty, "--to", folder}).Errors, HasSubstr(kNastyShown));
    EXPECT_NE(Run({"memo", "export", "--all", "--to", folder}).Status, 0);
    EXPECT_NE(Run({"memo", "export", "--all", "--to", Device.Place("a.ics").string() + '/' + kNasty}).Status, 0);
}

TEST_F(HarmlessOutput, AFolderWithALineFeedIsNotStartedAtLogin) {
    Device.Environment["TAVO_HOME"] = Device.Place("home\nExec=evil").string();
    const CommandResult result = Run({"reminders", "on"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Errors, HasSubstr("home␊Exec=evil: it has characters that are no text"));
    EXPECT_FALSE(std::filesystem::exists(Device.Place("config/autostart/tavocalendar-reminders.desktop")));
}

} // namespace
} // namespace tavo::tools
