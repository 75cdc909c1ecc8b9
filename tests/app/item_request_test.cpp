// A reminder is opened: the program on the reminder's item.
#include "res/resource_ids.h"
#include "tests/support/running_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo::test {
namespace {

constexpr int kNoticePeriod = 500;
constexpr Point kModify{226, 26}; // the view's drawn buttons
constexpr Point kDelete{226, 49};

class ItemRequests : public testing::Test {
  protected:
    Oid GivenDentist() { return Program.GivenAppointment(u"Dentist", At(2004, 11, 3, 18), At(2004, 11, 3, 19)); }

    // The next step sees the view on this item, and closes it.
    void ExpectView(std::u16string_view subject) {
        Program.Device.Do([this, subject] { EXPECT_TRUE(IsViewOn(subject)); });
        Program.Device.PressClose();
    }

    void Tap(Point point) { Program.Device.Tap(point.X, point.Y); }

    bool IsViewOn(std::u16string_view subject) {
        return Program.Device.See.IsDialogOpen() &&
               Program.Device.See.FindItem(PaintedRole::Header, std::u16string(subject)).has_value();
    }

    bool IsThere(Oid oid) {
        AppointmentData record;
        return Program.State().Store.LoadAppointment(oid, record) == oid;
    }

    RunningProgram Program; // 3 November 2004
};

TEST_F(ItemRequests, OpensTheViewOverThePageThatIsShown) {
    const Oid oid = GivenDentist();
    ASSERT_TRUE(Program.Start());
    for (int page = 0; page < 4; ++page) {
        Program.ShowPage(page);
        const std::u16string caption = Program.Device.See.Caption();
        Program.Device.RequestItem(oid);
        ExpectView(u"Dentist");
        ASSERT_TRUE(Program.Settle());
        EXPECT_EQ(Program.Device.See.Caption(), caption);
    }
}

TEST_F(ItemRequests, BringsAMinimisedProgramBackFirst) {
    const Oid oid = GivenDentist();
    ASSERT_TRUE(Program.Start());
    Program.Device.Minimize();
    Program.Device.RequestItem(oid);
    Program.Device.Do([&] {
        EXPECT_FALSE(Program.Device.Host().State.Minimized);
        EXPECT_TRUE(IsViewOn(u"Dentist"));
    });
    Program.Device.PressClose();
    ASSERT_TRUE(Program.Settle());
}

TEST_F(ItemRequests, ANewItemOfEachKindCanBeWished) {
    constexpr std::pair<NewItemWish, ItemKind> wishes[] = {{NewItemWish::Alarm, ItemKind::Alarm},
                                                           {NewItemWish::Holiday, ItemKind::Holiday},
                                                           {NewItemWish::Anniversary, ItemKind::Anniversary},
                                                           {NewItemWish::Appointment, ItemKind::Appointment}};
    ASSERT_TRUE(Program.Start());
    for (const auto& [wish, kind] : wishes) {
        Program.Device.RequestItem(static_cast<std::int32_t>(wish));
        Program.Device.Tap(70, 20); // the page with the subject
        Program.Device.TypeInto(kEditSubject, u"Wished");
        Program.Device.TapControl(IDOK);
        ASSERT_TRUE(Program.Settle());
        EXPECT_FALSE(Program.Device.See.IsDialogOpen());
    }
    for (Oid oid = 1; oid <= 4; ++oid) {
        EXPECT_TRUE(IsThere(oid));
        EXPECT_EQ(Program.State().Categories.KindOf(oid), wishes[oid - 1].second);
    }
}

TEST_F(ItemRequests, AWishThatIsNoneOpensNothing) {
    ASSERT_TRUE(Program.Start());
    Program.Device.RequestItem(-5);
    ASSERT_TRUE(Program.Settle());
    EXPECT_FALSE(Program.Device.See.IsDialogOpen());
}

TEST_F(ItemRequests, AnItemThatIsGoneOpensNothing) {
    const Oid oid = GivenDentist();
    Program.Delete(oid);
    ASSERT_TRUE(Program.Start());
    Program.Device.RequestItem(oid);
    ASSERT_TRUE(Program.Settle());
    EXPECT_FALSE(Program.Device.See.IsDialogOpen());
    EXPECT_TRUE(Program.Device.Host().Seen.Boxes.empty());
    EXPECT_EQ(Program.Device.See.Caption(), u"Clock");
}

TEST_F(ItemRequests, ADialogThatIsOpenStaysOnTopAndNothingFollowsIt) {
    const Oid oid = GivenDentist();
    ASSERT_TRUE(Program.Start());
    Program.Device.Key('4', kModifierControl);
    Program.Device.Minimize();
    Program.Device.RequestItem(oid);
    Program.Device.Do([&] {
        EXPECT_FALSE(Program.Device.Host().State.Minimized);
        EXPECT_FALSE(IsViewOn(u"Dentist"));
    });
    Program.Device.Key(VK_ESCAPE);
    ASSERT_TRUE(Program.Settle());
    EXPECT_FALSE(Program.Device.See.IsDialogOpen());
}

TEST_F(ItemRequests, AQuestionThatIsOpenStaysAndNothingFollowsIt) {
    const Oid kept = GivenDentist();
    const Oid other = Program.GivenAppointment(u"Lunch", At(2004, 11, 3, 12), At(2004, 11, 3, 13));
    ASSERT_TRUE(Program.Start());
    Program.Device.RequestItem(kept);
    Tap(kDelete);
    Program.Device.Do([&] { EXPECT_FALSE(Program.Device.See.IsDialogOpen()); }); // the question stands alone
    Program.Device.RequestItem(other);
    Program.Device.AnswerBox(IDNO);
    ASSERT_TRUE(Program.Settle());
    EXPECT_FALSE(Program.Device.See.IsDialogOpen());
    EXPECT_TRUE(IsThere(kept));
}

TEST_F(ItemRequests, AMenuThatIsOpenIsClosedFirst) {
    const Oid oid = GivenDentist();
    ASSERT_TRUE(Program.Start());
    Program.Device.OpenMenu(u"Tools");
    Program.Device.RequestItem(oid);
    ExpectView(u"Dentist");
    ASSERT_TRUE(Program.Settle());
    Program.ShowPage(PageNumber::Calendar);
    Program.Device.Key(VK_RETURN); // the day's menu
    Program.Device.Do([&] { EXPECT_TRUE(Program.Device.Host().State.Menus.Tracked.has_value()); });
    Program.Device.RequestItem(oid);
    Program.Device.Do([&] {
        EXPECT_FALSE(Program.Device.Host().State.Menus.IsMenuOpen());
        EXPECT_TRUE(IsViewOn(u"Dentist"));
    });
    Program.Device.PressClose();
    ASSERT_TRUE(Program.Settle());
}

TEST_F(ItemRequests, OfTwoTheFirstIsOpened) {
    const Oid first = GivenDentist();
    const Oid second = Program.GivenAppointment(u"Lunch", At(2004, 11, 3, 12), At(2004, 11, 3, 13));
    ASSERT_TRUE(Program.Start());
    Program.Device.Do([&] {
        Program.Device.Host().Items.Make(first);
        Program.Device.Host().Items.Make(second);
    });
    ExpectView(u"Dentist");
    ASSERT_TRUE(Program.Settle());
    EXPECT_FALSE(Program.Device.See.IsDialogOpen());
}

TEST_F(ItemRequests, ModifyOpensTheEditorOfTheItemsKindAndThePagesFollow) {
    const Oid oid = GivenDentist();
    ASSERT_TRUE(Program.Start());
    Program.State().Categories.AlarmList.Append(oid);
    Program.ShowPage(PageNumber::Calendar);
    Program.Device.RequestItem(oid);
    Tap(kModify);
    Program.Device.Do([&] {
        EXPECT_EQ(Program.Device.See.Caption(), u"Tavo Calendar");
        EXPECT_EQ(Program.Device.See.TextOf(kEditSubject), u"Dentist");
    });
    Program.Device.Tap(100, 28); // the subject's row; an alarm's first row begins at 15
    Program.Device.TypeInto(kEditSubject, u"Get up");
    Program.Device.TapControl(IDOK);
    ASSERT_TRUE(Program.Settle());
    Program.Device.AdvanceClock(kNoticePeriod);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Program.State().Categories.AlarmList.Size(), 1U);
    EXPECT_EQ(Program.CellName(0, 3), u"2004-11-03: alarm");
    AppointmentData record;
    ASSERT_NE(Program.State().Store.LoadAppointment(Program.State().Categories.AlarmList.At(0), record), 0);
    EXPECT_EQ(record.Subject, u"Get up");
}

