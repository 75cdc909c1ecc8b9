// What is left of a memo when the program dies over it.
#include "host/ink/recovery_file.h"
#include "host/ink/recovery_folder.h"
#include "host/posix/posix_disk.h"
#include "host/posix/replace_file.h"
#include "tests/ink/control_desk.h"

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <random>

#include <sys/resource.h>
#include <sys/stat.h>

namespace tavo::ink {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace fs = std::filesystem;

constexpr SYSTEMTIME kNow{2004, 11, 3, 3, 17, 10, 5, 0};

// No file of this process grows beyond it while one lives.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) {
        EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &Before), 0);
        const rlimit limit{bytes, Before.rlim_max};
        Handler = std::signal(SIGXFSZ, SIG_IGN);
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    }

    ~FileSizeLimit() {
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &Before), 0);
        std::signal(SIGXFSZ, Handler);
    }

    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

  private:
    rlimit Before{};
    void (*Handler)(int) = nullptr;
};

class InkRecovery : public ControlDesk {
  protected:
    InkRecovery() {
        std::string pattern = (fs::temp_directory_path() / "ink-recovery-XXXXXX").string();
        Root = mkdtemp(pattern.data());
        Write();
    }

    ~InkRecovery() override { fs::remove_all(Root); }

    std::string FolderPath() const { return (Root / "Recovery").string(); }

    // The bytes that a crash would leave now.
    std::vector<std::uint8_t> Left(const RecoveryFile& file) const {
        std::vector<std::uint8_t> bytes;
        EXPECT_EQ(posix::ReadFile(file.Path(), 1 << 28, bytes), ErrorCode::Success);
        return bytes;
    }

    std::vector<std::uint8_t> InkLeft(const RecoveryFile& file) const {
        const std::optional<RecoveryContents> contents = ReadRecovery(Left(file));
        EXPECT_TRUE(contents.has_value());
        return contents.has_value() ? contents->Ink : std::vector<std::uint8_t>();
    }

    // As a crash leaves it: not locked by anyone.
    void LeaveFile(const std::string& name, const std::vector<std::uint8_t>& bytes) {
        fs::create_directories(FolderPath());
        ASSERT_EQ(posix::ReplaceFile(FolderPath() + "/" + name, bytes), ErrorCode::Success);
    }

    std::vector<std::uint8_t> FileOfOneStroke() {
        Drag(10, 10, 60, 10);
        RecoveryFile file(Disk, FolderPath(), kNow);
        EXPECT_TRUE(file.Write(Control));
        return Left(file);
    }

    std::vector<std::string> NamesIn(const fs::path& folder) {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder)) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    fs::path Root;
    posix::PosixDisk Disk;
};

TEST_F(InkRecovery, HoldsTheInkWhileItIsBeingWritten) {
    RecoveryFile file(Disk, FolderPath(), kNow);
    for (int i = 0; i < 5; ++i) {
        Drag(10, 10 + 20 * i, 100, 10 + 20 * i);
        ASSERT_TRUE(file.Write(Control));
        EXPECT_EQ(InkLeft(file), Control.GetData()) << i;
    }
    EXPECT_EQ(ReadRecovery(Left(file))->Begun, (SYSTEMTIME{2004, 11, 0, 3, 17, 10, 5, 0}));
}

TEST_F(InkRecovery, HoldsTheStrokeThatIsBeingDrawn) {
    Drag(10, 10, 60, 10);
    RecoveryFile file(Disk, FolderPath(), kNow);
    Control.PenDown(PenEnd::Tip, {{10, 50}, kNoPressure, 0});
    Control.PenMove({{30, 50}, kNoPressure, 10});
    ASSERT_TRUE(file.Write(Control));
    Control.PenMove({{40, 50}, kNoPressure, 20});
    ASSERT_TRUE(file.Write(Control));
    const std::vector<std::uint8_t> left = InkLeft(file);
    Control.PenUp({{40, 50}, kNoPressure, 20});
    EXPECT_EQ(left, Control.GetData());
    ASSERT_TRUE(file.Write(Control));
    EXPECT_EQ(InkLeft(file), Control.GetData());
}

TEST_F(InkRecovery, AStrokeTakenBackIsNotHeld) {
    Drag(10, 10, 60, 10);
    RecoveryFile file(Disk, FolderPath(), kNow);
    Control.PenDown(PenEnd::Tip, {{10, 50}, kNoPressure, 0});
    ASSERT_TRUE(file.Write(Control));
    Control.PenCancel();
    ASSERT_TRUE(file.Write(Control));
    EXPECT_EQ(InkLeft(file), Control.GetData());
}

