// The Settings page: its counted boxes, and the deletion of whole classes.
#include "store/page_number.h"
#include "tests/schedule/schedule_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace tavo {

namespace {

using test::At;
using test::ScheduleDesk;
using testing::ElementsAre;
using testing::IsEmpty;

class SettingsPage : public testing::Test {
  protected:
    SettingsPage() { EXPECT_TRUE(Desk.Start()); }

    Oid Given(std::u16string_view subject) {
        return Desk.GivenAppointment(subject, At(2004, 11, 3, 9), At(2004, 11, 3, 10));
    }

    Oid GivenTagged(ItemKind kind, std::u16string_view subject) {
        const Oid oid = Given(subject);
        Desk.Tag(kind, oid);
        return oid;
    }

    void GivenOneOfEach() {
        Alarm = GivenTagged(ItemKind::Alarm, u"Alarm");
        Holiday = GivenTagged(ItemKind::Holiday, u"Holiday");
        Anniversary = GivenTagged(ItemKind::Anniversary, u"Anniversary");
        Plain = Given(u"Plain");
        Desk.WriteFile("20041103_101500.pwi", "ink");
        Desk.WriteFile("notes.txt", "no memo");
    }

    void Open() { Desk.ShowPage(PageNumber::Settings); }

    void Delete(std::initializer_list<int> boxes, int answer = IDYES) {
        for (const int box : boxes) {
            Desk.Device.TapControl(box);
        }
        Desk.Device.TapControl(kSettingsDelete);
        Desk.Device.AnswerBox(answer);
        EXPECT_TRUE(Desk.Settle());
    }

    std::vector<std::u16string> Captions() {
        std::vector<std::u16string> texts;
        for (int box = kSettingsAlarms; box <= kSettingsMemos; ++box) {
            texts.push_back(Desk.Device.See.TextOf(box));
        }
        return texts;
    }

    void Undo() {
        Desk.Device.Key('Z', kModifierControl);
        EXPECT_TRUE(Desk.Settle());
        Desk.LetNoticesArrive();
    }

