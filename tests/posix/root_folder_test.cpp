// Tests of finding and making the device's root.
#include "host/posix/root_folder.h"

#include "tests/files/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tavo::posix {

namespace {

using files::RunApart;
using files::RunUnprivileged;
using files::TemporaryFolder;
using testing::EndsWith;
using testing::HasSubstr;

mode_t ModeOf(const std::string& path) {
    struct stat state {};

    return stat(path.c_str(), &state) == 0 ? state.st_mode & 07777 : 0;
}

} // namespace

TEST(DeviceRoot, TavoHomeComesFirstThenTheDataFolderThenTheHome) {
    const TemporaryFolder folder;
    RootEnvironment environment{folder / "own", folder / "data", folder / "home"};
    EXPECT_EQ(OpenDeviceRoot(environment).Root->Path(), folder / "own");
    environment.TavoHome.clear();
    EXPECT_EQ(OpenDeviceRoot(environment).Root->Path(), folder / "data/tavocalendar");
    environment.XdgDataHome = "not/absolute";
    EXPECT_EQ(OpenDeviceRoot(environment).Root->Path(), folder / "home/.local/share/tavocalendar");
}

TEST(DeviceRoot, FoldersAreMadeForTheUserAlone) {
    const TemporaryFolder folder;
    const RootResult result = OpenDeviceRoot({"", "", folder / "home"});
    ASSERT_TRUE(result.Root) << result.Problem;
    EXPECT_EQ(ModeOf(folder / "home/.local"), 0700U);
    EXPECT_EQ(ModeOf(result.Root->Path()), 0700U);
    EXPECT_EQ(ModeOf(result.Root->DocumentsFolder()), 0700U);
    EXPECT_EQ(ModeOf(result.Root->WindowsFolder()), 0700U);
    EXPECT_EQ(ModeOf(result.Root->RunFolder()), 0700U);
}

TEST(DeviceRoot, AnExistingRootIsOpenedAgainByItsRealPath) {
    const TemporaryFolder folder;
    folder.Put("real/Outlook.db", "kept");
    std::filesystem::create_directory_symlink(folder / "real", folder / "link");
    const RootResult result = OpenDeviceRoot({folder / "link", "", ""});
    ASSERT_TRUE(result.Root);
    EXPECT_EQ(result.Root->StorePath(), folder / "real/Outlook.db");
    EXPECT_EQ(folder.Get("real/Outlook.db"), "kept");
}

TEST(DeviceRoot, ARelativeRootIsTakenFromTheWorkingFolder) {
    const TemporaryFolder folder;
    EXPECT_EQ(RunApart([&] {
                  if (chdir(folder.Path().c_str()) != 0) {
                      return 2;
                  }
                  return OpenDeviceRoot({"inner/../root", "", ""}).Root->Path() == folder / "root" ? 0 : 1;
              }),
              0);
}

TEST(DeviceRoot, WithoutAHomeASentenceHelps) {
    const RootResult result = OpenDeviceRoot({"", "", ""});
    EXPECT_FALSE(result.Root);
    EXPECT_EQ(result.Problem,
              "There is no home folder to keep the calendar in; set HOME, or TAVO_HOME to a folder of your own.");
}

TEST(DeviceRoot, WithoutPermissionASentenceNamesTheFolder) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "closed");
    EXPECT_EQ(RunUnprivileged(folder.Path(),
                              [&] {
                                  chmod((folder / "closed").c_str(), 0500);
                                  const RootResult result = OpenDeviceRoot({folder / "closed/root", "", ""});
                                  return !result.Root && result.Problem ==
                                                             "The folder " + (folder / "closed/root") +
                                                                 " cannot be used because you have no permission to "
                                                                 "write there; set TAVO_HOME to a folder of your own."
                                             ? 0
                                             : 1;
                              }),
              0);
}

TEST(DeviceRoot, ARootThatOthersMayWriteIsRefusedBeforeAnythingIsMadeInIt) {
    const TemporaryFolder folder;
    const std::string root = folder / "it's mine";
    std::filesystem::create_directory(root);
    for (const mode_t mode : {0770U, 0777U, 01777U}) {
        ASSERT_EQ(chmod(root.c_str(), mode), 0);
        const RootResult result = OpenDeviceRoot({root, "", ""});
        EXPECT_FALSE(result.Root);
        EXPECT_EQ(result.Problem, "Others may write to the folder " + root + "; close it to them with: chmod go-w '" +
                                      (folder / "it'\\''s mine") + "', or set TAVO_HOME to a folder of your own.");
        EXPECT_TRUE(folder.NamesIn("it's mine").empty());
    }
    ASSERT_EQ(chmod(root.c_str(), 0755), 0); // others may look
    EXPECT_TRUE(OpenDeviceRoot({root, "", ""}).Root);
}

TEST(DeviceRoot, ARunFolderThatOthersMayWriteIsRefused) {
    const TemporaryFolder folder;
    const std::string run = OpenDeviceRoot({folder / "root", "", ""}).Root->RunFolder();
    ASSERT_EQ(chmod(run.c_str(), 0777), 0);
    const RootResult result = OpenDeviceRoot({folder / "root", "", ""});
    EXPECT_FALSE(result.Root);
    EXPECT_THAT(result.Problem, HasSubstr("close it to them with: chmod go-w '" + run + "'"));
}

TEST(DeviceRoot, ARootOfSomebodyElseIsRefused) {
    const TemporaryFolder folder;
    std::string root = "/usr"; // the administrator's
    if (geteuid() == 0) {
        root = folder / "root";
        std::filesystem::create_directory(root);
        ASSERT_EQ(chown(root.c_str(), 65534, 65534), 0);
    }
    const RootResult result = OpenDeviceRoot({root, "", ""});
    EXPECT_FALSE(result.Root);
    EXPECT_EQ(result.Problem, "The folder " + root +
                                  " belongs to someone else; have it given to you (chown), or set TAVO_HOME to a "
                                  "folder of your own.");
}

TEST(DeviceRoot, AFileInTheWayIsNamedAndLeftAlone) {
    const TemporaryFolder folder;
    folder.Put("root/Windows", "a file");
    const RootResult inside = OpenDeviceRoot({folder / "root", "", ""});
    EXPECT_FALSE(inside.Root);
    EXPECT_THAT(inside.Problem,
                HasSubstr(folder / "root/Windows cannot be used because it, or a folder above it, is a file"));
    const RootResult above = OpenDeviceRoot({folder / "root/Windows/x", "", ""});
    EXPECT_FALSE(above.Root);
    EXPECT_THAT(above.Problem, EndsWith("set TAVO_HOME to a folder of your own."));
    EXPECT_EQ(folder.Get("root/Windows"), "a file");
}

} // namespace tavo::posix
