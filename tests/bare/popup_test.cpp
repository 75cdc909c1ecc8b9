// Open menus, lists and days of a picker: where their rows lie, and what a tap on them does.
#include "host/bare/popup.h"

#include "tests/headless/device_page.h"

namespace tavo::bare {

namespace {

class PopupTest : public headless::DevicePageTest {
  protected:
    // To be called from within a step.
    void Open(WindowHandle control) { Own.Host().ControlActions.OpenList(control); }

    WindowHandle AddList(int entries, const Rect& bounds = Rect::FromSize(65, 15, 100, 20)) {
        const WindowHandle list = Add(ControlKind::FixedList, 1035, bounds);
        std::vector<std::u16string> texts;
        texts.reserve(static_cast<std::size_t>(entries));
        for (int entry = 0; entry < entries; ++entry) {
            texts.push_back(u"Entry " + std::u16string(1, static_cast<char16_t>(u'A' + entry)));
        }
        Own.Host().Controls().SetListItems(list, texts);
        return list;
    }

    void TapRow(int number) { Touch.Tap(MiddleOf(Shown.PlaceOf(number))); }

    static Point MiddleOf(const Rect& place) {
        return {(place.Left + place.Right) / 2, (place.Top + place.Bottom) / 2};
    }

    // As a host does that hears of every change.
    void Note() { Shown.Note(shell::Change::ListOpened); }

    Popup Shown{Own.Host()};
    ScreenTouch Touch{Own.Host(), &Shown};
};

TEST_F(PopupTest, NothingLiesAnywhereWhileNothingIsOpen) {
    AddList(3);
    ASSERT_TRUE(Own.Finish(Pump));
    EXPECT_TRUE(Shown.Bounds().IsEmpty());
    EXPECT_TRUE(Shown.Draw().empty());
    EXPECT_TRUE(Shown.PlaceOf(0).IsEmpty());
}

TEST_F(PopupTest, ATapOnARowChoosesItAndClosesTheList) {
    const WindowHandle list = AddList(3);
    Own.Do([&] { Open(list); });
    Own.Do([&] {
        EXPECT_EQ(Shown.Bounds().Top, kClientArea.Top + 35); // below the list
        EXPECT_EQ(Shown.Bounds().Left, 65);
        TapRow(2);
    });
    ASSERT_TRUE(Own.Finish(Pump));
    EXPECT_EQ(Own.See.SelectionOf(1035), 2);
    EXPECT_EQ(Own.Host().State.OpenList, WindowHandle::None);
}

TEST_F(PopupTest, ATapBesideItClosesItAndDoesNothingElse) {
    const WindowHandle list = AddList(3);
    Add(ControlKind::CheckBox, 1032, Rect::FromSize(65, 200, 50, 20));
    Own.Do([&] { Open(list); });
    Own.Do([&] { Touch.Tap({70, kClientArea.Top + 205}); });
    ASSERT_TRUE(Own.Finish(Pump));
    EXPECT_EQ(Own.Host().State.OpenList, WindowHandle::None);
    EXPECT_FALSE(Own.See.IsChecked(1032));
    EXPECT_EQ(Own.See.SelectionOf(1035), -1);
}

TEST_F(PopupTest, ALongListScrollsAndOpensWhereItsChosenEntryIsInSight) {
    const WindowHandle list = AddList(26);
    Own.Host().Controls().SetCurSel(list, 20);
    Own.Do([&] {
        Open(list);
        Note();
    });
    Own.Do([&] {
        EXPECT_LE(Shown.Bounds().Bottom, kScreenSize.Height);
        EXPECT_FALSE(Shown.PlaceOf(20).IsEmpty());
        EXPECT_TRUE(Shown.PlaceOf(0).IsEmpty());
        Shown.Scroll(100);
        EXPECT_FALSE(Shown.PlaceOf(0).IsEmpty());
        EXPECT_TRUE(Shown.PlaceOf(25).IsEmpty());
        Shown.Scroll(-100);
        TapRow(25);
    });
    ASSERT_TRUE(Own.Finish(Pump));
    EXPECT_EQ(Own.See.SelectionOf(1035), 25);
}

TEST_F(PopupTest, WhereThereIsMoreRoomAboveItOpensThere) {
    const WindowHandle list = AddList(8, Rect::FromSize(65, 200, 100, 20));
    Own.Do([&] { Open(list); });
    Own.Do([&] { EXPECT_EQ(Shown.Bounds().Bottom, kClientArea.Top + 200); });
    ASSERT_TRUE(Own.Finish(Pump));
}

TEST_F(PopupTest, APickerOffersTheDaysAroundItsOwn) {
    const WindowHandle picker = Add(ControlKind::DatePicker, 1036, Rect::FromSize(65, 15, 100, 20));
    ASSERT_TRUE(Own.Host().Controls().SetSystemtime(picker, {2004, 12, 0, 30, 8, 15, 0, 0}));
    Own.Do([&] {
        Open(picker);
        Note();
    });
    Own.Do([&] { TapRow(3); });
    ASSERT_TRUE(Own.Finish(Pump));
    EXPECT_EQ(Own.Host().Controls().GetSystemtime(picker), (SYSTEMTIME{2005, 1, 0, 2, 8, 15, 0, 0}));
    EXPECT_EQ(Own.Host().State.OpenList, WindowHandle::None);
}

TEST_F(PopupTest, ASubmenusItemsStandBelowItsName) {
    MenuItem below;
    below.Id = 7;
    below.Text = u"&Below";
    MenuItem grey;
    grey.Id = 8;
    grey.Text = u"Grey";
    grey.Enabled = false;
    MenuItem heading;
    heading.Id = 6;
    heading.Text = u"Heading";
    heading.IsPopup = true;
    heading.Children = {below, grey};
    Own.Do([&] { ASSERT_TRUE(Own.Host().Menus().TrackPopupMenu(ViewHandle, {heading}, {200, 100}, MenuAlign::Left)); });
    Own.Do([&] {
        EXPECT_EQ(Shown.Bounds().Right, kScreenSize.Width); // moved to where it fits
        EXPECT_TRUE(Shown.PlaceOf(6).IsEmpty());
        EXPECT_TRUE(Shown.PlaceOf(8).IsEmpty());
        const Point first = MiddleOf(Shown.PlaceOf(7));
        Touch.Tap({first.X, Shown.Bounds().Top + 4});    // on the heading
        Touch.Tap({first.X, Shown.Bounds().Bottom - 4}); // on what is grey
        EXPECT_TRUE(Own.Host().State.Menus.Tracked.has_value());
        TapRow(7);
        EXPECT_FALSE(Own.Host().State.Menus.Tracked.has_value());
    });
    ASSERT_TRUE(Own.Finish(Pump));
}

} // namespace

} // namespace tavo::bare
