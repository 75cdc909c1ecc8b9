// The machine's zone changes under the running companion.
#include "tests/companion/notification_service.h"
#include "tests/companion/patience.h"
#include "tests/companion/running_companion.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace tavo::companion::test {
namespace {

namespace fs = std::filesystem;

constexpr double kSoon = 10;
constexpr int kTokyoHours = 9; // ahead of UTC, all the year
constexpr rules::Seconds kHour = 3600;

// A companion with an /etc of the test's own.
class ZoneChange : public CompanionTest {
  protected:
    void SetUp() override {
        fs::create_directory(Etc());
        SetZone("Etc/UTC");
        const std::string unshare = FindUnshare();
        if (unshare.empty() || !fs::exists("/usr/share/zoneinfo/Asia/Tokyo")) {
            GTEST_SKIP() << "no mounts of one's own, or no zones: /etc cannot be changed here";
        }
        Program = Folder.File("companion-with-its-etc").string();
        std::ofstream(Program) << "#!/bin/sh\nunset TZ # the machine's zone counts\nexec "
                               << WithItsEtc(unshare, "exec \"" TAVO_COMPANION "\"") << '\n';
        fs::permissions(Program, fs::perms::owner_all);
        StartCompanion(Bus.Address());
    }

    std::string WithItsEtc(const std::string& unshare, const std::string& command) const {
        return unshare + " sh -c 'mount --bind \"" + Etc().string() + "\" /etc && " + command + "'";
    }

    // The command that gives a program mounts of its own; empty where nobody may have them.
    std::string FindUnshare() const {
        for (const char* unshare : {"unshare -m", "unshare -rm"}) {
            if (std::system((WithItsEtc(unshare, "true") + " 2>/dev/null").c_str()) == 0) {
                return unshare;
            }
        }
        return "";
    }

    fs::path Etc() const { return Folder.File("etc"); }

    // As the desktop's settings do it: a link is made beside and put in the other's place.
    void SetZone(const std::string& zone) const {
        const fs::path next = Etc() / "localtime.new";
        fs::create_symlink("/usr/share/zoneinfo/" + zone, next);
        fs::rename(next, Etc() / "localtime");
    }

    SessionBus Bus;
    NotificationService Service{Bus};
};

TEST_F(ZoneChange, BringsWhatIsDueInTheNewZone) {
    AddReminderAt(Now() + kTokyoHours * kHour + 600, u"Breakfast", 10); // due in nine hours, and now in Tokyo
    Service.Serve(1.5);
    EXPECT_TRUE(Service.Came.empty());
    SetZone("Asia/Tokyo");
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    EXPECT_EQ(Service.Came.back().Summary, "Breakfast");
}

} // namespace
} // namespace tavo::companion::test
