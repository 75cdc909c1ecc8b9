// What the pattern page draws and where its toggles lie, and the keys that it keeps to itself.
#include "res/resource_ids.h"
#include "tests/edit/wizard_desk.h"
#include "tests/framework/plain_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo::test {
namespace {

using testing::ElementsAre;

class PatternPageLook : public testing::Test {
  protected:
    void LookForDrawn(const std::string& expected) {
        Desk.Check([this, expected] {
            EXPECT_EQ(ToText(Desk.Device.Host().Drawn.LastFrame(Desk.PatternWindow())->Calls), expected);
        });
    }

    void LookForFocusAt(const std::string& lines) { LookForDrawn(std::string(kWeekly) + lines); }

    void FocusOn(WizardDesk::Where control) {
        Desk.Device.Do([this, control = std::move(control)] { Desk.Device.Host().Windows().SetFocus(control()); });
    }

    void Cancel() {
        Desk.TapButton(IDCANCEL);
        EXPECT_EQ(Desk.RunWizard(), IDCANCEL);
    }

    static constexpr const char* kWeekly = "fill 0,0,240,150 #FFFFFF\n"
                                           "bitmap 164 0,0,240,24 from 0,0,240,24\n";
    WizardDesk Desk; // opens on its weekly tab
};

TEST_F(PatternPageLook, IsWhiteUnderItsTabStrip) {
    LookForDrawn(kWeekly);
    Desk.TapTab(0);
    LookForDrawn("fill 0,0,240,150 #FFFFFF\n"
                 "bitmap 166 0,0,240,24 from 0,0,240,24\n");
    Cancel();
}

TEST_F(PatternPageLook, DeclaresItsFourTabsOnce) {
    Desk.TapTab(0);
    Desk.TapTab(3);
    Desk.Check([this] {
        EXPECT_THAT(Desk.Device.Host().Drawn.LastFrame(Desk.PatternWindow())->Items,
                    ElementsAre(PaintedItem{{0, 0, 60, 24}, PaintedRole::Tab, u"Daily", 0, false},
                                PaintedItem{{60, 0, 120, 24}, PaintedRole::Tab, u"Weekly", 1, false},
                                PaintedItem{{120, 0, 180, 24}, PaintedRole::Tab, u"Monthly", 2, false},
                                PaintedItem{{180, 0, 240, 24}, PaintedRole::Tab, u"Yearly", 3, true}));
    });
    Cancel();
}

TEST_F(PatternPageLook, SevenSquareTogglesStandInARow) {
    Desk.Check([this] {
        const int toggles[] = {kPatternSunday,   kPatternMonday, kPatternTuesday, kPatternWednesday,
                               kPatternThursday, kPatternFriday, kPatternSaturday};
        int left = 19;
        for (const int toggle : toggles) {
            EXPECT_EQ(Desk.Device.Host().State.Tree.Find(Desk.OnPattern(toggle))->Bounds,
                      Rect::FromSize(left, 84, 22, 22))
                << toggle;
            left += 30;
        }
    });
    Cancel();
}

TEST_F(PatternPageLook, TheFocusIsABlueFrameWithinTheTab) {
    FocusOn([this] { return Desk.Button(kWizardNext); });
    Desk.Device.Key(VK_TAB);
    LookForFocusAt("line 62,3 to 118,3 pen 1 #2664B4\n"
                   "line 62,22 to 118,22 pen 1 #2664B4\n"
                   "line 62,3 to 62,23 pen 1 #2664B4\n"
                   "line 117,3 to 117,23 pen 1 #2664B4\n");
    Cancel();
}

TEST_F(PatternPageLook, TheFocusIsABlueFrameAroundAToggle) {
    FocusOn([this] { return Desk.OnPattern(kPatternWeekInterval); });
    Desk.Device.Key(VK_TAB);
    LookForFocusAt("line 17,82 to 43,82 pen 1 #2664B4\n"
                   "line 17,107 to 43,107 pen 1 #2664B4\n"
                   "line 17,82 to 17,108 pen 1 #2664B4\n"
                   "line 42,82 to 42,108 pen 1 #2664B4\n"); // Sunday
    Desk.Device.Key(VK_TAB);
    LookForFocusAt("line 47,82 to 73,82 pen 1 #2664B4\n"
                   "line 47,107 to 73,107 pen 1 #2664B4\n"
                   "line 47,82 to 47,108 pen 1 #2664B4\n"
                   "line 72,82 to 72,108 pen 1 #2664B4\n"); // Monday
    Cancel();
}

TEST_F(PatternPageLook, TheFrameGoesWhereATapMovesTheFocusAway) {
    FocusOn([this] { return Desk.Button(kWizardNext); });
    Desk.Device.Key(VK_TAB);
    Desk.ChooseOnPattern(kPatternWeekInterval, 1);
    LookForDrawn(kWeekly);
    Cancel();
}

// The page in a frame that keeps every key.
class PatternPageKeys : public testing::Test {
  protected:
    PatternPageKeys() {
        EXPECT_TRUE(Frame.Make());
        EXPECT_TRUE(Page.CreateIn(Frame.Handle(), kDialogPattern));
        Page.Show(ShowCommand::Show);
    }

