// TavoCalendar.dat on a disk that fails, at every call once.
#include "store/category_file.h"

#include "store/program_state.h"
#include "tests/support/every_fault.h"
#include "tests/support/outlook_probe.h"
#include "tests/support/test_device.h"

#include <gmock/gmock.h>

namespace tavo {

namespace {

using test::Fault;
using test::MemoryDisk;
using test::PlayWithEveryFault;
using testing::ElementsAre;

const std::string kDataFile = "/device/My Documents/TavoCalendar/TavoCalendar.dat";
const std::string kOld("\1\0\0\0\x9\0\0\0;\0\0\0\0;\0\0\0\0;", 19);
const std::string kNew("\1\0\0\0\x9\0\0\0;\1\0\0\0\x7\0\0\0;\0\0\0\0;", 23);

headless::DeviceOptions On(MemoryDisk& disk) {
    headless::DeviceOptions options = test::WithStore();
    options.Root = "/device"; // of that disk alone
    options.Disk = &disk;
    return options;
}

// A start of the program on the disk.
struct Start {
    explicit Start(MemoryDisk& disk) : Device(On(disk)) { State.Store.OutlookApp = Outlook.Share(); }

    test::TestDevice Device;
    test::OutlookProbe Outlook;
    CMessagePump Pump{Device.Host};
    CProgramState State{Pump};
};

} // namespace

TEST(CategoryFileFaults, TheTagsAreTheOldOnesOrTheNewOnesAndTheNextTrySavesThem) {
    const int met = PlayWithEveryFault([](const Fault& fault) {
        MemoryDisk disk("/device/My Documents/TavoCalendar");
        disk.Put(kDataFile, kOld);
        {
            Start start(disk);
            EXPECT_TRUE(LoadCategoryFile(start.State));
            start.State.Categories.HolidayList.Append(7);
            start.Device.WillAnswer(IDOK);
            fault.Strike(disk);
            const bool isSaved = SaveCategoryFile(start.State);
            disk.Mend();
            const std::string left = disk.Get(kDataFile).value_or("");
            EXPECT_TRUE(left == kNew || (left == kOld && !isSaved));
            EXPECT_TRUE(SaveCategoryFile(start.State));
            EXPECT_EQ(disk.Get(kDataFile), kNew);
        }
        Start next(disk);
        EXPECT_TRUE(LoadCategoryFile(next.State));
        EXPECT_THAT(next.State.Categories.AlarmList.All(), ElementsAre(9));
        EXPECT_THAT(next.State.Categories.HolidayList.All(), ElementsAre(7));
        return disk.HasFailed();
    });
    EXPECT_GE(met, 40);
}

TEST(CategoryFileFaults, AFileThatCannotBeReadAtStartIsNotReplacedBeforeItWasRead) {
    const int met = PlayWithEveryFault([](const Fault& fault) {
        MemoryDisk disk("/device/My Documents/TavoCalendar");
        disk.Put(kDataFile, kOld);
        Start start(disk);
        start.Device.WillAnswer(IDOK);
        fault.Strike(disk);
        const bool isLoaded = LoadCategoryFile(start.State);
        disk.Mend();
        EXPECT_EQ(disk.Get(kDataFile), kOld);
        EXPECT_TRUE(!isLoaded || start.State.Categories.IsAlarm(9) ||
                    disk.Get("/device/My Documents/TavoCalendar.dat").has_value()); // where it looks without its folder
        start.Device.WillAnswer(IDOK);
        static_cast<void>(SaveCategoryFile(start.State)); // refused, or written with what was read
        EXPECT_EQ(disk.Get(kDataFile), kOld);
        return disk.HasFailed();
    });
    EXPECT_GE(met, 40);
}

} // namespace tavo
