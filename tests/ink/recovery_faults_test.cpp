// What is left of a memo when the disk fails under it and the program dies before it can write again.
#include "host/ink/codec.h"
#include "host/ink/recovery_folder.h"
#include "tests/ink/control_desk.h"
#include "tests/support/every_fault.h"

namespace tavo::ink {
namespace {

using test::Fault;
using test::MemoryDisk;
using test::PlayWithEveryFault;
using ::testing::AnyOf;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

using InkBytes = std::vector<std::uint8_t>;

constexpr SYSTEMTIME kNow{2004, 11, 3, 3, 17, 10, 5, 0};
const std::string kFolder = "/device/Recovery";

InkBytes BytesOf(const std::optional<std::string>& text) {
    return text.has_value() ? InkBytes(text->begin(), text->end()) : InkBytes();
}

// The ink of every recovery file that holds some.
std::vector<InkBytes> InkLeft(const MemoryDisk& disk) {
    std::vector<InkBytes> left;
    for (const std::string& bytes : disk.FilesIn(kFolder)) {
        const auto contents = ReadRecovery(BytesOf(bytes));
        if (contents.has_value() && !contents->Ink.empty()) {
            left.push_back(contents->Ink);
        }
    }
    return left;
}

class RecoveryFaults : public ControlDesk {
  protected:
    RecoveryFaults() {
        Write();
        Drag(10, 10, 60, 10);
    }

    void DrawMore() {
        Line += 2;
        Drag(10, Line, 60, Line);
    }

    // From a file that holds the ink, through `change`, to one that holds what came of it, with a fault meanwhile.
    // `prepare`: what is done before, with the file.
    int PlayChange(const std::function<void()>& change,
                   const std::function<void(MemoryDisk& disk, RecoveryFile& file)>& prepare = {}) {
        return PlayWithEveryFault([&](const Fault& fault) {
            MemoryDisk disk("/device");
            {
                RecoveryFile file(disk, kFolder, kNow);
                EXPECT_TRUE(file.Write(Control));
                if (prepare) {
                    prepare(disk, file);
                }
                const InkBytes before = Control.GetData();
                change();
                const InkBytes after = Control.GetData();
                EXPECT_NE(before, after);
                fault.Strike(disk);
                const bool isWritten = file.Write(Control);
                disk.Mend();
                EXPECT_THAT(InkLeft(disk), Each(AnyOf(before, after)));
                EXPECT_THAT(InkLeft(disk), Not(IsEmpty()));
                EXPECT_TRUE(!isWritten || InkLeft(disk).back() == after);
                EXPECT_TRUE(file.Write(Control));
                EXPECT_THAT(InkLeft(disk), Contains(after));
            }
            EXPECT_TRUE(disk.HasFailed() || disk.NamesIn(kFolder).empty());
            return disk.HasFailed();
        });
    }

    double Line = 10; // of the stroke drawn last
};

TEST_F(RecoveryFaults, TheFirstInkIsWrittenByTheNextTry) {
    const int met = PlayWithEveryFault([&](const Fault& fault) {
        MemoryDisk disk("/device");
        RecoveryFile file(disk, kFolder, kNow);
        fault.Strike(disk);
        const bool isWritten = file.Write(Control);
        disk.Mend();
        EXPECT_TRUE(!isWritten || InkLeft(disk) == std::vector<InkBytes>{Control.GetData()});
        EXPECT_TRUE(file.Write(Control));
        EXPECT_THAT(InkLeft(disk), Contains(Control.GetData()));
        return disk.HasFailed();
    });
    EXPECT_GE(met, 24);
}

TEST_F(RecoveryFaults, MoreInkIsAddedWholeOrNotAtAll) {
    EXPECT_GE(PlayChange([&] { DrawMore(); }), 6);
}

TEST_F(RecoveryFaults, APageThatWasReshapedIsWrittenWholeOrNotAtAll) {
    const int met = PlayChange([&] {
        Drag(10, 30, 60, 30);
        Drag(35, 20, 35, 40, PenEnd::Eraser);
        Drag(10, 10 + static_cast<double>(++Time % 200), 60, 100);
    });
    EXPECT_GE(met, 6);
}

// The file ended in half a record that could not be cut off.
TEST_F(RecoveryFaults, AFileThatIsBrokenLastsUntilAnotherOneIsWritten) {
    const int met = PlayChange([&] { DrawMore(); },
                               [&](MemoryDisk& disk, RecoveryFile& file) {
                                   Control.PenDown(PenEnd::Tip, {{10, 200}, kNoPressure, Time});
                                   disk.Fail(1, ErrorCode::DiskFull, test::FaultSpan::FromThenOn);
                                   EXPECT_FALSE(file.Write(Control));
                                   disk.Mend();
                                   Control.PenCancel();
                               });
    EXPECT_GE(met, 30);
}

TEST_F(RecoveryFaults, InkThatIsHeldForLaterIsTheOldOrTheNew) {
    const InkBytes before = Encode(WriteByHand(20, 20));
    const InkBytes after = Encode(WriteByHand(30, 20));
    const int met = PlayWithEveryFault([&](const Fault& fault) {
        MemoryDisk disk("/device");
        RecoveryFile file(disk, kFolder, kNow);
        EXPECT_TRUE(file.WriteWhole(before));
        fault.Strike(disk);
        const bool isWritten = file.WriteWhole(after);
        disk.Mend();
        EXPECT_THAT(InkLeft(disk), ElementsAre(isWritten ? after : before));
        EXPECT_TRUE(file.WriteWhole(after));
        EXPECT_THAT(InkLeft(disk), Contains(after));
        return disk.HasFailed();
    });
    EXPECT_GE(met, 6);
}

TEST_F(RecoveryFaults, WhatACrashLeftIsFoundByTheNextStartAndNeverLost) {
    const std::string name = "20041103_171005_1.ink";
    const int met = PlayWithEveryFault([&](const Fault& fault) {
        MemoryDisk disk("/device");
        {
            RecoveryFile file(disk, kFolder, kNow);
            EXPECT_TRUE(file.Write(Control));
            file.Leave();
        }
        const RecoveryFolder folder(disk, kFolder);
        fault.Strike(disk);
        const std::size_t found = folder.Find().size();
        folder.End(std::u16string(name.begin(), name.end()), RecoveredInkEnd::Declined);
        disk.Mend();
        EXPECT_LE(found, 1U);
        const std::string memo = disk.Get(kFolder + "/Declined/20041103_171005_1.pwi").value_or("");
        const std::vector<RecoveredInk> again = folder.Find();
        EXPECT_TRUE(BytesOf(memo) == Control.GetData() ||
                    (again.size() == 1 && again.front().Data == Control.GetData()));
        folder.End(std::u16string(name.begin(), name.end()), RecoveredInkEnd::Declined);
        EXPECT_EQ(BytesOf(disk.Get(kFolder + "/Declined/20041103_171005_1.pwi")), Control.GetData());
        EXPECT_THAT(folder.Find(), IsEmpty());
        return disk.HasFailed();
    });
    EXPECT_GE(met, 40);
}

} // namespace
} // namespace tavo::ink
