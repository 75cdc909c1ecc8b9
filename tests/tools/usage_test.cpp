// What the command line says about itself, and how it answers what it does not understand.
#include "tests/tools/command_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo::tools {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

TEST(CommandLine, HelpNamesEveryCommandOnStandardOutput) {
    const CommandResult result = CommandDevice().Run({"--help"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_THAT(result.Output, HasSubstr("import PATH..."));
    EXPECT_THAT(result.Output, HasSubstr("agenda"));
    EXPECT_THAT(result.Output, HasSubstr("check"));
    EXPECT_THAT(result.Errors, IsEmpty());
}

TEST(CommandLine, EachCommandExplainsItself) {
    const CommandDevice device;
    EXPECT_THAT(device.Run({"agenda", "--help"}).Output, StartsWith("tavo agenda"));
    EXPECT_THAT(device.Run({"import", "--help"}).Output, StartsWith("tavo import"));
    EXPECT_THAT(device.Run({"check", "--help"}).Output, StartsWith("tavo check"));
}

TEST(CommandLine, HelpNeedsNoDeviceAndMakesNone) {
    const CommandDevice device;
    EXPECT_EQ(device.Run({"agenda", "--help"}).Status, 0);
    EXPECT_FALSE(std::filesystem::exists(device.Home()));
}

TEST(CommandLine, VersionIsOneLine) {
    const CommandResult result = CommandDevice().Run({"--version"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Output, "tavo 1.0.0\n");
}

class Misunderstood : public testing::TestWithParam<std::vector<std::string>> {};

TEST_P(Misunderstood, IsStatusTwoOnStandardErrorAndTouchesNothing) {
    const CommandDevice device;
    const CommandResult result = device.Run(GetParam());
    EXPECT_EQ(result.Status, 2);
    EXPECT_THAT(result.Output, IsEmpty());
    EXPECT_THAT(result.Errors, StartsWith("tavo: "));
    EXPECT_FALSE(std::filesystem::exists(device.Home()));
}

INSTANTIATE_TEST_SUITE_P(
    CommandLine, Misunderstood,
    testing::Values(std::vector<std::string>{}, std::vector<std::string>{"dance"}, std::vector<std::string>{"--dance"},
                    std::vector<std::string>{"agenda", "--dance"}, std::vector<std::string>{"agenda", "tomorrow"},
                    std::vector<std::string>{"agenda", "--from"}, std::vector<std::string>{"agenda", "--tsv=yes"},
                    std::vector<std::string>{"import"}, std::vector<std::string>{"import", "--as", "meeting", "x.ics"},
                    std::vector<std::string>{"import", "x.ics", "--as"},
                    std::vector<std::string>{"import", "--force", "x.ics"},
                    std::vector<std::string>{"check", "everything"}));

class BadDate : public testing::TestWithParam<std::string> {};

TEST_P(BadDate, IsRefusedByName) {
    const CommandDevice device;
    for (const char* option : {"--from", "--to"}) {
        const CommandResult result = device.Run({"agenda", option, GetParam()});
        EXPECT_EQ(result.Status, 2);
        EXPECT_THAT(result.Output, IsEmpty());
        EXPECT_THAT(result.Errors, StartsWith("tavo: " + std::string(option) + ": \"" + GetParam() + "\" "));
    }
}

INSTANTIATE_TEST_SUITE_P(CommandLine, BadDate,
                         testing::Values("2026-02-29", "2026-13-01", "2026-00-10", "2026-01-011", "1600-12-31", "9:30",
                                         "2026-01-0x", "-026-01-01", ""));

TEST(CommandLine, ALastDayBeforeTheFirstIsRefused) {
    const CommandResult result = CommandDevice().Run({"agenda", "--from", "2026-03-15", "--to", "2026-03-14"});
    EXPECT_EQ(result.Status, 2);
    EXPECT_THAT(result.Errors, HasSubstr("--to lies before the day of --from"));
}

TEST(CommandLine, WithoutAHomeItSaysWhatHelps) {
    CommandDevice device;
    device.Environment["TAVO_HOME"] = "";
    device.Environment["XDG_DATA_HOME"] = "";
    device.Environment["HOME"] = "";
    for (const char* command : {"agenda", "check"}) {
        const CommandResult result = device.Run({command});
        EXPECT_EQ(result.Status, 1);
        EXPECT_THAT(result.Output, IsEmpty());
        EXPECT_THAT(result.Errors, HasSubstr("TAVO_HOME"));
    }
}

TEST(CommandLine, AHomeThatIsAFileIsNamedWithWhatHelps) {
    CommandDevice device;
    device.Environment["TAVO_HOME"] = device.WriteFile("occupied", "not a folder");
    const CommandResult result = device.Run({"agenda"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Errors, HasSubstr("occupied"));
    EXPECT_THAT(result.Errors, HasSubstr("TAVO_HOME"));
}

TEST(CommandLine, AFullDiskUnderTheOutputIsNoticed) {
    const CommandDevice device;
    const std::string shell = "'" TAVO_COMMAND "' --help > /dev/full 2> '" + device.Place("errors").string() + "'";
    EXPECT_NE(std::system(shell.c_str()), 0);
    EXPECT_THAT(ReadWhole(device.Place("errors")), HasSubstr("cannot be written"));
}

} // namespace
} // namespace tavo::tools
