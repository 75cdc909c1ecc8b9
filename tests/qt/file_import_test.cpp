// Calendar files that another start hands over, and the program on the desktop that imports them.
#include "host/outlook/store.h"
#include "host/posix/instance_lock.h"
#include "tests/qt/desktop_program.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>

namespace tavo::qt {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kNoticeTime(200); // a request is noticed, and the file looked at, by then
constexpr std::chrono::seconds kLookTime(8);          // a long one is looked at by then, on a busy machine too
constexpr int kMany = 50000;

class FileImportOnTheDesktop : public testing::Test {
  protected:
    FileImportOnTheDesktop() : RunFolder(Root->Open().RunFolder()) {}

    std::string GivenFile(int entries) {
        std::string path = Root->Open().Path() + "/holidays.ics";
        std::ofstream file(path, std::ios::binary);
        file << "BEGIN:VCALENDAR\r\nVERSION:2.0\r\n";
        for (int number = 0; number < entries; ++number) {
            file << "BEGIN:VEVENT\r\nUID:" << number << "\r\nDTSTART:20041105T080000Z\r\nEND:VEVENT\r\n";
        }
        file << "END:VCALENDAR\r\n";
        return path;
    }

    void Request(const std::string& path) {
        EXPECT_EQ(posix::InstanceLock::RequestImport(RunFolder, {path}), ErrorCode::Success);
    }

    std::shared_ptr<TemporaryRoot> Root = std::make_shared<TemporaryRoot>();
    std::string RunFolder;
};

TEST_F(FileImportOnTheDesktop, TheRunningProgramComesForwardAsksImportsAndUndoTakesItBack) {
    DesktopProgram program(Root);
    program.Do([&] {
        program.Host.Parts().State.SetMinimized(true);
        Request(GivenFile(3));
    });
    program.Pass(kNoticeTime);
    program.Do([&] {
        EXPECT_FALSE(program.Host.Parts().State.Minimized);
        EXPECT_EQ(program.BoxText(), u"Import 3 entries from holidays.ics?");
        EXPECT_EQ(program.State().Store.CountAppointments(), 0);
    });
    program.AnswerBox(IDYES);
    program.Do([&] { EXPECT_EQ(program.BoxText(), u"holidays.ics: 3 new, 0 changed, 0 unchanged, 0 refused."); });
    program.AnswerBox(IDOK);
    ASSERT_TRUE(program.Settle());
    EXPECT_EQ(program.State().Store.CountAppointments(), 3);
    program.Key('Z', kModifierControl);
    ASSERT_TRUE(program.Settle());
    EXPECT_EQ(program.State().Store.CountAppointments(), 0);
}

TEST_F(FileImportOnTheDesktop, AStartAsksAboutItsFile) {
    Request(GivenFile(1));
    DesktopProgram program(Root, [](DesktopProgram& starting) {
        starting.Pass(kNoticeTime);
        starting.Do([&starting] { EXPECT_EQ(starting.BoxText(), u"Import one entry from holidays.ics?"); });
        starting.AnswerBox(IDYES);
        starting.AnswerBox(IDOK);
    });
    EXPECT_EQ(program.State().Store.CountAppointments(), 1);
}

TEST_F(FileImportOnTheDesktop, AFileOfFiftyThousandEntriesHoldsNothingUp) {
    DesktopProgram program(Root);
    const std::string path = GivenFile(kMany);
    Clock::time_point last;
    Clock::duration longest{};
    QTimer heart; // beats as long as the window answers
    QObject::connect(&heart, &QTimer::timeout, &heart, [&] {
        longest = std::max(longest, Clock::now() - last);
        last = Clock::now();
    });
    program.Do([&] {
        last = Clock::now();
        heart.start(10);
        Request(path);
    });
    program.Pass(kLookTime);
    program.Do([&] { EXPECT_EQ(program.BoxText(), u"Import 50000 entries from holidays.ics?"); });
    program.AnswerBox(IDYES);
    program.Pass(kLookTime);
    program.AnswerBox(IDOK);
    ASSERT_TRUE(program.Settle());
    heart.stop();
    EXPECT_EQ(program.State().Store.CountAppointments(), kMany);
    EXPECT_LT(longest, std::chrono::seconds(1));
}

} // namespace
} // namespace tavo::qt
