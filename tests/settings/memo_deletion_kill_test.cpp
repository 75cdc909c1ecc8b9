// Programs that are killed while memos are deleted on the Settings page, and what the next start makes of it.
#include "settings/mass_deletion.h"
#include "tests/outlook/child_process.h"
#include "tests/settings/memo_deletion_fixture.h"
#include "tests/support/host_probe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <functional>
#include <unistd.h>

namespace tavo {

namespace {

using outlook::test::ChildProcess;
using test::MemoDeletion;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kKilled = 128 + SIGKILL;
constexpr std::u16string_view kPlan = u"\\Recovery\\memos.moving";

void Die() {
    kill(getpid(), SIGKILL);
}

class KilledMemoDeletion : public MemoDeletion {
  protected:
    KilledMemoDeletion() { GivenManyMemos(); }

    // What the program does is done in a process of its own, which shares the device's files.
    static void LetAnotherProcess(const std::function<void()>& work) {
        const ChildProcess program([&](auto&) { work(); });
        ASSERT_EQ(program.Wait(), kKilled);
    }

    void LetTheProgramBegin() {
        LetAnotherProcess([this] {
            Start();
            Desk.GivenAlarms(7);
            BeginDeletion({kSettingsAlarms, kSettingsMemos});
            Desk.Device.AdvanceClock(1);
            Desk.Device.Do(Die);
            static_cast<void>(Desk.Settle());
        });
    }

    // Dies where the plan would be taken away.
    void LetTheStepBecomeFinal() {
        LetAnotherProcess([this] {
            test::HostProbe host(Desk.Device.Host());
            host.OwnFiles.BeforeDelete = [](std::u16string_view path) {
                if (path == kPlan) {
                    Die();
                }
            };
            CMessagePump pump(host);
            CProgramState state(pump);
            EXPECT_TRUE(state.Store.OpenStore());
            DeletionClasses classes;
            classes.Memos = true;
            MassDeletion deletion(state, classes);
            while (deletion.DoNext()) {
            }
        });
    }

    bool IsPlanThere() { return Desk.Device.Host().Files().FindFirstFileW(kPlan) != nullptr; }
};

TEST_F(KilledMemoDeletion, InTheMiddleOfItTheNextStartShowsEveryMemoAgain) {
    Desk.WriteFile("no date at all.pwi", "loose");
    LetTheProgramBegin();
    ASSERT_LT(Memos().size(), 1000U);
    ASSERT_GT(Deleted().size(), 1000U);
    Start();
    EXPECT_EQ(Memos().size(), static_cast<std::size_t>(kMany + 1));
    EXPECT_THAT(Deleted(), IsEmpty());
    EXPECT_EQ(Desk.ReadFile("no date at all.pwi"), "loose");
    EXPECT_EQ(Desk.ReadFile("20041103_000000.pwi"), "ink");
    EXPECT_EQ(Desk.Device.See.TextOf(kSettingsMemos), u"All memos ( 2601 item(s) )");
    EXPECT_EQ(Desk.State().Store.CountAppointments(), 7);
    EXPECT_FALSE(IsPlanThere());
    EXPECT_THAT(Desk.Boxes(), IsEmpty());
}

TEST_F(KilledMemoDeletion, WhatLayThereBeforeStaysDeleted) {
    Desk.WriteFile("20041103_000000.pwi", "older");
    ASSERT_EQ(Desk.Device.Host().Files().DeleteFileW(u"\\My Documents\\TavoCalendar\\20041103_000000.pwi"),
              ErrorCode::Success);
    const std::vector<std::string> older = Deleted();
    ASSERT_EQ(older.size(), 1U);
    Desk.WriteFile("20041103_000000.pwi", "newer");
    LetTheProgramBegin();
    Start();
    EXPECT_EQ(Desk.ReadFile("20041103_000000.pwi"), "newer");
    EXPECT_EQ(Deleted(), older);
}

TEST_F(KilledMemoDeletion, WhenTheStepIsFinalTheyStayDeletedAndUndoBringsThem) {
    LetTheStepBecomeFinal();
    ASSERT_THAT(Memos(), IsEmpty());
    ASSERT_TRUE(IsPlanThere());
    Start();
    EXPECT_THAT(Memos(), IsEmpty());
    EXPECT_FALSE(IsPlanThere());
    EXPECT_EQ(UndoText(), u"Undo delete of 2600 memos");
    Desk.Device.Key('Z', kModifierControl);
    Desk.Device.AdvanceClock(10);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Memos().size(), static_cast<std::size_t>(kMany));
    EXPECT_THAT(Desk.Boxes(), IsEmpty());
}

TEST_F(KilledMemoDeletion, InTheMiddleOfItsUndoTheNextUndoBringsTheRestAndMissesNone) {
    LetTheStepBecomeFinal();
    LetAnotherProcess([this] {
        Start();
        Desk.Device.Key('Z', kModifierControl);
        Desk.Device.AdvanceClock(1);
        Desk.Device.Do(Die);
        static_cast<void>(Desk.Settle());
    });
    ASSERT_GT(Memos().size(), 1000U);
    ASSERT_GT(Deleted().size(), 0U);
    Start();
    EXPECT_EQ(UndoText(), u"Undo delete of 2600 memos");
    Desk.Device.Key('Z', kModifierControl);
    Desk.Device.AdvanceClock(10);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Memos().size(), static_cast<std::size_t>(kMany));
    EXPECT_THAT(Deleted(), IsEmpty());
    EXPECT_THAT(Desk.Boxes(), IsEmpty());
}

