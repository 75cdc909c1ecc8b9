// The commands on an item: what they say, what they open and what they change.
#include "platform/typing.h"
#include "tests/schedule/schedule_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo {

namespace {

using test::At;
using test::kNoRow;
using test::ScheduleDesk;
using testing::ElementsAre;
using testing::IsEmpty;

class ScheduleCommands : public testing::Test {
  protected:
    ScheduleCommands() { EXPECT_TRUE(Desk.Start()); }

    void Choose(int command) { Desk.Device.ChooseMenu(u"schedule", command); }

    Oid GivenToday(std::u16string_view subject) {
        return Desk.GivenAppointment(subject, At(2004, 11, 3, 9), At(2004, 11, 3, 10));
    }

    ScheduleDesk Desk;
};

TEST_F(ScheduleCommands, WithoutASelectionEachSaysWhatToSelect) {
    const std::pair<int, std::vector<std::u16string>> texts[] = {
        {kCommandView,
         {u"|Select alarm to see", u"|Select holiday to see", u"|Select anniversary to modify",
          u"|Select appointment to see"}},
        {kCommandModify,
         {u"|Select alarm to modify", u"|Select holiday to modify", u"|Select anniversary to modify",
          u"|Select appointment to modify"}},
        {kCommandDelete,
         {u"|Select alarm to delete", u"|Select holiday to delete", u"|Select anniversary to delete",
          u"|Select appointment to delete"}},
    };
    Desk.Show(ItemKind::Alarm);
    for (const auto& [command, expected] : texts) {
        for (const std::u16string& text : expected) {
            Choose(command);
            Desk.Device.AnswerBox(IDOK);
            Desk.Device.Key(VK_RIGHT);
            ASSERT_TRUE(Desk.Settle());
            EXPECT_EQ(Desk.Boxes().back(), text);
        }
    }
    EXPECT_EQ(Desk.Boxes().size(), 12U);
}

TEST_F(ScheduleCommands, DeleteInTheMenuOfARowDeletesIt) {
    const std::vector<Oid> alarms = Desk.GivenAlarms(3);
    Desk.Show(ItemKind::Alarm);
    Desk.ChooseInRow(1, kCommandDelete);
    Desk.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Desk.Boxes(), ElementsAre(u"Delete|Are you sure to delete?"));
    EXPECT_THAT(Desk.Headings(), ElementsAre(u"(12:00) Alarm 1", u"(12:00) Alarm 3"));
    EXPECT_EQ(Desk.SelectedRow(), 1); // the selected index stays
    EXPECT_FALSE(Desk.Exists(alarms[1]));
    EXPECT_THAT(Desk.ListOf(ItemKind::Alarm), ElementsAre(alarms[0], alarms[2]));
}

TEST_F(ScheduleCommands, F2ChangesTheSelectedRow) {
    Desk.GivenAlarms(2);
    Desk.Show(ItemKind::Alarm);
    Desk.Device.Key(VK_F1 + 1); // nothing is selected
    Desk.Device.Do([this] { EXPECT_FALSE(Desk.Device.See.IsDialogOpen()); });
    Desk.Device.Key(VK_DOWN);
    Desk.Device.Key(VK_F1 + 1);
    Desk.Device.Do([this] { EXPECT_EQ(Desk.Device.See.TextOf(kEditSubject), u"Alarm 1"); });
    Desk.Device.Key(VK_ESCAPE);
    ASSERT_TRUE(Desk.Settle());
}

TEST_F(ScheduleCommands, DeletingTheLastRowLeavesNoneSelected) {
    Desk.GivenAlarms(5);
    Desk.Show(ItemKind::Alarm);
    for (int times = 0; times < 5; ++times) {
        Desk.Device.Key(VK_DOWN);
    }
    Choose(kCommandDelete);
    Desk.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.Rows().size(), 4U);
    EXPECT_EQ(Desk.SelectedRow(), kNoRow);
    EXPECT_EQ(Desk.Bar(), (ScrollInfo{0, 0, 0}));
    Choose(kCommandDelete);
    Desk.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.Boxes().back(), u"|Select alarm to delete");
}