TEST_F(ItemRequests, DeleteAsksAndOnYesThePagesAndTheItemsListFollow) {
    const Oid oid = GivenDentist();
    ASSERT_TRUE(Program.Start());
    Program.State().Categories.HolidayList.Append(oid);
    Program.ShowPage(PageNumber::Calendar);
    EXPECT_EQ(Program.CellName(0, 3), u"2004-11-03: holiday");
    Program.Device.RequestItem(oid);
    Tap(kDelete);
    Program.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Program.Settle());
    EXPECT_FALSE(IsThere(oid));
    EXPECT_EQ(Program.State().Categories.HolidayList.Size(), 0U);
    Program.Device.AdvanceClock(kNoticePeriod);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Program.CellName(0, 3), u"2004-11-03");
}

TEST_F(ItemRequests, ASeriesIsShownAsAWhole) {
    const Oid oid =
        Program.GivenSeries(u"Yoga", At(2004, 11, 1, 18), At(2004, 11, 1, 19), kRecursDaily); // since Monday
    ASSERT_TRUE(Program.Start());
    Program.Device.RequestItem(oid);
    ExpectView(u"Yoga");
    ASSERT_TRUE(Program.Settle());
}

TEST_F(ItemRequests, OneFromBeforeTheStartOpensOverTheClockPage) {
    const Oid oid = GivenDentist();
    Program.Device.RequestItemAtStart(oid);
    ExpectView(u"Dentist");
    ASSERT_TRUE(Program.Start());
    EXPECT_EQ(Program.Device.See.Caption(), u"Clock");
    EXPECT_FALSE(Program.Device.See.IsDialogOpen());
}

