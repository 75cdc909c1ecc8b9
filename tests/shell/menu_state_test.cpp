// Which items of a menu can be chosen.
#include "host/shell/menu_state.h"

#include <gtest/gtest.h>

namespace tavo::shell {

namespace {

MenuItem Entry(int id, bool enabled = true) {
    MenuItem item;
    item.Id = id;
    item.Enabled = enabled;
    return item;
}

MenuItem Submenu(std::vector<MenuItem> children, bool enabled = true) {
    MenuItem item;
    item.Children = std::move(children);
    item.IsPopup = true;
    item.Enabled = enabled;
    return item;
}

TEST(MenuState, EnabledEntriesCanBeChosenAtAnyDepth) {
    const std::vector<MenuItem> menu{Entry(1), Submenu({Entry(2), Submenu({Entry(3)})})};
    EXPECT_TRUE(CanChoose(menu, 1));
    EXPECT_TRUE(CanChoose(menu, 2));
    EXPECT_TRUE(CanChoose(menu, 3));
    EXPECT_FALSE(CanChoose(menu, 4));
}

TEST(MenuState, GreyEntriesAndWhatLiesUnderGreyMenusCannot) {
    const std::vector<MenuItem> menu{Entry(1, false), Submenu({Entry(2)}, false)};
    EXPECT_FALSE(CanChoose(menu, 1));
    EXPECT_FALSE(CanChoose(menu, 2));
}

TEST(MenuState, SeparatorsAndSubmenusThemselvesCannot) {
    MenuItem separator;
    separator.IsSeparator = true;
    MenuItem empty = Submenu({});
    empty.Id = 5;
    const std::vector<MenuItem> menu{separator, empty};
    EXPECT_FALSE(CanChoose(menu, 0));
    EXPECT_FALSE(CanChoose(menu, 5));
}

TEST(MenuState, ItemsAreFoundAtAnyDepth) {
    std::vector<MenuItem> menu{Entry(1), Submenu({Entry(2, false)})};
    ASSERT_NE(FindMenuItem(menu, 2), nullptr);
    EXPECT_FALSE(FindMenuItem(menu, 2)->Enabled);
    EXPECT_EQ(FindMenuItem(menu, 3), nullptr);
}

TEST(MenuState, LatestBarOfAWindowCounts) {
    MenuState menus;
    menus.Bars[WindowHandle{5}] = {WindowHandle{5}, WindowHandle{1}, {}, {}};
    menus.Bars[WindowHandle{6}] = {WindowHandle{6}, WindowHandle{1}, {}, {}};
    menus.Bars[WindowHandle{7}] = {WindowHandle{7}, WindowHandle{2}, {}, {}};
    ASSERT_NE(menus.FindBarOf(WindowHandle{1}), nullptr);
    EXPECT_EQ(menus.FindBarOf(WindowHandle{1})->Handle, WindowHandle{6});
    EXPECT_EQ(menus.FindBarOf(WindowHandle{9}), nullptr);
}

} // namespace

} // namespace tavo::shell