    ScheduleDesk Desk;
    Oid Alarm = 0;
    Oid Holiday = 0;
    Oid Anniversary = 0;
    Oid Plain = 0;
};

TEST_F(SettingsPage, CountsEachClassWhenItIsShown) {
    GivenOneOfEach();
    GivenTagged(ItemKind::Alarm, u"Another");
    Open();
    EXPECT_THAT(Captions(), ElementsAre(u"All alarms ( 2 item(s) )", u"All holidays ( 1 item(s) )",
                                        u"All anniversaries ( 1 item(s) )", u"All appointments ( 1 item(s) )",
                                        u"All memos ( 1 item(s) )"));
}

TEST_F(SettingsPage, AnEmptyStoreCountsNothing) {
    Open();
    EXPECT_THAT(Captions(), ElementsAre(u"All alarms ( 0 item(s) )", u"All holidays ( 0 item(s) )",
                                        u"All anniversaries ( 0 item(s) )", u"All appointments ( 0 item(s) )",
                                        u"All memos ( 0 item(s) )"));
}

TEST_F(SettingsPage, ATagOfAnItemThatIsGoneMakesTheAppointmentsOneFewer) {
    const Oid gone = GivenTagged(ItemKind::Alarm, u"Gone");
    Given(u"One");
    Given(u"Two");
    Desk.Delete(gone);
    Open();
    EXPECT_EQ(Captions()[3], u"All appointments ( 1 item(s) )");
}

TEST_F(SettingsPage, TheAppointmentsMayBeFewerThanNone) {
    Desk.Tag(ItemKind::Holiday, 4711);
    Desk.Tag(ItemKind::Holiday, 4712);
    Open();
    EXPECT_EQ(Captions()[3], u"All appointments ( -2 item(s) )");
}

TEST_F(SettingsPage, AllFiveBoxesEmptyTheDevice) {
    GivenOneOfEach();
    Open();
    Delete({kSettingsAlarms, kSettingsHolidays, kSettingsAnniversaries, kSettingsAppointments, kSettingsMemos});
    EXPECT_THAT(Desk.Boxes(), ElementsAre(u"Delete|Are you sure to delete?"));
    EXPECT_EQ(Desk.State().Store.CountAppointments(), 0);
    EXPECT_THAT(Desk.ListOf(ItemKind::Alarm), IsEmpty());
    EXPECT_THAT(Desk.ListOf(ItemKind::Holiday), IsEmpty());
    EXPECT_THAT(Desk.ListOf(ItemKind::Anniversary), IsEmpty());
    EXPECT_FALSE(Desk.ReadFile("20041103_101500.pwi"));
    EXPECT_TRUE(Desk.ReadFile("notes.txt"));
    EXPECT_THAT(Captions(), ElementsAre(u"All alarms ( 0 item(s) )", u"All holidays ( 0 item(s) )",
                                        u"All anniversaries ( 0 item(s) )", u"All appointments ( 0 item(s) )",
                                        u"All memos ( 0 item(s) )"));
    for (int box = kSettingsAlarms; box <= kSettingsMemos; ++box) {
        EXPECT_FALSE(Desk.Device.See.IsChecked(box)) << box;
    }
    EXPECT_FALSE(Desk.State().Busy);
}

TEST_F(SettingsPage, DeletedMemosLieInTheDeletedFolder) {
    Desk.WriteFile("20041103_101500.pwi", "ink");
    Open();
    Delete({kSettingsMemos});
    int kept = 0;
    for (const auto& entry : std::filesystem::directory_iterator(Desk.DataFolder() / "Deleted")) {
        kept += entry.path().extension() == ".pwi" ? 1 : 0;
    }
    EXPECT_EQ(kept, 1);
}

TEST_F(SettingsPage, AllAppointmentsSparesWhatIsTagged) {
    GivenOneOfEach();
    const Oid series = Desk.GivenSeries(u"Series", At(2004, 11, 1, 9), At(2004, 11, 1, 10), kRecursDaily);
    Open();
    Delete({kSettingsAppointments});
    EXPECT_TRUE(Desk.Exists(Alarm) && Desk.Exists(Holiday) && Desk.Exists(Anniversary));
    EXPECT_FALSE(Desk.Exists(Plain));
    EXPECT_FALSE(Desk.Exists(series));
    EXPECT_TRUE(Desk.ReadFile("20041103_101500.pwi"));
}

TEST_F(SettingsPage, EachListGoesByItself) {
    const std::pair<int, ItemKind> classes[] = {{kSettingsAlarms, ItemKind::Alarm},
                                                {kSettingsHolidays, ItemKind::Holiday},
                                                {kSettingsAnniversaries, ItemKind::Anniversary}};
    for (const auto& [box, kind] : classes) {
        GivenOneOfEach();
        const std::int32_t before = Desk.State().Store.CountAppointments();
        const std::size_t tagged = Desk.ListOf(kind).size();
        Open();
        Delete({box});
        EXPECT_THAT(Desk.ListOf(kind), IsEmpty());
        EXPECT_EQ(Desk.State().Store.CountAppointments(), before - static_cast<std::int32_t>(tagged));
        Desk.ShowPage(PageNumber::Clock);
    }
}

TEST_F(SettingsPage, NoAsAnAnswerChangesNothing) {
    GivenOneOfEach();
    Open();
    Delete({kSettingsAlarms, kSettingsMemos}, IDNO);
    EXPECT_TRUE(Desk.Exists(Alarm));
    EXPECT_TRUE(Desk.ReadFile("20041103_101500.pwi"));
    EXPECT_TRUE(Desk.Device.See.IsChecked(kSettingsAlarms));
    EXPECT_THAT(Desk.ListOf(ItemKind::Alarm), ElementsAre(Alarm));
    EXPECT_EQ(Desk.State().Store.CountAppointments(), 4);
    EXPECT_THAT(Captions(), ElementsAre(u"All alarms ( 1 item(s) )", u"All holidays ( 1 item(s) )",
                                        u"All anniversaries ( 1 item(s) )", u"All appointments ( 1 item(s) )",
                                        u"All memos ( 1 item(s) )"));
}

TEST_F(SettingsPage, WithNoBoxCheckedItStillCountsAnew) {
    Open();
    Given(u"Made by another program");
    Delete({});
    EXPECT_EQ(Captions()[3], u"All appointments ( 1 item(s) )");
}

TEST_F(SettingsPage, AListWithTagsOfGoneItemsIsEmptiedAllTheSame) {
    Desk.Tag(ItemKind::Alarm, 4711);
    const Oid alarm = GivenTagged(ItemKind::Alarm, u"There");
    Open();
    Delete({kSettingsAlarms});
    EXPECT_THAT(Desk.ListOf(ItemKind::Alarm), IsEmpty());
    EXPECT_FALSE(Desk.Exists(alarm));
}

TEST_F(SettingsPage, OneUndoBringsAllClassesBackInTheOrderOfTheirLists) {
    const std::vector<Oid> alarms = Desk.GivenAlarms(14);
    GivenOneOfEach();
    const std::vector<Oid> alarmList = Desk.ListOf(ItemKind::Alarm);
    Open();
    Delete({kSettingsAlarms, kSettingsHolidays, kSettingsAnniversaries, kSettingsAppointments});
    ASSERT_EQ(Desk.State().Store.CountAppointments(), 0);
    Desk.Device.OpenMenu(u"Tools");
    std::u16string text;
    Desk.Device.Do([&] { text = Desk.Device.See.MenuBar()->Menus.back().Children.front().Text; });
    Desk.Device.Key(VK_ESCAPE);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(text, u"Undo delete of 15 alarms, 1 anniversary, 1 holiday, 1 appointment");
    Undo();
    EXPECT_EQ(Desk.ListOf(ItemKind::Alarm), alarmList);
    EXPECT_THAT(Desk.ListOf(ItemKind::Holiday), ElementsAre(Holiday));
    EXPECT_THAT(Desk.ListOf(ItemKind::Anniversary), ElementsAre(Anniversary));
    EXPECT_TRUE(Desk.Exists(Plain));
    EXPECT_EQ(Captions()[0], u"All alarms ( 15 item(s) )");
}

TEST_F(SettingsPage, ADeletionThatTheStoreRefusesIsToldAndChangesNothing) {
    GivenOneOfEach();
    Open();
    const ComPtr<IPOutlookApp> store = Desk.State().Store.OutlookApp;
    ASSERT_EQ(store->Begin(u"Under way"), Status::Ok); // groups do not nest
    Desk.Device.TapControl(kSettingsAlarms);
    Desk.Device.TapControl(kSettingsAppointments);
    Desk.Device.TapControl(kSettingsDelete);
    Desk.Device.AnswerBox(IDYES);
    Desk.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Desk.Settle());
    ASSERT_EQ(store->Abandon(), Status::Ok);
    EXPECT_THAT(Desk.Boxes(),
                ElementsAre(u"Delete|Are you sure to delete?", u"Tavo Calendar|The items could not be deleted."));
    EXPECT_TRUE(Desk.Exists(Alarm) && Desk.Exists(Plain));
    EXPECT_THAT(Desk.ListOf(ItemKind::Alarm), ElementsAre(Alarm));
}