TEST_F(ScheduleCommands, ADeletionThatIsDeclinedChangesNothing) {
    const std::vector<Oid> alarms = Desk.GivenAlarms(1);
    Desk.Show(ItemKind::Alarm);
    Desk.ChooseInRow(0, kCommandDelete);
    Desk.Device.AnswerBox(IDNO);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_TRUE(Desk.Exists(alarms[0]));
    EXPECT_EQ(Desk.ListOf(ItemKind::Alarm), alarms);
    EXPECT_EQ(Desk.SelectedRow(), 0);
}

TEST_F(ScheduleCommands, DeletingAnAppointmentFillsItsListAnew) {
    const Oid first = GivenToday(u"First");
    const Oid second = GivenToday(u"Second");
    Desk.Show(ItemKind::Appointment);
    Desk.Device.Tap(20, 80);
    Desk.Device.ChooseTracked(kCommandDelete);
    Desk.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_FALSE(Desk.Exists(first));
    EXPECT_TRUE(Desk.Exists(second));
    EXPECT_THAT(Desk.Headings(), ElementsAre(u"Second"));
    EXPECT_EQ(Desk.SelectedRow(), kNoRow);
}

TEST_F(ScheduleCommands, ARowIsDeletedThoughTheListWasFilledAnewMeanwhile) {
    const std::vector<Oid> alarms = Desk.GivenAlarms(3);
    Desk.Show(ItemKind::Alarm);
    Desk.ChooseInRow(1, kCommandDelete);
    Desk.Device.Do([&] { Desk.Delete(alarms[0]); });
    Desk.Device.ChangeStore();
    Desk.Device.AdvanceClock(500);
    Desk.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_FALSE(Desk.Exists(alarms[1]));
    EXPECT_THAT(Desk.ListOf(ItemKind::Alarm), ElementsAre(alarms[2]));
}

TEST_F(ScheduleCommands, AMenuActsOnItsRowThoughTheListWasFilledAnewMeanwhile) {
    const std::vector<Oid> alarms = Desk.GivenAlarms(3);
    Desk.Show(ItemKind::Alarm);
    Desk.Device.Tap(20, 37 + 51 + 25);
    Desk.Device.Do([&] { Desk.Delete(alarms[0]); });
    Desk.Device.ChangeStore();
    Desk.Device.AdvanceClock(500);
    Desk.Device.ChooseTracked(kCommandDelete);
    Desk.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Desk.ListOf(ItemKind::Alarm), ElementsAre(alarms[2]));
    EXPECT_FALSE(Desk.Exists(alarms[1]));
}

TEST_F(ScheduleCommands, ARowThatIsGoneByThenTakesNoOtherWithIt) {
    const std::vector<Oid> alarms = Desk.GivenAlarms(2);
    Desk.Show(ItemKind::Alarm);
    Desk.ChooseInRow(0, kCommandDelete);
    Desk.Device.Do([&] { Desk.Delete(alarms[0]); });
    Desk.Device.ChangeStore();
    Desk.Device.AdvanceClock(500);
    Desk.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Desk.ListOf(ItemKind::Alarm), ElementsAre(alarms[1]));
    EXPECT_TRUE(Desk.Exists(alarms[1]));
}

TEST_F(ScheduleCommands, ModifyOpensTheEditorAndTheEditedRowComesBackInItsPlace) {
    const std::vector<Oid> alarms = Desk.GivenAlarms(2);
    Desk.Show(ItemKind::Alarm);
    Desk.ChooseInRow(1, kCommandModify);
    Desk.Device.Tap(100, 20);
    Desk.Device.TypeInto(kEditSubject, u"Changed");
    Desk.Device.TapControl(IDOK);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Desk.Headings(), ElementsAre(u"(12:00) Alarm 1", u"(12:00) Changed"));
    EXPECT_EQ(Desk.SelectedRow(), 0);
    EXPECT_EQ(Desk.ListOf(ItemKind::Alarm), alarms);
}

