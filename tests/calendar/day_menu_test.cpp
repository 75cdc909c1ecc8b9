// The menu of a day: what it offers, where it opens, and what its items' entries do.
#include "tests/calendar/day_menu_desk.h"

namespace tavo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(DayMenuTest, ADayWithoutAnythingShowsGreySubmenusAndAddMemo) {
    Open();
    TapDay();
    Check([this] {
        EXPECT_THAT(Captions(), ElementsAre(u"(Alarm: 0)", u"(Holiday: 0)", u"(Anniversary: 0)", u"(Schedule: 0)", u"-",
                                            u"(Memo: 0)", u"Add memo...", u"New"));
        EXPECT_EQ(Items()[kEntryAddMemo].Id, 32798);
        EXPECT_TRUE(Items()[kEntrySeparator].IsSeparator);
        EXPECT_TRUE(Items()[kEntryMemo].IsPopup);
    });
    Choose(0);
    Settle();
}

TEST_F(DayMenuTest, ItemsStandUnderTheFirstKindThatTheirTagsSay) {
    Open();
    const Oid alarm = GivenItem(u"Wake up", 6);
    const Oid both = GivenItem(u"Alarm and holiday", 7);
    const Oid holiday = GivenItem(u"Fair", 8);
    const Oid anniversary = GivenItem(u"Wedding", 9);
    GivenItem(u"Dentist", 10);
    GivenItem(u"Lunch", 12);
    CategoryLists& lists = Program.State().Categories;
    lists.AlarmList.Append(alarm);
    lists.AlarmList.Append(both);
    lists.HolidayList.Append(both);
    lists.HolidayList.Append(holiday);
    lists.AnniversaryList.Append(holiday);
    lists.AnniversaryList.Append(anniversary);
    Program.WriteFile("20040915_101530.pwi", "ink");
    TapDay();
    Check([this] {
        EXPECT_THAT(Captions(), ElementsAre(u"Alarm: 2", u"Holiday: 1", u"Anniversary: 1", u"Schedule: 2", u"-",
                                            u"Memo: 1", u"Add memo...", u"New"));
        EXPECT_THAT(EntriesOf(0), ElementsAre(u"33001 Wake up", u"33002 Alarm and holiday"));
        EXPECT_THAT(EntriesOf(1), ElementsAre(u"33201 Fair"));
        EXPECT_THAT(EntriesOf(2), ElementsAre(u"33401 Wedding"));
        EXPECT_THAT(EntriesOf(3), ElementsAre(u"33601 Dentist", u"33602 Lunch"));
        EXPECT_THAT(EntriesOf(kEntryMemo), ElementsAre(u"33801 20040915_101530.pwi"));
    });
    Choose(0);
    Settle();
}

TEST_F(DayMenuTest, OpensToTheRightOfATapAt119AndToTheLeftFrom120) {
    Open();
    Program.Device.Tap(119, 123);
    Check([this] {
        EXPECT_EQ(Menus().Tracked->At, (Point{124, 152}));
        EXPECT_EQ(Menus().Tracked->Align, MenuAlign::Left);
    });
    Choose(0);
    Program.Device.Tap(120, 123);
    Check([this] {
        EXPECT_EQ(Menus().Tracked->At, (Point{115, 152}));
        EXPECT_EQ(Menus().Tracked->Align, MenuAlign::Right);
    });
    Choose(0);
    Settle();
}

TEST_F(DayMenuTest, EveryKindsEntryOpensTheViewOnItsItem) {
    Open();
    CategoryLists& lists = Program.State().Categories;
    lists.AlarmList.Append(GivenItem(u"Wake up", 6));
    lists.HolidayList.Append(GivenItem(u"Fair", 7));
    lists.AnniversaryList.Append(GivenItem(u"Wedding", 8));
    GivenItem(u"Dentist", 9);
    const auto expectView = [this](int command, const std::u16string& subject) {
        TapDay();
        Choose(command);
        Check([this, subject] { EXPECT_TRUE(Program.Device.See.FindItem(PaintedRole::Header, subject).has_value()); });
        Program.Device.PressClose();
        Check([this] { EXPECT_FALSE(Program.Device.See.IsDialogOpen()); });
    };
    expectView(33001, u"Wake up");
    expectView(33201, u"Fair");
    expectView(33401, u"Wedding");
    expectView(33601, u"Dentist");
    Settle();
}