// What would be planned if somebody else wrote the file.
class PlannedByOthers : public MemoDeletion {
  protected:
    PlannedByOthers() {
        std::filesystem::create_directories(Desk.DataFolder() / "Deleted");
        Desk.WriteFile("Deleted/x (deleted 20041103T101500Z).pwi", "planted");
        std::filesystem::create_directories(Recovery());
    }

    std::filesystem::path Recovery() const { return Desk.DataFolder().parent_path().parent_path() / "Recovery"; }

    void GivenPlan(std::string_view memo, std::string_view folder = "\\My Documents\\TavoCalendar") {
        std::string bytes("\1", 1);
        const auto put = [&](std::string_view text) {
            bytes += {static_cast<char>(text.size()), '\0'};
            for (const char letter : text) {
                bytes += {letter, '\0'};
            }
        };
        put(folder);
        bytes += {'\1', '\0', '\0', '\0'};
        put(memo);
        bytes += {'\0', '\0', '\0', '\0'};
        std::ofstream(Recovery() / "memos.moving", std::ios::binary) << bytes;
    }

    bool IsPlantedStill() const { return Desk.ReadFile("Deleted/x (deleted 20041103T101500Z).pwi").has_value(); }
};

TEST_F(PlannedByOthers, AMemoComesBack) {
    GivenPlan("x.pwi");
    Start();
    EXPECT_EQ(Desk.ReadFile("x.pwi"), "planted");
    EXPECT_FALSE(IsPlantedStill());
}

TEST_F(PlannedByOthers, AMemoThatCannotComeBackIsToldAtTheStartAndTriedAgainAtTheNext) {
    GivenPlan("x.pwi");
    {
        test::HostProbe host(Desk.Device.Host());
        host.OwnFiles.MoveResult = ErrorCode::AccessDenied;
        Desk.Device.AnswerBox(IDOK);
        CTavoApp app(host);
        ASSERT_EQ(app.InitInstance(), CTavoApp::Start::Running);
        ASSERT_TRUE(Desk.Device.Finish(app.MessagePump()));
        app.ExitInstance();
    }
    EXPECT_THAT(Desk.Boxes(), ElementsAre(u"Tavo Calendar|Not all memos could be brought back."));
    EXPECT_TRUE(IsPlantedStill());
    Start();
    EXPECT_EQ(Desk.ReadFile("x.pwi"), "planted");
    EXPECT_EQ(Desk.Boxes().size(), 1U);
}

TEST_F(PlannedByOthers, NothingElseIsMoved) {
    for (const std::string_view memo : {"..\\x.pwi", "x.new", "x", "", "Sub/x.pwi", "x\\..\\x.pwi"}) {
        GivenPlan(memo);
        Start();
        EXPECT_TRUE(IsPlantedStill()) << memo;
        EXPECT_FALSE(std::filesystem::exists(Recovery() / "memos.moving")) << memo;
        Desk.Stop();
    }
    GivenPlan("x.pwi", "\\Windows");
    Start();
    EXPECT_TRUE(IsPlantedStill());
}

TEST_F(PlannedByOthers, BytesThatAreNoPlanGo) {
    for (const std::string_view bytes : {"", "\1", "\2whatever", "\1\1"}) {
        std::ofstream(Recovery() / "memos.moving", std::ios::binary) << bytes;
        Start();
        EXPECT_FALSE(std::filesystem::exists(Recovery() / "memos.moving"));
        EXPECT_TRUE(IsPlantedStill());
        Desk.Stop();
    }
}

// Where the plan cannot be written down, nothing goes.
TEST_F(MemoDeletion, WithoutAPlanNoMemoIsMoved) {
    Start();
    Desk.WriteFile("20041103_101500.pwi", "morning");
    const std::filesystem::path recovery = Desk.DataFolder().parent_path().parent_path() / "Recovery";
    std::filesystem::remove_all(recovery);
    std::ofstream(recovery) << "no folder";
    BeginDeletion({kSettingsMemos});
    Desk.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.ReadFile("20041103_101500.pwi"), "morning");
    EXPECT_THAT(Desk.Boxes(),
                ElementsAre(u"Delete|Are you sure to delete?", u"Tavo Calendar|The items could not be deleted."));
}

} // namespace

} // namespace tavo
