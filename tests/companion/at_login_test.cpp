// The real RSound enters itself among what starts at login.
#include "host/posix/login_entry.h"
#include "tests/companion/patience.h"
#include "tests/companion/running_companion.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace tavo::companion::test {
namespace {

namespace fs = std::filesystem;

constexpr double kSoon = 10;

class AtLogin : public CompanionTest {
  protected:
    AtLogin() {
        Places = {"XDG_DATA_HOME=" + (Folder.Path / "data").string(),
                  "XDG_CONFIG_HOME=" + (Folder.Path / "config").string()};
    }

    fs::path Entry() const { return Folder.Path / "config/autostart/tavocalendar-reminders.desktop"; }

    std::string Text() const {
        std::stringstream text;
        text << std::ifstream(Entry()).rdbuf();
        return text.str();
    }

    // Entered before it waits for anything, so a running one has done it.
    void RunOnce() {
        StartCompanion("");
        ASSERT_TRUE(WaitUntil([&] { return fs::exists(Folder.Path / "data/tavocalendar/Outlook.db"); }, kSoon));
        Kill(SIGTERM);
    }
};

TEST_F(AtLogin, ItEntersItselfWhenNobodyHasDecided) {
    RunOnce();
    EXPECT_NE(Text().find("\nExec=\"" TAVO_COMPANION "\"\n"), std::string::npos) << Text();
    EXPECT_EQ(fs::status(Entry()).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(AtLogin, SwitchedOffItStaysSo) {
    fs::create_directories(Entry().parent_path());
    std::ofstream(Entry()) << "[Desktop Entry]\nHidden=true\n";
    RunOnce();
    EXPECT_EQ(Text(), "[Desktop Entry]\nHidden=true\n");
}

TEST_F(AtLogin, ADeviceInAPlaceOfItsOwnIsNotStartedAtLogin) {
    Places.push_back("TAVO_HOME=" + (Folder.Path / "data/tavocalendar").string());
    fs::create_directories(Folder.Path / "data/tavocalendar");
    RunOnce();
    EXPECT_FALSE(fs::exists(Entry()));
}

} // namespace
} // namespace tavo::companion::test
