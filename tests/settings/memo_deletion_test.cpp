// Memos that go with a mass deletion on the Settings page, and how they come back.
#include "memo/memo_undo.h"
#include "settings/mass_deletion.h"
#include "store/page_number.h"
#include "tests/settings/memo_deletion_fixture.h"
#include "tests/support/host_probe.h"
#include "tests/support/outlook_probe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace tavo {

namespace {

using test::At;
using test::LongMemoDeletion;
using test::MemoDeletion;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(MemoDeletion, OneUndoBringsThemBackWithTheItems) {
    Start();
    Desk.WriteFile("20041103_101500.pwi", "morning");
    Desk.WriteFile("no date at all.pwi", "loose");
    const std::vector<Oid> alarms = Desk.GivenAlarms(2);
    Delete({kSettingsAlarms, kSettingsMemos});
    ASSERT_THAT(Memos(), IsEmpty());
    ASSERT_EQ(Deleted().size(), 2U);
    EXPECT_EQ(UndoText(), u"Undo delete of 2 alarms, 2 memos");
    Undo();
    EXPECT_THAT(Memos(), ElementsAre("20041103_101500.pwi", "no date at all.pwi"));
    EXPECT_EQ(Desk.ReadFile("20041103_101500.pwi"), "morning");
    EXPECT_EQ(Desk.ReadFile("no date at all.pwi"), "loose");
    EXPECT_THAT(Deleted(), IsEmpty());
    EXPECT_EQ(Desk.ListOf(ItemKind::Alarm), alarms);
    EXPECT_EQ(Desk.Device.See.TextOf(kSettingsMemos), u"All memos ( 2 item(s) )");
}

TEST_F(MemoDeletion, OfMemosAloneCanBeUndoneToo) {
    Start();
    Desk.WriteFile("20041103_101500.pwi", "morning");
    Delete({kSettingsMemos});
    EXPECT_EQ(UndoText(), u"Undo delete of 1 memo");
    Undo();
    EXPECT_EQ(Desk.ReadFile("20041103_101500.pwi"), "morning");
    EXPECT_THAT(Desk.Boxes(), ElementsAre(u"Delete|Are you sure to delete?"));
}

TEST_F(MemoDeletion, TheUndoIsStillOnOfferAfterTheNextStart) {
    Start();
    Desk.WriteFile("20041103_101500.pwi", "morning");
    Delete({kSettingsMemos});
    Desk.Stop();
    ASSERT_TRUE(Desk.Start());
    Undo();
    EXPECT_EQ(Desk.ReadFile("20041103_101500.pwi"), "morning");
}

TEST_F(MemoDeletion, AMemoThatTookThePlaceMeanwhileStaysAndTheOldOneComesBeside) {
    Start();
    Desk.WriteFile("20041103_101500.pwi", "old");
    Delete({kSettingsMemos});
    Desk.WriteFile("20041103_101500.pwi", "new");
    Undo();
    EXPECT_EQ(Desk.ReadFile("20041103_101500.pwi"), "new");
    EXPECT_EQ(Desk.ReadFile("20041103_101500 2.pwi"), "old");
}

TEST_F(MemoDeletion, AMemoThatNobodyHasAnyMoreIsToldAndTheRestComesBack) {
    Start();
    Desk.WriteFile("20041103_101500.pwi", "one");
    Desk.WriteFile("20041104_101500.pwi", "two");
    const std::vector<Oid> alarms = Desk.GivenAlarms(1);
    Delete({kSettingsAlarms, kSettingsMemos});
    std::filesystem::remove(Desk.DataFolder() / "Deleted" / Deleted().front());
    Desk.Device.Key('Z', kModifierControl);
    Desk.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Memos(), ElementsAre("20041104_101500.pwi"));
    EXPECT_EQ(Desk.ListOf(ItemKind::Alarm), alarms);
    EXPECT_EQ(Desk.Boxes().back(), u"Tavo Calendar|Not all memos could be brought back.");
}

TEST_F(MemoDeletion, AStoreThatTakesNoChangesLeavesTheMemosToo) {
    Start();
    Desk.WriteFile("20041103_101500.pwi", "morning");
    const ComPtr<IPOutlookApp> store = Desk.State().Store.OutlookApp;
    ASSERT_EQ(store->Begin(u"Under way"), Status::Ok); // groups do not nest
    BeginDeletion({kSettingsAlarms, kSettingsMemos});
    Desk.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Desk.Settle());
    ASSERT_EQ(store->Abandon(), Status::Ok);
    EXPECT_EQ(Desk.ReadFile("20041103_101500.pwi"), "morning");
    EXPECT_THAT(Deleted(), IsEmpty());
    EXPECT_EQ(Desk.Boxes().back(), u"Tavo Calendar|The items could not be deleted.");
}