// Enough of them that the deletion is shown while it goes on.
class LongDeletion : public SettingsPage {
  protected:
    LongDeletion() {
        const ComPtr<IPOutlookApp> outlook = Desk.Connect();
        EXPECT_EQ(outlook->Begin(u"Many"), Status::Ok);
        for (int number = 0; number < kMany; ++number) {
            ComPtr<IAppointment> item;
            EXPECT_EQ(outlook->CreateItem(kItemAppointment, item), Status::Ok);
            EXPECT_EQ(item->put_Start(38294 + number % 100), Status::Ok);
            EXPECT_EQ(item->Save(), Status::Ok);
        }
        EXPECT_EQ(outlook->End(), Status::Ok);
        Open();
        Desk.Device.TapControl(kSettingsAppointments);
        Desk.Device.TapControl(kSettingsDelete);
        Desk.Device.AnswerBox(IDYES);
    }

    static constexpr int kMany = 3000;
};

TEST_F(LongDeletion, ShowsHowFarItIsAndGoesOnByItself) {
    std::u16string shown;
    Desk.Device.AdvanceClock(1);
    Desk.Device.Do([&] { shown = Desk.Device.See.Items().at(0).Name; });
    Desk.Device.AdvanceClock(10);
    Desk.Device.Do([&] { EXPECT_FALSE(Desk.Device.See.IsDialogOpen()); });
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(shown, u"2500 of 3000 deleted");
    EXPECT_EQ(Desk.State().Store.CountAppointments(), 0);
}

TEST_F(LongDeletion, TheBarIsAsLongAsWhatIsDone) {
    std::string drawn;
    Desk.Device.AdvanceClock(1);
    Desk.Device.Do([&] { drawn = ToText(Desk.Device.See.LastFrame()->Calls); });
    Desk.Device.AdvanceClock(10);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(drawn, "fill 0,0,240,268 #FFFFFF\n"
                     "text 20,60,220,80 #000000 format 2084 [Arial -13 400] \"2500 of 3000 deleted\"\n"
                     "fill 20,84,220,100 #000000\n"
                     "fill 21,85,219,99 #FFFFFF\n"
                     "fill 21,85,186,99 #0060BF\n"); // five sixths of it
}

