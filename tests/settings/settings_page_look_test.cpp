// What the Settings page draws and declares, and where its boxes lie.
#include "store/page_number.h"
#include "tests/schedule/schedule_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo {

namespace {

using test::ScheduleDesk;
using testing::ElementsAre;

class SettingsPageLook : public testing::Test {
  protected:
    SettingsPageLook() {
        EXPECT_TRUE(Desk.Start());
        Desk.ShowPage(PageNumber::Settings);
    }

    ScheduleDesk Desk;
};

TEST_F(SettingsPageLook, IsDrawnWhiteWithThePageBar) {
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(ToText(Desk.Device.See.LastFrame()->Calls), "fill 0,0,240,267 #FFFFFF\n"
                                                          "bitmap 139 0,241,240,267 from 0,0,240,26\n"
                                                          "bitmap 142 180,241,240,267 from 0,0,60,26\n");
}

TEST_F(SettingsPageLook, DeclaresTheTabsOfThePageBarOnce) {
    Desk.Device.ChangeScale(); // all is painted anew
    ASSERT_TRUE(Desk.Settle());
    std::vector<std::u16string> tabs;
    for (const PaintedItem& item : Desk.Device.See.Items()) {
        EXPECT_EQ(item.Role, PaintedRole::Tab);
        tabs.push_back(item.Selected ? u"[" + item.Name + u"]" : item.Name);
    }
    EXPECT_THAT(tabs, ElementsAre(u"Clock", u"Schedule", u"Calendar", u"[Settings]"));
}

TEST_F(SettingsPageLook, BoxesReachToTheEdgeOfThePageAndTheButtonIsAsWideAsItsText) {
    const auto place = [this](int control) {
        return Desk.Device.Host().State.Tree.Find(Desk.Device.See.Control(control))->Bounds;
    };
    for (int box = kSettingsAlarms; box <= kSettingsMemos; ++box) {
        EXPECT_EQ(place(box).Left, 18) << box;
        EXPECT_EQ(place(box).Right, 240) << box;
    }
    EXPECT_EQ(place(kSettingsDelete).Left, 18);
    EXPECT_EQ(place(kSettingsDelete).Right, 93);
}

} // namespace

} // namespace tavo