TEST_F(DayMenuTest, ModifyOpensTheEditorOfTheItemsKindAndThePagesFollow) {
    Open();
    const Oid oid = GivenItem(u"Wake up");
    Program.State().Categories.AlarmList.Append(oid);
    TapDay();
    Choose(33001);
    Program.Device.Tap(226, 26);
    Check([this] {
        EXPECT_EQ(Program.Device.See.Caption(), u"Tavo Calendar");
        EXPECT_EQ(Program.Device.See.TextOf(kEditSubject), u"Wake up");
    });
    Program.Device.Tap(100, 28); // the subject's row; an alarm's first row begins at 15
    Program.Device.TypeInto(kEditSubject, u"Get up");
    Program.Device.TapControl(IDOK);
    Program.Device.AdvanceClock(shell::Milliseconds(600));
    TapDay();
    Check([this] { EXPECT_THAT(EntriesOf(0), ElementsAre(u"33001 Get up")); });
    Choose(0);
    Settle();
}

TEST_F(DayMenuTest, NewItemsOfEveryKindBeginOnTheDayOfTheMenu) {
    Open();
    for (int kind = 0; kind < 4; ++kind) {
        TapDay();
        Check([this] { EXPECT_EQ(EntriesOf(7).size(), 4U); });
        Choose(kCommandNewAlarm + kind);
        Check([this] { EXPECT_EQ(Program.Device.See.TextOf(kEditSubject), u""); });
        Program.Device.Tap(100, 28);
        Program.Device.TypeInto(kEditSubject, u"Thing");
        Program.Device.TapControl(IDOK);
        Settle();
    }
    Program.Device.AdvanceClock(shell::Milliseconds(600));
    Settle();
    EXPECT_EQ(Program.CellName(2, 3), u"2004-09-15: alarm, holiday, anniversary, appointment");
}

TEST_F(DayMenuTest, OneDayOfASeriesIsDeletedWhereItsMenuWasOpened) {
    Open();
    const Oid yoga = Program.GivenSeries(u"Yoga", At(2004, 9, 13, 18), At(2004, 9, 13, 19), kRecursDaily);
    TapDay();
    Choose(33601);
    Program.Device.Tap(226, 49);
    Check([this] {
        ASSERT_TRUE(Menus().Tracked.has_value());
        EXPECT_THAT(Captions(), ElementsAre(u"This day", u"The whole series"));
        EXPECT_EQ(Menus().Tracked->At, (Point{kDayX + 5, kDayY + 29}));
    });
    Choose(kCommandThisDay);
    Program.Device.AnswerBox(IDYES);
    Program.Device.AdvanceClock(shell::Milliseconds(600));
    Settle();
    EXPECT_TRUE(Exists(yoga));
    EXPECT_EQ(Program.CellName(2, 2), u"2004-09-14: appointment");
    EXPECT_EQ(Program.CellName(2, 3), u"2004-09-15");
    EXPECT_EQ(Program.CellName(2, 4), u"2004-09-16: appointment");
}

TEST_F(DayMenuTest, DeleteAsksAndDeletesOnYes) {
    Open();
    const Oid oid = GivenItem(u"Dentist");
    TapDay();
    Choose(33601);
    Program.Device.Tap(226, 49);
    Program.Device.AnswerBox(IDNO);
    Settle();
    EXPECT_TRUE(Exists(oid));
    TapDay();
    Choose(33601);
    Program.Device.Tap(226, 49);
    Program.Device.AnswerBox(IDYES);
    Program.Device.AdvanceClock(shell::Milliseconds(600));
    Settle();
    EXPECT_FALSE(Exists(oid));
    EXPECT_THAT(Boxes(), ElementsAre(u"Delete|Are you sure to delete?", u"Delete|Are you sure to delete?"));
    EXPECT_EQ(Program.CellName(2, 3), u"2004-09-15");
}

TEST_F(DayMenuTest, DeletingATaggedItemTakesItOffItsList) {
    Open();
    const Oid oid = GivenItem(u"Wake up");
    Program.State().Categories.AlarmList.Append(oid);
    TapDay();
    Choose(33001);
    Program.Device.Tap(226, 49);
    Program.Device.AnswerBox(IDYES);
    Settle();
    EXPECT_FALSE(Exists(oid));
    EXPECT_FALSE(Program.State().Categories.IsAlarm(oid));
}

TEST_F(DayMenuTest, AnItemThatGoesWhileTheMenuIsOpenIsStillShownAndDeletedInSilence) {
    Open();
    const Oid oid = GivenItem(u"Dentist");
    TapDay();
    Check([this, oid] { Program.Delete(oid); });
    Program.Device.ChangeStore();
    Program.Device.AdvanceClock(shell::Milliseconds(600)); // the day list follows under the open menu
    Choose(33601);
    Check([this] { EXPECT_TRUE(Program.Device.See.FindItem(PaintedRole::Header, u"Dentist").has_value()); });
    Program.Device.Tap(226, 49);
    Program.Device.AnswerBox(IDYES);
    Settle();
    EXPECT_THAT(Boxes(), ElementsAre(u"Delete|Are you sure to delete?"));
}

