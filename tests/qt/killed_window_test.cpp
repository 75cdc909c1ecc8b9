// The real window, killed while somebody writes in it, and what its next start offers.
#include "res/resource_ids.h"
#include "tests/outlook/child_process.h"
#include "tests/qt/desktop_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <memory>
#include <unistd.h>
#include <vector>

namespace tavo::qt {
namespace {

using testing::IsEmpty;
using testing::Not;

constexpr std::chrono::milliseconds kLaidAside(2500); // what is typed is laid aside each second
constexpr std::chrono::milliseconds kPaintTime(100);  // a dialog is painted by then
constexpr int kSubjectY = 28;
constexpr int kMemoY = 158;

class KilledWindow : public testing::Test {
  protected:
    // A window in a process of its own, on the same device.
    void GivenKilled(const std::function<void(DesktopProgram&)>& script) {
        const outlook::test::ChildProcess process([&](auto&) {
            DesktopProgram program(Root);
            script(program);
            program.Do([] {
                if (!HasFailure()) { // else it ends in another way
                    kill(getpid(), SIGKILL);
                }
            });
            program.Settle();
            _exit(1);
        });
        ASSERT_EQ(process.Wait(), 128 + SIGKILL);
    }

    static void TypeSubject(DesktopProgram& program) {
        program.Key('1', kModifierControl);
        program.Tap(100, kSubjectY);
        program.Do([&program] { ASSERT_TRUE(program.IsShown(kEditSubject)); });
        program.Type(u"Wake up");
    }

    // In the ink editor, closed by its OK, so that the ink waits for the item's.
    static void Draw(DesktopProgram& program) {
        program.Tap(100, kMemoY);
        program.Pass(kPaintTime);
        program.Do([&program] { ASSERT_EQ(program.Caption(), u"Memo"); });
        program.Tap(60, 60);
        program.Tap(90, 80);
        program.Key(VK_RETURN);
        program.Pass(kPaintTime);
        program.Do([&program] { ASSERT_NE(program.Caption(), u"Memo"); });
    }

    static std::vector<std::uint8_t> NoteOf(DesktopProgram& program, Oid oid) {
        ComPtr<IAppointment> item;
        std::vector<std::uint8_t> note;
        EXPECT_EQ(program.State().Store.OutlookApp->GetItemFromOid(oid, item), Status::Ok);
        EXPECT_TRUE(item && item->get_BodyInk(note) == Status::Ok);
        return note;
    }

    static std::u16string SubjectOf(DesktopProgram& program, Oid oid) {
        AppointmentData record;
        EXPECT_EQ(program.State().Store.LoadAppointment(oid, record), oid);
        return record.Subject;
    }

    std::shared_ptr<TemporaryRoot> Root = std::make_shared<TemporaryRoot>();
};

TEST_F(KilledWindow, WhatWasTypedIsGoneOnWith) {
    GivenKilled([](DesktopProgram& program) {
        TypeSubject(program);
        program.Pass(kLaidAside);
    });
    DesktopProgram next(Root, [](DesktopProgram& program) {
        program.Do([&program] { EXPECT_TRUE(program.BoxText().ends_with(u"was not saved. Go on with it?")); });
        program.AnswerBox(IDYES);
        program.TapControl(IDOK);
    });
    EXPECT_EQ(next.State().Store.CountAppointments(), 1);
    EXPECT_EQ(SubjectOf(next, 1), u"Wake up");
}

TEST_F(KilledWindow, WhatWasDrawnForANewItemComesWithWhatWasTyped) {
    GivenKilled([](DesktopProgram& program) {
        TypeSubject(program);
        Draw(program);
    });
    DesktopProgram next(Root, [](DesktopProgram& program) {
        program.AnswerBox(IDYES);
        program.Do([&program] { EXPECT_EQ(program.BoxText(), u""); }); // it was one question
        program.TapControl(IDOK);
    });
    EXPECT_EQ(SubjectOf(next, 1), u"Wake up");
    EXPECT_THAT(NoteOf(next, 1), Not(IsEmpty()));
}

TEST_F(KilledWindow, WhatWasDrawnWithoutAWordIsAskedAboutByItselfAndBecomesAMemo) {
    GivenKilled([](DesktopProgram& program) {
        program.Key('1', kModifierControl);
        Draw(program);
    });
    const DesktopProgram next(Root, [](DesktopProgram& program) {
        program.Do([&program] { EXPECT_TRUE(program.BoxText().ends_with(u"was not saved. Keep it?")); });
        program.AnswerBox(IDYES);
    });
    int memos = 0;
    for (const auto& entry : std::filesystem::directory_iterator(Root->Path() / "My Documents" / "TavoCalendar")) {
        memos += entry.path().extension() == ".pwi" ? 1 : 0;
    }
    EXPECT_EQ(memos, 1);
}

} // namespace
} // namespace tavo::qt
