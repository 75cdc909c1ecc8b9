// When the month page asks the store again, and how much it repaints.
#include "res/resource_ids.h"
#include "tests/support/folder_probe.h"
#include "tests/support/running_program.h"

#include <gtest/gtest.h>

namespace tavo::test {
namespace {

class CalendarPageRepaint : public testing::Test {
  protected:
    void Open() {
        Program.GivenAppointment(u"Long ago", At(1990, 1, 1), At(1990, 1, 1)); // an empty calendar says what to do
        ASSERT_TRUE(Program.Start());
        Program.ShowPage(PageNumber::Calendar);
    }

    void Press(int key) {
        Program.Device.Key(key);
        ASSERT_TRUE(Program.Settle());
    }

    void Tap(int x, int y) {
        Program.TapAside(x, y);
        ASSERT_TRUE(Program.Settle());
    }

    // A press on the Today button that leaves it again: paints, and asks for nothing.
    void LetPaint() {
        Program.Device.Press(210, 10);
        Program.Device.MoveTo(150, 230);
        Program.Device.Release(150, 230);
        ASSERT_TRUE(Program.Settle());
    }

    void GivenDentist() { Program.GivenAppointment(u"Dentist", At(2004, 11, 10, 9), At(2004, 11, 10, 10)); }

    std::u16string TheTenth() const { return Program.CellName(1, 3); }

    bool IsTodayPressed() const {
        const auto item = Program.Device.See.FindItem(PaintedRole::Button, u"Today");
        return item.has_value() && item->Pressed;
    }

    const std::vector<std::size_t>& ItemsDeclared() const { return Program.Device.See.LastFrame()->ItemCounts; }

    int TimesPresented() const { return Program.Device.See.LastFrame()->Count; }

    std::vector<Cursor>& Cursors() { return Program.Device.Host().Seen.Cursors; }