// The step that such a deletion left is as long.
class LongWayBack : public LongDeletion {
  protected:
    LongWayBack() {
        Desk.Device.AdvanceClock(10);
        EXPECT_TRUE(Desk.Settle());
        EXPECT_EQ(Desk.State().Store.CountAppointments(), 0);
        Desk.Device.Key('Z', kModifierControl);
    }
};

TEST_F(LongWayBack, ShowsHowFarItIsAndGoesOnByItself) {
    std::u16string shown;
    std::u16string caption;
    Desk.Device.AdvanceClock(1);
    Desk.Device.Do([&] {
        shown = Desk.Device.See.Items().at(0).Name;
        caption = Desk.Device.See.Caption();
        EXPECT_TRUE(Desk.State().Busy);
    });
    Desk.Device.AdvanceClock(10);
    Desk.Device.Do([&] { EXPECT_FALSE(Desk.Device.See.IsDialogOpen()); });
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(shown, u"2500 of 3000 undone");
    EXPECT_EQ(caption, u"Undo");
    EXPECT_EQ(Desk.State().Store.CountAppointments(), kMany);
    EXPECT_FALSE(Desk.State().Busy);
    Desk.LetNoticesArrive();
    EXPECT_EQ(Captions()[3], u"All appointments ( 3000 item(s) )");
}

TEST_F(LongWayBack, CancelledItLeavesThingsAsTheyWereAndIsOfferedAgain) {
    Desk.Device.AdvanceClock(1);
    Desk.Device.TapControl(IDCANCEL);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.State().Store.CountAppointments(), 0);
    EXPECT_FALSE(Desk.State().Busy);
    EXPECT_THAT(Desk.Boxes(), ElementsAre(u"Delete|Are you sure to delete?"));
    Desk.Device.Key('Z', kModifierControl);
    Desk.Device.AdvanceClock(10);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.State().Store.CountAppointments(), kMany);
}

TEST_F(LongWayBack, QuittingMeanwhileLeavesThingsAsTheyWere) {
    Desk.Device.AdvanceClock(1);
    Desk.Device.Quit();
    EXPECT_FALSE(Desk.Settle());
    EXPECT_EQ(Desk.State().Store.CountAppointments(), 0);
}

TEST_F(LongDeletion, ThePagesDoNotShowWhatIsNotFinal) {
    Desk.Device.AdvanceClock(10);
    ASSERT_TRUE(Desk.Settle());
    Desk.LetNoticesArrive();
    const WindowHandle box = Desk.Device.See.Control(kSettingsAppointments);
    std::u16string meanwhile;
    Desk.Device.ChangeStore();
    Desk.Device.AdvanceClock(499);
    Desk.Device.Key('Z', kModifierControl);
    Desk.Device.AdvanceClock(1); // the notice is due, and 2,500 of the items are back
    Desk.Device.Do([&] { meanwhile = Desk.Device.Host().Controls().GetWindowTextW(box); });
    Desk.Device.TapControl(IDCANCEL);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(meanwhile, u"All appointments ( 0 item(s) )");
}

TEST_F(LongDeletion, CancelledItLeavesEverything) {
    Desk.Device.AdvanceClock(1);
    Desk.Device.TapControl(IDCANCEL);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.State().Store.CountAppointments(), kMany);
    EXPECT_EQ(Captions()[3], u"All appointments ( 3000 item(s) )");
    EXPECT_FALSE(Desk.State().Busy);
}

TEST_F(LongDeletion, GoesOnInTheBackground) {
    Desk.Device.Minimize();
    Desk.Device.AdvanceClock(10);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.State().Store.CountAppointments(), 0);
}

TEST_F(LongDeletion, QuittingMeanwhileLeavesEverythingAndTheTags) {
    Desk.Tag(ItemKind::Alarm, 4711);
    Desk.Device.AdvanceClock(1);
    Desk.Device.Quit();
    EXPECT_FALSE(Desk.Settle());
    EXPECT_EQ(Desk.State().Store.CountAppointments(), kMany);
    EXPECT_EQ(Desk.ReadFile("TavoCalendar.dat")->size(), 15U + 4U);
}

} // namespace

} // namespace tavo