TEST_F(DayMenuTest, AnItemThatChangesWhileTheMenuIsOpenIsShownAsItIsNow) {
    Open();
    const Oid oid = GivenItem(u"Dentist");
    TapDay();
    Check([this, oid] {
        ComPtr<IAppointment> item;
        ASSERT_EQ(Program.Connect()->GetItemFromOid(oid, item), Status::Ok);
        ASSERT_EQ(item->put_Subject(u"Surgeon"), Status::Ok);
        ASSERT_EQ(item->Save(), Status::Ok);
    });
    Choose(33601);
    Check([this] { EXPECT_TRUE(Program.Device.See.FindItem(PaintedRole::Header, u"Surgeon").has_value()); });
    Program.Device.PressClose();
    Settle();
}

TEST_F(DayMenuTest, AnItemThatChangesWhileItsViewIsOpenIsModifiedAsItIsThen) {
    Open();
    const Oid oid = GivenItem(u"Dentist");
    TapDay();
    Choose(33601);
    Check([this, oid] {
        ComPtr<IAppointment> item;
        ASSERT_EQ(Program.Connect()->GetItemFromOid(oid, item), Status::Ok);
        ASSERT_EQ(item->put_Subject(u"Surgeon"), Status::Ok);
        ASSERT_EQ(item->put_Duration(150), Status::Ok);
        ASSERT_EQ(item->Save(), Status::Ok);
    });
    Program.Device.Tap(226, 26); // modify
    Check([this] { EXPECT_EQ(Program.Device.See.TextOf(kEditSubject), u"Surgeon"); });
    Program.Device.TapControl(IDOK);
    Settle();
    AppointmentData saved;
    ASSERT_EQ(Program.State().Store.LoadAppointment(oid, saved), oid);
    EXPECT_EQ(saved.Subject, u"Surgeon");
    EXPECT_EQ(saved.End.Minute, 30);
}

TEST_F(DayMenuTest, AChoiceMeansWhatTheMenuShowedThoughTheDayGotAnotherItem) {
    Open();
    GivenItem(u"Dentist", 9);
    TapDay();
    Check([this] { GivenItem(u"Earlier", 7); });
    Program.Device.ChangeStore();
    Program.Device.AdvanceClock(shell::Milliseconds(600));
    Choose(33601);
    Check([this] { EXPECT_TRUE(Program.Device.See.FindItem(PaintedRole::Header, u"Dentist").has_value()); });
    Program.Device.PressClose();
    Settle();
}

TEST_F(DayMenuTest, AThousandItemsRunOnIntoTheNextRangesAndNothingBreaks) {
    Open();
    const ComPtr<IPOutlookApp> store = Program.Connect();
    ASSERT_EQ(store->Begin(u"a thousand"), Status::Ok);
    for (int index = 0; index < 1000; ++index) {
        ComPtr<IAppointment> item;
        DATE start = 0;
        ASSERT_TRUE(Program.Device.Host().Locale().SystemTimeToVariantTime(At(2004, 9, 15, 8), start));
        ASSERT_EQ(store->CreateItem(kItemAppointment, item), Status::Ok);
        ASSERT_EQ(item->put_Start(start), Status::Ok);
        ASSERT_EQ(item->put_End(start), Status::Ok);
        const std::string number = std::to_string(index);
        ASSERT_EQ(item->put_Subject(std::u16string(number.begin(), number.end())), Status::Ok);
        ASSERT_EQ(item->Save(), Status::Ok);
    }
    ASSERT_EQ(store->End(), Status::Ok);
    TapDay();
    Check([this] {
        const std::vector<std::u16string> entries = EntriesOf(3);
        ASSERT_EQ(entries.size(), 1000U);
        EXPECT_EQ(entries[199], u"33800 199");
        EXPECT_EQ(entries[200], u"33801 200"); // the first id of the memos
        EXPECT_EQ(entries[999], u"34600 999");
    });
    Choose(33800);
    Check([this] { EXPECT_TRUE(Program.Device.See.FindItem(PaintedRole::Header, u"199").has_value()); });
    Program.Device.PressClose();
    for (const int beyond : {33801, 34000, 34001, 34600}) { // of memos that the day does not have, and of nothing
        TapDay();
        Choose(beyond);
        Check([this] { EXPECT_FALSE(Program.Device.See.IsDialogOpen()); });
    }
    Settle();
    EXPECT_THAT(Boxes(), IsEmpty());
}

} // namespace
} // namespace tavo::test
