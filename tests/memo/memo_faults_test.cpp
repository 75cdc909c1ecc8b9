// Saving and deleting memos on a disk that fails, at every call once.
#include "memo/memo_files.h"

#include "tests/support/every_fault.h"
#include "tests/support/test_device.h"

#include <gmock/gmock.h>

namespace tavo {

namespace {

using test::Fault;
using test::MemoryDisk;
using test::PlayWithEveryFault;
using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Optional;

const std::string kFolder = "/device/My Documents/TavoCalendar";
const std::string kMemo = kFolder + "/20041103_171005.pwi";
constexpr std::u16string_view kMemoPath = u"\\My Documents\\TavoCalendar\\20041103_171005.pwi";

headless::DeviceOptions On(MemoryDisk& disk) {
    headless::DeviceOptions options = test::WithStore();
    options.Root = "/device"; // of that disk alone
    options.Disk = &disk;
    return options;
}

struct Start {
    explicit Start(MemoryDisk& disk) : Device(On(disk)) {}

    test::TestDevice Device;
    CMessagePump Pump{Device.Host};
    CProgramState State{Pump};
    MemoFiles Memos{State};
};

std::vector<std::string> Kept(const MemoryDisk& disk) {
    return disk.FilesIn(kFolder + "/Deleted");
}

} // namespace

TEST(MemoFaults, ASavedMemoIsTheOldOrTheNewAndTheNextTrySavesIt) {
    const int met = PlayWithEveryFault([](const Fault& fault) {
        MemoryDisk disk(kFolder);
        disk.Put(kMemo, "old");
        Start start(disk);
        start.State.Memo.Fill({'n', 'e', 'w'});
        fault.Strike(disk);
        const bool isWritten = start.Memos.WriteMemo(kMemoPath);
        disk.Mend();
        const std::string left = disk.Get(kMemo).value_or("");
        EXPECT_THAT(left, AnyOf("old", "new"));
        EXPECT_TRUE(!isWritten || left == "new");
        EXPECT_TRUE(start.Memos.WriteMemo(kMemoPath));
        EXPECT_EQ(disk.Get(kMemo), "new");
        EXPECT_THAT(Kept(disk), Contains("old"));
        EXPECT_THAT(start.Memos.FindMemos(2004, 11, 3), ElementsAre(u"20041103_171005.pwi"));
        return disk.HasFailed();
    });
    EXPECT_GE(met, 60);
}

// Somebody took the folder away while the program ran.
TEST(MemoFaults, WithoutItsFolderAMemoIsSavedByTheNextTry) {
    const int met = PlayWithEveryFault([](const Fault& fault) {
        MemoryDisk disk("/device/My Documents");
        Start start(disk);
        start.State.Memo.Fill({'n', 'e', 'w'});
        fault.Strike(disk);
        const bool isWritten = start.Memos.WriteMemo(kMemoPath);
        disk.Mend();
        EXPECT_TRUE(!isWritten || disk.Get(kMemo) == "new");
        EXPECT_TRUE(start.Memos.WriteMemo(kMemoPath));
        EXPECT_THAT(disk.Get(kMemo), Optional(std::string("new")));
        return disk.HasFailed();
    });
    EXPECT_GE(met, 60);
}

} // namespace tavo