TEST_F(ScheduleCommands, ViewShowsTheItemAndItsButtonsModifyAndDelete) {
    const std::vector<Oid> alarms = Desk.GivenAlarms(1);
    Desk.Show(ItemKind::Alarm);
    Desk.ChooseInRow(0, kCommandView);
    Desk.Device.Do([&] { EXPECT_TRUE(Desk.Device.See.ShowsText(u"Alarm 1")); });
    Desk.Device.PressClose();
    Desk.ChooseInRow(0, kCommandView);
    Desk.Device.Tap(226, 26); // modify
    Desk.Device.Do([&] { EXPECT_EQ(Desk.Device.See.TextOf(kEditSubject), u"Alarm 1"); });
    Desk.Device.TapControl(IDCANCEL);
    Desk.LetNoticesArrive();
    Desk.ChooseInRow(0, kCommandView);
    Desk.Device.Tap(226, 49); // delete
    Desk.Device.AnswerBox(IDNO);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_TRUE(Desk.Exists(alarms[0]));
    Desk.ChooseInRow(0, kCommandView);
    Desk.Device.Tap(226, 49);
    Desk.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Desk.Settle());
    Desk.LetNoticesArrive();
    EXPECT_THAT(Desk.Boxes(), ElementsAre(u"Delete|Are you sure to delete?", u"Delete|Are you sure to delete?"));
    EXPECT_FALSE(Desk.Exists(alarms[0]));
    EXPECT_THAT(Desk.ListOf(ItemKind::Alarm), IsEmpty());
    EXPECT_THAT(Desk.ListTexts(), ElementsAre(u"No registered alarm"));
}

TEST_F(ScheduleCommands, ADeletionThatTheStoreRefusesIsToldAndChangesNothing) {
    const std::vector<Oid> alarms = Desk.GivenAlarms(1);
    const Oid party = GivenToday(u"Party");
    Desk.Show(ItemKind::Alarm);
    const ComPtr<IPOutlookApp> store = Desk.State().Store.OutlookApp;
    ASSERT_EQ(store->Begin(u"Under way"), Status::Ok); // groups do not nest
    Desk.ChooseInRow(0, kCommandDelete);
    Desk.Device.AnswerBox(IDYES);
    Desk.Device.AnswerBox(IDOK);
    Desk.ChooseInRow(0, kCommandView);
    Desk.Device.Tap(226, 49); // delete
    Desk.Device.AnswerBox(IDYES);
    Desk.Device.AnswerBox(IDOK);
    Desk.Device.Key(VK_LEFT);
    Desk.Device.Tap(20, 80);
    Desk.Device.ChooseTracked(kCommandDelete);
    Desk.Device.AnswerBox(IDYES);
    Desk.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Desk.Settle());
    ASSERT_EQ(store->Abandon(), Status::Ok);
    const std::u16string question = u"Delete|Are you sure to delete?";
    const std::u16string refusal = u"Tavo Calendar|The item could not be deleted.";
    EXPECT_THAT(Desk.Boxes(), ElementsAre(question, refusal, question, refusal, question, refusal));
    EXPECT_EQ(Desk.ListOf(ItemKind::Alarm), alarms);
    EXPECT_TRUE(Desk.Exists(alarms[0]) && Desk.Exists(party));
}

TEST_F(ScheduleCommands, PauseChangesNothing) {
    const std::vector<Oid> alarms = Desk.GivenAlarms(1);
    Desk.Show(ItemKind::Alarm);
    Desk.Device.Key(VK_DOWN);
    const std::size_t windows = Desk.Boxes().size();
    Choose(kCommandPause);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.Boxes().size(), windows);
    EXPECT_FALSE(Desk.Device.See.IsDialogOpen());
    EXPECT_TRUE(Desk.Exists(alarms[0]));
    EXPECT_EQ(Desk.SelectedRow(), 0);
    EXPECT_EQ(Desk.ListOf(ItemKind::Alarm), alarms);
}