TEST_F(ItemRequests, OneFromBeforeTheStartWaitsForTheStartsOwnQuestions) {
    const Oid oid = GivenDentist();
    Program.WriteFile("TavoCalendar.dat", std::string("\2\0\0\0\7\0\0\0", 8)); // corrupt
    Program.Device.RequestItemAtStart(oid);
    Program.Device.Do([&] { EXPECT_FALSE(Program.Device.See.IsDialogOpen()); });
    Program.Device.AnswerBox(IDOK);
    ExpectView(u"Dentist");
    ASSERT_TRUE(Program.Start());
    EXPECT_EQ(Program.Device.Host().Seen.Boxes.size(), 1U);
}

TEST_F(ItemRequests, WithoutAStoreTheViewStaysEmpty) {
    headless::DeviceOptions options;
    options.Outlook = [](const std::filesystem::path&, ComPtr<IPOutlookApp>&) { return Status::Fail; };
    RunningProgram program(At(2004, 11, 3), options);
    program.Device.RequestItemAtStart(1);
    program.Device.AnswerBox(IDOK);
    ASSERT_TRUE(program.Start());
    EXPECT_FALSE(program.Device.See.IsDialogOpen());
    EXPECT_EQ(program.Device.Host().Seen.Boxes.size(), 1U);
}

} // namespace
} // namespace tavo::test