    RunningProgram Program{At(2004, 11, 3, 7, 0)};
};

constexpr std::u16string_view kBare = u"2004-11-10";
constexpr std::u16string_view kMarked = u"2004-11-10: appointment";

TEST_F(CalendarPageRepaint, TheWaitPointerShowsWhileTheGridIsDrawn) {
    Open();
    EXPECT_EQ(Cursors(), (std::vector{Cursor::Wait, Cursor::Arrow}));
    Cursors().clear();
    Press(VK_RIGHT);
    EXPECT_EQ(Cursors(), (std::vector{Cursor::Wait, Cursor::Arrow}));
    Cursors().clear();
    Tap(50, 90);
    EXPECT_EQ(Cursors(), (std::vector{Cursor::Wait, Cursor::Arrow}));
    Cursors().clear();
    LetPaint(); // the header alone
    EXPECT_TRUE(Cursors().empty());
}

TEST_F(CalendarPageRepaint, ATapDoesNotAskTheStoreAgain) {
    Open();
    GivenDentist();
    Tap(50, 90);
    EXPECT_EQ(TheTenth(), kBare);
    Press(VK_RIGHT);
    Press(VK_LEFT);
    EXPECT_EQ(TheTenth(), kMarked);
}

TEST_F(CalendarPageRepaint, ATapPresentsOnceAndAnotherMonthTwice) {
    Open();
    int before = TimesPresented();
    Tap(50, 90);
    EXPECT_EQ(TimesPresented(), before + 1);
    before = TimesPresented();
    Press(VK_RIGHT); // the bare grid, and the grid with its marks
    EXPECT_EQ(TimesPresented(), before + 2);
}

TEST_F(CalendarPageRepaint, CellsTabsAndButtonsStayDeclaredWhileTheMonthChanges) {
    Open();
    const std::size_t before = ItemsDeclared().size();
    Press(VK_RIGHT);
    ASSERT_EQ(ItemsDeclared().size(), before + 2);
    for (std::size_t time = before; time < before + 2; ++time) {
        EXPECT_EQ(ItemsDeclared()[time], 48U); // the header, Today, six weeks and four tabs
    }
}

TEST_F(CalendarPageRepaint, AHeaderTapShowsTheStoreAsItIsAtTheNextPaint) {
    Open();
    GivenDentist();
    LetPaint();
    EXPECT_EQ(TheTenth(), kBare);
    const int before = TimesPresented();
    Tap(100, 20);
    EXPECT_EQ(TimesPresented(), before); // it asks for no paint itself
    LetPaint();
    EXPECT_EQ(TheTenth(), kMarked);
}

TEST_F(CalendarPageRepaint, TheTodayButtonAsksTheStoreAgain) {
    Open();
    GivenDentist();
    Tap(218, 18);
    EXPECT_EQ(TheTenth(), kMarked);
}

TEST_F(CalendarPageRepaint, AnyOtherKeyDoesNotAskTheStoreAgain) {
    Open();
    GivenDentist();
    Press(VK_HOME);
    EXPECT_EQ(TheTenth(), kBare);
}

TEST_F(CalendarPageRepaint, ThePageBarOpensItWithoutAskingTheStoreAgain) {
    Open();
    Program.ShowPage(PageNumber::Clock);
    GivenDentist();
    Program.ShowPage(PageNumber::Calendar);
    EXPECT_EQ(TheTenth(), kBare);
}

TEST_F(CalendarPageRepaint, TheTodayButtonIsPressedStrictlyWithinItsEdges) {
    Open();
    for (const Point outside : {Point{205, 18}, Point{231, 18}, Point{218, 5}, Point{218, 31}}) {
        Program.Device.Press(outside.X, outside.Y);
        ASSERT_TRUE(Program.Settle());
        EXPECT_FALSE(IsTodayPressed()) << outside.X << ", " << outside.Y;
        Program.Device.Release(outside.X, outside.Y);
    }
    for (const Point inside : {Point{206, 6}, Point{230, 6}, Point{206, 30}, Point{230, 30}}) {
        Program.Device.Press(inside.X, inside.Y);
        ASSERT_TRUE(Program.Settle());
        EXPECT_TRUE(IsTodayPressed()) << inside.X << ", " << inside.Y;
        Program.Device.Release(inside.X, inside.Y);
        ASSERT_TRUE(Program.Settle());
        EXPECT_FALSE(IsTodayPressed()) << inside.X << ", " << inside.Y;
    }
}

TEST_F(CalendarPageRepaint, AFailingRestrictionLeavesNoMarks) {
    GivenDentist();
    Open();
    EXPECT_EQ(TheTenth(), kMarked);
    FolderFaults faults;
    ComPtr<IFolder>& folder = Program.State().Store.CalendarFolder;
    folder = FolderProbe::Make(folder, faults);
    Press(VK_RIGHT);
    Press(VK_LEFT);
    EXPECT_EQ(TheTenth(), kMarked); // it is not the probe that hides them
    faults.RestrictResult = Status::Fail;
    Press(VK_RIGHT);
    Press(VK_LEFT);
    EXPECT_EQ(TheTenth(), kBare);
    EXPECT_EQ(Program.NumberIn(1, 3).Text, u"10");
    EXPECT_TRUE(Program.Device.Host().Seen.Boxes.empty());
    Program.Stop(); // before the faults go
}

TEST_F(CalendarPageRepaint, FailingItemsLeaveNoMarks) {
    GivenDentist();
    Open();
    FolderFaults faults;
    ComPtr<IFolder>& folder = Program.State().Store.CalendarFolder;
    folder = FolderProbe::Make(folder, faults);
    faults.ItemsResult = Status::Fail;
    Press(VK_RIGHT);
    Press(VK_LEFT);
    EXPECT_EQ(TheTenth(), kBare);
    EXPECT_TRUE(Program.Device.Host().Seen.Boxes.empty());
    Program.Stop();
}

} // namespace
} // namespace tavo::test