TEST_F(ScheduleCommands, CopyingTagsTheAppointmentAndShowsItInTheList) {
    const std::vector<Oid> alarms = Desk.GivenAlarms(1);
    const Oid oid = GivenToday(u"Party");
    const std::pair<int, ItemKind> copies[] = {{kCommandCopyToAlarm, ItemKind::Alarm},
                                               {kCommandCopyToHoliday, ItemKind::Holiday},
                                               {kCommandCopyToAnniversary, ItemKind::Anniversary}};
    Desk.Show(ItemKind::Appointment);
    for (const auto& [command, kind] : copies) {
        Desk.Device.Tap(20, 80);
        Desk.Device.ChooseTracked(command);
        ASSERT_TRUE(Desk.Settle());
        EXPECT_EQ(Desk.ListOf(kind).back(), oid);
    }
    EXPECT_EQ(Desk.State().Store.CountAppointments(), 2); // nothing was copied in the store
    Desk.Device.Key(VK_RIGHT);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Desk.Headings(), ElementsAre(u"(12:00) Alarm 1", u"(09:00) Party"));
    EXPECT_EQ(Desk.SelectedRow(), 0);
}

TEST_F(ScheduleCommands, EnterDeleteAndTheMenuKeyWorkOnTheSelectedRow) {
    const std::vector<Oid> alarms = Desk.GivenAlarms(2);
    Desk.Show(ItemKind::Alarm);
    Desk.Device.Key(VK_RETURN); // nothing is selected
    Desk.Device.Key(VK_DELETE);
    Desk.Device.Key(VK_APPS);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Desk.Boxes(), IsEmpty());
    EXPECT_FALSE(Desk.Device.See.IsDialogOpen());
    Desk.Device.Key(VK_DOWN);
    Desk.Device.Key(VK_DOWN);
    Desk.Device.Key(VK_RETURN);
    Desk.Device.Do([&] {
        EXPECT_TRUE(Desk.Device.See.IsDialogOpen());
        EXPECT_TRUE(Desk.Device.See.ShowsText(u"Alarm 2"));
    });
    Desk.Device.Key(VK_ESCAPE);
    Desk.Device.Key(VK_APPS);
    Desk.Device.Do([&] {
        EXPECT_THAT(Desk.OpenMenu(), ElementsAre(u"View...", u"Modify...", u"Delete..."));
        // The second row's middle, as a tap there would open it.
        EXPECT_EQ(Desk.Device.Host().State.Menus.Tracked->At, (Point{115, 51 + 25 + 66}));
    });
    Desk.Device.ChooseTracked(0);
    Desk.Device.Key(VK_DELETE);
    Desk.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_FALSE(Desk.Exists(alarms[1]));
    EXPECT_TRUE(Desk.Exists(alarms[0]));
}

TEST_F(ScheduleCommands, ATappedRowHasTheKeysAgain) {
    GivenToday(u"Party");
    Desk.Show(ItemKind::Appointment);
    Desk.Device.TapControl(kSchedulePeriodStart);
    Desk.Device.Tap(20, 80);
    Desk.Device.ChooseTracked(0);
    Desk.Device.Key(VK_DELETE);
    Desk.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Desk.Boxes(), ElementsAre(u"Delete|Are you sure to delete?"));
}

TEST_F(ScheduleCommands, CopyTakesTheSelectedAppointmentWhateverKindIsShown) {
    const Oid oid = GivenToday(u"Party");
    Desk.Show(ItemKind::Appointment);
    Desk.Device.Key(VK_DOWN);
    Desk.Device.Key(VK_RIGHT);
    Choose(kCommandCopyToAnniversary);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Desk.ListOf(ItemKind::Anniversary), ElementsAre(oid));
}