    // Presses the key and says which keys came to the frame.
    std::vector<int> KeysOfFrame(int focus, int key) {
        Frame.Taken.clear();
        Desk.Device.Do(
            [this, focus] { Desk.Device.Host().Windows().SetFocus(focus == 0 ? Page.Handle() : Page.Item(focus)); });
        Desk.Device.Key(key);
        EXPECT_TRUE(Desk.Device.Finish(Desk.Pump));
        std::vector<int> keys;
        for (const Message& message : Frame.Taken) {
            if (message.Number == WM_KEYDOWN) {
                keys.push_back(message.Id);
            }
        }
        return keys;
    }

    std::u16string ShownTab() {
        for (const PaintedItem& item : Desk.Device.Host().Drawn.LastFrame(Page.Handle())->Items) {
            if (item.Selected) {
                return item.Name;
            }
        }
        return u"";
    }

    WizardDesk Desk;
    PlainWindow Frame{Desk.Pump};
    CPatternPage Page{Desk.Pump, Desk.Pattern()};
};

TEST_F(PatternPageKeys, TheStripKeepsItsArrowKeysAndNoOthers) {
    EXPECT_THAT(KeysOfFrame(0, VK_RIGHT), ElementsAre());
    EXPECT_EQ(ShownTab(), u"Monthly");
    EXPECT_THAT(KeysOfFrame(0, VK_LEFT), ElementsAre());
    EXPECT_EQ(ShownTab(), u"Weekly");
    EXPECT_THAT(KeysOfFrame(0, VK_UP), ElementsAre(VK_UP));
    EXPECT_THAT(KeysOfFrame(0, VK_SPACE), ElementsAre(VK_SPACE));
    EXPECT_EQ(ShownTab(), u"Weekly");
}

TEST_F(PatternPageKeys, AToggleKeepsSpaceAndNoOtherKey) {
    EXPECT_THAT(KeysOfFrame(kPatternFriday, VK_SPACE), ElementsAre());
    EXPECT_THAT(KeysOfFrame(kPatternFriday, VK_RIGHT), ElementsAre(VK_RIGHT));
    EXPECT_THAT(KeysOfFrame(kPatternFriday, VK_RETURN), ElementsAre(VK_RETURN));
    EXPECT_EQ(ShownTab(), u"Weekly");
}

TEST_F(PatternPageKeys, OtherMessagesStayWithThePage) {
    Frame.Taken.clear();
    Page.Post(WM_MOUSEWHEEL);
    EXPECT_TRUE(Desk.Device.Finish(Desk.Pump));
    for (const Message& message : Frame.Taken) {
        EXPECT_NE(message.Number, WM_MOUSEWHEEL);
    }
}

TEST_F(PatternPageKeys, ThePageIsMadeFromItsOwnTemplateInAWindowThatIsThere) {
    CPatternPage another{Desk.Pump, Desk.Pattern()};
    EXPECT_FALSE(another.CreateIn(Frame.Handle(), kDialogRange));
    EXPECT_FALSE(another.CreateIn(WindowHandle::None, kDialogPattern));
    EXPECT_EQ(another.Handle(), WindowHandle::None);
}

} // namespace
} // namespace tavo::test