TEST_F(MemoDeletion, ShowsTheWaitCursorAndIsBusyUntilItEnds) {
    Start();
    Desk.WriteFile("20041103_101500.pwi", "morning");
    Desk.Device.Host().Seen.Cursors.clear();
    Delete({kSettingsMemos});
    EXPECT_THAT(Desk.Device.Host().Seen.Cursors, ElementsAre(Cursor::Wait, Cursor::Arrow));
    EXPECT_FALSE(Desk.State().Busy);
}

TEST_F(MemoDeletion, TellsThePagesOfTheChange) {
    Start();
    Desk.WriteFile("20041103_101500.pwi", "morning");
    Desk.ShowPage(PageNumber::Calendar);
    ASSERT_EQ(Desk.CellName(0, 3), u"2004-11-03: memo");
    Desk.ShowPage(PageNumber::Settings);
    Delete({kSettingsMemos});
    Desk.ShowPage(PageNumber::Calendar);
    Desk.LetNoticesArrive();
    EXPECT_EQ(Desk.CellName(0, 3), u"2004-11-03");
}

TEST_F(LongMemoDeletion, CancelledWhileMemosGoItLeavesEverything) {
    BeginDeletion({kSettingsAlarms, kSettingsMemos});
    std::size_t left = 0;
    std::u16string shown;
    Desk.Device.AdvanceClock(1);
    Desk.Device.Do([&] {
        left = Memos().size();
        shown = Desk.Device.See.Items().at(0).Name;
    });
    Desk.Device.TapControl(IDCANCEL);
    Desk.Device.AdvanceClock(10); // they come back in as many slices
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(shown, u"2500 of 2607 deleted");
    EXPECT_EQ(left, 2607U - 2500U);
    ExpectEverythingThere();
    EXPECT_EQ(Desk.Device.See.TextOf(kSettingsMemos), u"All memos ( 2600 item(s) )");
    EXPECT_FALSE(Desk.State().Busy);
}

TEST_F(MemoDeletion, CancelledItBringsNoMemoBackThatIsDeletedLater) {
    Start();
    GivenManyMemos();
    BeginDeletion({kSettingsMemos});
    Desk.Device.AdvanceClock(1);
    Desk.Device.TapControl(IDCANCEL);
    Desk.Device.AdvanceClock(10);
    ASSERT_TRUE(Desk.Settle());
    ASSERT_THAT(Deleted(), IsEmpty());
    ASSERT_EQ(Desk.Device.Host().Files().DeleteFileW(u"\\My Documents\\TavoCalendar\\20041103_000000.pwi"),
              ErrorCode::Success);
    Desk.Stop();
    Start();
    EXPECT_FALSE(Desk.ReadFile("20041103_000000.pwi"));
    EXPECT_EQ(Deleted().size(), 1U);
}

TEST_F(LongMemoDeletion, CancelledItTellsOfAMemoThatCannotComeBackAndKeepsOneWhosePlaceIsTaken) {
    BeginDeletion({kSettingsMemos});
    Desk.Device.AdvanceClock(1);
    std::string taken;
    Desk.Device.Do([&] {
        const std::vector<std::string> away = Deleted();
        ASSERT_GT(away.size(), 2U);
        taken = away.front().substr(0, away.front().find(" (deleted"));
        Desk.WriteFile(taken + ".pwi", "new");
        std::filesystem::remove(Desk.DataFolder() / "Deleted" / away.back());
    });
    Desk.Device.TapControl(IDCANCEL);
    Desk.Device.AdvanceClock(10);
    Desk.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.ReadFile(taken + ".pwi"), "new");
    EXPECT_EQ(Desk.ReadFile(taken + " 2.pwi"), "ink");
    EXPECT_THAT(Deleted(), IsEmpty());
    EXPECT_EQ(Memos().size(), static_cast<std::size_t>(kMany)); // one more, one less
    EXPECT_EQ(Desk.Boxes().back(), u"Tavo Calendar|Not all memos could be brought back.");
}

