// What is written for the desktop to start at login.
#include "host/posix/login_entry.h"

#include "tests/files/temporary_folder.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace tavo::posix {

using files::TemporaryFolder;

namespace {

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

class LoginEntryTest : public testing::Test {
  protected:
    LoginEntryTest() {
        setenv("XDG_CONFIG_HOME", Folder.Path().c_str(), 1);
        Entry = LoginEntry();
    }

    ~LoginEntryTest() override {
        Before.empty() ? unsetenv("XDG_CONFIG_HOME") : setenv("XDG_CONFIG_HOME", Before.c_str(), 1);
    }

    bool Has(const std::string& line) const {
        std::stringstream text;
        text << std::ifstream(Entry.Path()).rdbuf();
        return ('\n' + text.str()).find('\n' + line + '\n') != std::string::npos;
    }

    const std::string Before = Variable("XDG_CONFIG_HOME");
    TemporaryFolder Folder;
    LoginEntry Entry;
};

TEST_F(LoginEntryTest, NobodyHasDecidedUntilItIsSwitched) {
    EXPECT_FALSE(Entry.IsDecided());
    ASSERT_TRUE(Entry.SwitchOn("/opt/RSound", ""));
    EXPECT_TRUE(Entry.IsDecided());
    EXPECT_TRUE(Has("[Desktop Entry]"));
    EXPECT_TRUE(Has("Exec=\"/opt/RSound\""));
    EXPECT_FALSE(Has("Hidden=true"));
}

TEST_F(LoginEntryTest, OffIsADecisionToo) {
    ASSERT_TRUE(Entry.SwitchOn("/opt/RSound", ""));
    ASSERT_TRUE(Entry.SwitchOff());
    EXPECT_TRUE(Entry.IsDecided());
    EXPECT_TRUE(Has("Hidden=true"));
    EXPECT_FALSE(Has("Exec=\"/opt/RSound\""));
}

TEST_F(LoginEntryTest, AnotherRootIsNamedAndWhatTheDesktopReadsSpeciallyIsMarked) {
    ASSERT_TRUE(Entry.SwitchOn("/opt/a b/50%/RSound", "/home/$x"));
    EXPECT_TRUE(Has(R"(Exec=env "TAVO_HOME=/home/\\$x" "/opt/a b/50%%/RSound")"));
}

TEST_F(LoginEntryTest, ABackslashIsMarkedForTheFileAndForTheCommand) {
    ASSERT_TRUE(Entry.SwitchOn(R"(/opt/a\b/RSound)", ""));
    EXPECT_TRUE(Has(R"(Exec="/opt/a\\\\b/RSound")"));
}

TEST_F(LoginEntryTest, AFolderWithALineFeedAddsNoLine) {
    for (const char* root : {"/home/x\nExec=/bin/evil", "/home/x\rExec=/bin/evil", "/home/\x1b[31m", "/home/\xFF"}) {
        EXPECT_FALSE(Entry.SwitchOn("/opt/RSound", root));
        EXPECT_FALSE(Entry.SwitchOn(std::string(root) + "/RSound", ""));
        EXPECT_FALSE(Entry.IsDecided());
    }
    EXPECT_TRUE(Entry.SwitchOn("/opt/RSound", "/home/Kalender für Zoë"));
}

TEST_F(LoginEntryTest, WithoutAHomeFolderThereIsNothingToDecide) {
    const std::string home = Variable("HOME");
    unsetenv("XDG_CONFIG_HOME");
    unsetenv("HOME");
    LoginEntry nowhere;
    if (!home.empty()) {
        setenv("HOME", home.c_str(), 1);
    }
    EXPECT_TRUE(nowhere.Path().empty());
    EXPECT_TRUE(nowhere.IsDecided());
    EXPECT_FALSE(nowhere.SwitchOn("/opt/RSound", ""));
}

} // namespace

} // namespace tavo::posix