TEST_F(InkRecovery, FollowsWhateverIsDone) {
    std::mt19937 random(11);
    const auto number = [&](int below) { return std::uniform_int_distribution<int>(0, below - 1)(random); };
    RecoveryFile file(Disk, FolderPath(), kNow);
    for (int i = 0; i < 300; ++i) {
        switch (number(7)) {
        case 0:
            Drag(number(220), number(240), number(220), number(240), PenEnd::Eraser);
            break;
        case 1:
            Send(kInkUndo);
            break;
        case 2:
            Send(kInkRedo);
            break;
        case 3:
            Send(EM_SETSEL, 0, -1);
            Send(WM_COPY);
            Send(number(4) == 0 ? WM_CLEAR : WM_PASTE);
            Write();
            break;
        default:
            Drag(number(220), number(240), number(220), number(240));
            break;
        }
        if (Count() > 200) {
            Send(EM_SETSEL, 0, -1);
            Send(WM_CLEAR);
        }
        if (number(3) == 0) {
            ASSERT_TRUE(file.Write(Control));
            if (Control.Revision() > 0) {
                ASSERT_EQ(InkLeft(file), Control.GetData()) << i;
            }
        }
    }
}

TEST_F(InkRecovery, LongEditingDoesNotLetTheFileGrowForEver) {
    Control.SetData(Encode(WriteByHand(2000, 60)));
    RecoveryFile file(Disk, FolderPath(), kNow);
    std::uintmax_t largest = 0;
    for (int i = 0; i < 120; ++i) {
        Send(EM_SETSEL, 0, -1);
        Send(WM_CUT);
        Send(kInkUndo);
        ASSERT_TRUE(file.Write(Control));
        largest = std::max(largest, fs::file_size(file.Path()));
    }
    EXPECT_LT(largest, 16U << 20);
    EXPECT_EQ(InkLeft(file), Control.GetData());
    EXPECT_THAT(NamesIn(FolderPath()), SizeIs(1));
}

TEST_F(InkRecovery, ACutFileGivesWhatIsWhole) {
    RecoveryFile file(Disk, FolderPath(), kNow);
    std::vector<std::vector<std::uint8_t>> states{{}};
    for (int i = 0; i < 4; ++i) {
        Drag(10, 10 + 20 * i, 100, 10 + 20 * i);
        ASSERT_TRUE(file.Write(Control));
        states.push_back(Control.GetData());
    }
    const std::vector<std::uint8_t> all = Left(file);
    std::size_t at = 0;
    for (std::size_t length = 12; length <= all.size(); ++length) {
        const auto contents = ReadRecovery(std::span(all).first(length));
        ASSERT_TRUE(contents.has_value());
        at += contents->Ink == states[at] ? 0U : 1U;
        ASSERT_LT(at, states.size());
        ASSERT_EQ(contents->Ink, states[at]) << length;
    }
    EXPECT_EQ(at, 4U);
}