TEST_F(LongMemoDeletion, QuittingMeanwhileLeavesEverything) {
    BeginDeletion({kSettingsAlarms, kSettingsMemos});
    Desk.Device.AdvanceClock(1);
    Desk.Device.Quit();
    EXPECT_FALSE(Desk.Settle());
    ExpectEverythingThere();
}

TEST_F(LongMemoDeletion, AnUndoThatIsCancelledLeavesThemDeletedAndOnOffer) {
    BeginDeletion({kSettingsAlarms, kSettingsMemos});
    Desk.Device.AdvanceClock(10);
    ASSERT_TRUE(Desk.Settle());
    ASSERT_THAT(Memos(), IsEmpty());
    Desk.Device.Key('Z', kModifierControl);
    Desk.Device.AdvanceClock(1);
    Desk.Device.TapControl(IDCANCEL);
    Desk.Device.AdvanceClock(10);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Memos(), IsEmpty());
    EXPECT_EQ(Deleted().size(), static_cast<std::size_t>(kMany));
    EXPECT_THAT(Desk.ListOf(ItemKind::Alarm), IsEmpty());
    Desk.Device.Key('Z', kModifierControl);
    Desk.Device.AdvanceClock(10);
    ASSERT_TRUE(Desk.Settle());
    Desk.LetNoticesArrive();
    ExpectEverythingThere();
}

TEST_F(LongMemoDeletion, NobodyElseSeesWhatIsNotFinal) {
    const std::u16string key = u"\\ControlPanel\\Notifications\\Reminders";
    const auto remind = [](const std::u16string& sound) {
        return [sound](IAppointment& item) {
            EXPECT_EQ(item.put_ReminderSet(true), Status::Ok);
            EXPECT_EQ(item.put_ReminderSoundFile(sound), Status::Ok);
        };
    };
    Desk.Tag(ItemKind::Holiday,
             Desk.GivenAppointment(u"First", At(2004, 11, 3, 18), At(2004, 11, 3, 19), remind(u"first.wav")));
    Desk.GivenAppointment(u"Second", At(2004, 11, 3, 20), At(2004, 11, 3, 21), remind(u"second.wav"));
    const ComPtr<IPOutlookApp> companion = Desk.Connect();
    std::int32_t meanwhile = 0;
    std::optional<std::u16string> sound;
    BeginDeletion({kSettingsHolidays, kSettingsMemos});
    Desk.Device.AdvanceClock(1);
    Desk.Device.GoOnReminding(); // asks for the sound of the next reminder
    Desk.Device.Do([&] {
        EXPECT_TRUE(Desk.State().Busy);
        sound = Desk.Device.Host().RegistryCalls.TextValue(key, u"Wave");
        ComPtr<IFolder> folder;
        ComPtr<IPOutlookItemCollection> items;
        EXPECT_EQ(companion->GetDefaultFolder(kFolderCalendar, folder), Status::Ok);
        EXPECT_EQ(folder->get_Items(items), Status::Ok);
        EXPECT_EQ(items->get_Count(meanwhile), Status::Ok);
    });
    Desk.Device.TapControl(IDCANCEL);
    Desk.Device.AdvanceClock(10);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_NE(sound, u"second.wav");
    EXPECT_EQ(meanwhile, 9);
    Desk.Device.GoOnReminding();
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.Device.Host().RegistryCalls.TextValue(key, u"Wave"), u"first.wav");
}

// A store that cannot keep what was done.
TEST(FailingMassDeletion, BringsTheMemosBackWhenTheStoreCannotKeepTheStep) {
    test::TestDevice device;
    test::HostProbe host(device.Host);
    CMessagePump pump(host);
    CProgramState state(pump);
    test::OutlookProbe probe(device.Connect());
    probe.EndResult = Status::DiskFull;
    state.Store.OutlookApp = probe.Share();
    const std::vector<std::uint8_t> ink{1, 2, 3};
    device.GivenFile(u"\\My Documents\\TavoCalendar\\20041103_101500.pwi", ink);
    {
        DeletionClasses classes;
        classes.Memos = true;
        MassDeletion deletion(state, classes);
        while (deletion.DoNext()) {
        }
        EXPECT_TRUE(deletion.IsRefused());
        EXPECT_EQ(deletion.Done(), 0);
    }
    EXPECT_EQ(device.FileBytes(u"\\My Documents\\TavoCalendar\\20041103_101500.pwi"), ink);
    state.Store.OutlookApp.Reset();
}

} // namespace

} // namespace tavo