TEST_F(ScheduleCommands, WithNoAppointmentSelectedCopyIsGreyInTheMenuBar) {
    const std::vector<Oid> alarms = Desk.GivenAlarms(1);
    Desk.Show(ItemKind::Alarm);
    Desk.Device.Key(VK_DOWN);
    Desk.Device.OpenMenu(u"schedule");
    Desk.Device.Do([&] {
        for (const MenuItem& item : Desk.Device.See.MenuBar()->Menus.front().Children) {
            const bool copies = item.Text.starts_with(u"Copy");
            EXPECT_TRUE(item.IsSeparator || item.Enabled != copies);
        }
    });
    Desk.Device.Key(VK_ESCAPE);
    ASSERT_TRUE(Desk.Settle());
}

TEST_F(ScheduleCommands, AnAppointmentThatIsGoneIsNotCopied) {
    const Oid oid = GivenToday(u"Party");
    Desk.Show(ItemKind::Appointment);
    Desk.Device.Key(VK_DOWN);
    Desk.Device.Do([&] { Desk.Delete(oid); });
    Choose(kCommandCopyToAlarm);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Desk.ListOf(ItemKind::Alarm), IsEmpty());
}

TEST_F(ScheduleCommands, ADeletedItemLeavesTheListWithTheNextFill) {
    const std::vector<Oid> alarms = Desk.GivenAlarms(3);
    Desk.Show(ItemKind::Alarm);
    Desk.Delete(alarms[1]);
    Desk.Device.ChangeStore();
    Desk.LetNoticesArrive();
    EXPECT_THAT(Desk.Headings(), ElementsAre(u"(12:00) Alarm 1", u"(12:00) Alarm 3"));
    EXPECT_THAT(Desk.ListOf(ItemKind::Alarm), ElementsAre(alarms[0], alarms[2]));
}

TEST_F(ScheduleCommands, AHiddenPageForgetsWhatIsGone) {
    const std::vector<Oid> alarms = Desk.GivenAlarms(3);
    Desk.Show(ItemKind::Alarm);
    Desk.ShowPage(PageNumber::Clock);
    Desk.Delete(alarms[1]);
    Desk.Device.ChangeStore();
    Desk.LetNoticesArrive();
    EXPECT_THAT(Desk.ListOf(ItemKind::Alarm), ElementsAre(alarms[0], alarms[2]));
}

TEST_F(ScheduleCommands, OfTenThousandTagsTheHalfThatIsGoneIsForgotten) {
    const ComPtr<IPOutlookApp> outlook = Desk.Connect();
    ASSERT_EQ(outlook->Begin(u"Many"), Status::Ok);
    std::vector<Oid> oids;
    for (int number = 0; number < 10000; ++number) {
        Oid oid = 1000000 + number; // never given
        ComPtr<IAppointment> item;
        if (number % 2 == 0) {
            ASSERT_EQ(outlook->CreateItem(kItemAppointment, item), Status::Ok);
            ASSERT_EQ(item->put_Start(38294), Status::Ok);
            ASSERT_EQ(item->Save(), Status::Ok);
            ASSERT_EQ(item->get_Oid(oid), Status::Ok);
        }
        oids.push_back(oid);
    }
    ASSERT_EQ(outlook->End(), Status::Ok);
    Desk.State().Categories.AlarmList.Replace(oids);
    Desk.Show(ItemKind::Alarm);
    EXPECT_EQ(Desk.ListOf(ItemKind::Alarm).size(), 5000U);
    EXPECT_EQ(Desk.Bar().Maximum, 4996);
}

TEST_F(ScheduleCommands, ASubjectWithLineBreaksAndTabsIsShownInOneLine) {
    Desk.Tag(ItemKind::Holiday, GivenToday(u"A\tb\r\nc"));
    Desk.Tag(ItemKind::Holiday, GivenToday(std::u16string(4096, u'x')));
    Desk.Show(ItemKind::Holiday);
    const std::vector<std::u16string> texts = Desk.ListTexts();
    ASSERT_EQ(texts.size(), 6U);
    EXPECT_EQ(texts[0], u"A b  c");
    EXPECT_TRUE(texts[3].starts_with(u"xxx") && texts[3].ends_with(u"x..."));
    EXPECT_LT(texts[3].size(), 30U);
}

} // namespace

} // namespace tavo