TEST_F(InkRecovery, TheFileIsForTheUserAloneAndGoesAtTheEnd) {
    Drag(10, 10, 60, 10);
    {
        RecoveryFile file(Disk, FolderPath(), kNow);
        ASSERT_TRUE(file.Write(Control));

        struct stat status {};

        ASSERT_EQ(stat(file.Path().c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777U, 0600U);
        ASSERT_EQ(stat(FolderPath().c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777U, 0700U);
        EXPECT_THAT(RecoveryFolder(Disk, FolderPath()).Find(), IsEmpty()); // its owner lives
    }
    EXPECT_THAT(NamesIn(FolderPath()), IsEmpty());
}

TEST_F(InkRecovery, ACrashLeavesInkToBeFound) {
    LeaveFile("20041103_171005_1.ink", FileOfOneStroke());
    const RecoveryFolder folder(Disk, FolderPath());
    const std::vector<RecoveredInk> found = folder.Find();
    ASSERT_THAT(found, SizeIs(1));
    EXPECT_EQ(found[0].Data, Control.GetData());
    EXPECT_EQ(found[0].WrittenOn.Year, 2004);
    EXPECT_EQ(found[0].WrittenOn.Day, 3);
    EXPECT_THAT(folder.Find(), SizeIs(1)); // until somebody says what becomes of it
    folder.End(found[0].Name, RecoveredInkEnd::Kept);
    EXPECT_THAT(NamesIn(FolderPath()), IsEmpty());
}

TEST_F(InkRecovery, DeclinedInkStaysAsAMemoFile) {
    LeaveFile("20041103_171005_1.ink", FileOfOneStroke());
    const RecoveryFolder folder(Disk, FolderPath());
    folder.End(u"20041103_171005_1.ink", RecoveredInkEnd::Declined);
    EXPECT_THAT(folder.Find(), IsEmpty());
    std::vector<std::uint8_t> kept;
    ASSERT_EQ(posix::ReadFile(FolderPath() + "/Declined/20041103_171005_1.pwi", 1 << 20, kept), ErrorCode::Success);
    EXPECT_EQ(kept, Control.GetData());
}

TEST_F(InkRecovery, KnowsWhatTheInkBelongsTo) {
    Drag(10, 10, 60, 10);
    const std::vector<std::uint8_t> home{7, 0, 255};
    RecoveryFile file(Disk, FolderPath(), kNow, home);
    ASSERT_TRUE(file.Write(Control));
    EXPECT_EQ(ReadRecovery(Left(file))->Home, home);
    LeaveFile("left.ink", Left(file));
    const std::vector<RecoveredInk> found = RecoveryFolder(Disk, FolderPath()).Find();
    ASSERT_THAT(found, SizeIs(1));
    EXPECT_EQ(found[0].Home, home);
    EXPECT_EQ(found[0].Data, Control.GetData());
}

// As it was written before files said it.
TEST_F(InkRecovery, AFileThatDoesNotSayItIsReadToo) {
    std::vector<std::uint8_t> bytes = FileOfOneStroke();
    bytes[4] = 1;
    bytes.erase(bytes.begin() + 12, bytes.begin() + 14); // the length of nothing
    const std::optional<RecoveryContents> contents = ReadRecovery(bytes);
    ASSERT_TRUE(contents.has_value());
    EXPECT_EQ(contents->Ink, Control.GetData());
    EXPECT_THAT(contents->Home, IsEmpty());
    EXPECT_EQ(contents->Begun.Year, 2004);
    bytes[4] = 3;
    EXPECT_FALSE(ReadRecovery(bytes).has_value()); // of a later program
}

TEST_F(InkRecovery, AnImpossibleTimeIsPutAwayWithItsInk) {
    std::vector<std::uint8_t> bytes = FileOfOneStroke();
    bytes[7] = 13; // the month
    LeaveFile("1.ink", bytes);
    EXPECT_THAT(RecoveryFolder(Disk, FolderPath()).Find(), IsEmpty());
    std::vector<std::uint8_t> kept;
    ASSERT_EQ(posix::ReadFile(FolderPath() + "/Declined/1.pwi", 1 << 20, kept), ErrorCode::Success);
    EXPECT_EQ(kept, Control.GetData());
}

// The disk is full while a file that has grown is written anew.
TEST_F(InkRecovery, AFullDiskLeavesNoSecondFileBehind) {
    Control.SetData(Encode(WriteByHand(2000, 60)));
    {
        RecoveryFile file(Disk, FolderPath(), kNow);
        const auto edit = [&] {
            Send(EM_SETSEL, 0, -1);
            Send(WM_CUT);
            Send(kInkUndo);
        };
        edit();
        ASSERT_TRUE(file.Write(Control));
        const std::string first = file.Path();
        const std::uintmax_t grown = (8U << 20) + 4 * Control.GetData().size();
        for (int i = 0; i < 200 && fs::file_size(first) <= grown; ++i) {
            edit();
            ASSERT_TRUE(file.Write(Control));
            ASSERT_EQ(file.Path(), first);
        }
        edit();
        {
            const FileSizeLimit full(Control.GetData().size() / 2);
            EXPECT_FALSE(file.Write(Control));
        }
        EXPECT_THAT(NamesIn(FolderPath()), SizeIs(1));
        EXPECT_EQ(InkLeft(file), Control.GetData()); // of before: the page is the same
        ASSERT_TRUE(file.Write(Control));            // somebody made room
        EXPECT_THAT(NamesIn(FolderPath()), SizeIs(1));
        EXPECT_LT(fs::file_size(file.Path()), grown);
    }
    EXPECT_THAT(NamesIn(FolderPath()), IsEmpty());
}

TEST_F(InkRecovery, OnlyNamesThatWereFoundAreEnded) {
    LeaveFile("20041103_171005_1.ink", FileOfOneStroke());
    ASSERT_EQ(posix::ReplaceFile((Root / "other.ink").string(), std::vector<std::uint8_t>{1}), ErrorCode::Success);
    RecoveryFolder(Disk, FolderPath()).End(u"../other.ink", RecoveredInkEnd::Kept);
    EXPECT_TRUE(fs::exists(Root / "other.ink"));
}

TEST_F(InkRecovery, WhatCannotBeReadIsPutAwayAndWhatIsEmptyGoes) {
    LeaveFile("1.ink", {'n', 'o'});
    LeaveFile("2.ink", {});
    LeaveFile("3.txt", {'x'});
    EXPECT_THAT(RecoveryFolder(Disk, FolderPath()).Find(), IsEmpty());
    EXPECT_THAT(NamesIn(FolderPath()), ElementsAre("3.txt", "Declined"));
    EXPECT_THAT(NamesIn(FolderPath() + "/Declined"), ElementsAre("1.ink"));
}

TEST_F(InkRecovery, WhereNothingCanBeWrittenItTriesAgain) {
    ASSERT_EQ(posix::ReplaceFile(FolderPath(), std::vector<std::uint8_t>{1}), ErrorCode::Success); // a file in its way
    Drag(10, 10, 60, 10);
    RecoveryFile file(Disk, FolderPath(), kNow);
    EXPECT_FALSE(file.Write(Control));
    fs::remove(FolderPath());
    EXPECT_TRUE(file.Write(Control));
    EXPECT_EQ(InkLeft(file), Control.GetData());
}

} // namespace
} // namespace tavo::ink
