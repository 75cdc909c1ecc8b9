// Keys and the focus.
#include "tests/conformance/conformance_test.h"

namespace tavo::conformance {

namespace {

using KeyConformance = ConformanceTest;

TEST_F(KeyConformance, KeysGoToTheShownPageWhenNothingHasTheFocus) {
    Steps.Key(VK_LEFT);
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Page.Log.Count(WM_KEYDOWN, VK_LEFT, 0), 1);
    EXPECT_EQ(Page.Log.Count(WM_KEYUP, VK_LEFT, 0), 1);
}

TEST_F(KeyConformance, ModifiersComeWithTheKey) {
    Steps.Key(VK_F1, kModifierControl | kModifierShift);
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Page.Log.Count(WM_KEYDOWN, VK_F1, kModifierControl | kModifierShift), 1);
}

TEST_F(KeyConformance, KeysGoToTheDialogOnTop) {
    OpenDialogOnTap();
    Steps.Key(VK_F1);
    Steps.Do([&] { End(IDOK); });
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Ended.Count(WM_KEYDOWN, VK_F1, 0), 1);
    EXPECT_EQ(Page.Log.Count(WM_KEYDOWN), 0);
}

TEST_F(KeyConformance, ShownControlTakesKeysButNotTheFocusUntilOneIsTyped) {
    OpenDialogOnTap();
    Steps.Do([&] {
        Dialog->ShowItem(kHiddenEdit, true);
        EXPECT_EQ(Host.Windows().GetFocus(), WindowHandle::None);
    });
    Steps.Type(u"ab");
    Steps.Do([&] {
        EXPECT_EQ(Host.Windows().GetFocus(), DialogItem(kHiddenEdit));
        EXPECT_EQ(Dialog->ItemText(kHiddenEdit), u"ab");
        EXPECT_EQ(Driver->ShownTextOf(DialogItem(kHiddenEdit)), u"ab");
        End(IDOK);
    });
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Ended.CodesOf(kHiddenEdit), (std::vector<int>{EN_SETFOCUS, EN_CHANGE, EN_CHANGE}));
}

TEST_F(KeyConformance, ControlThatWasVisibleFromTheStartTakesNoKeysUntapped) {
    OpenDialogOnTap();
    Steps.Type(u"a");
    Steps.Do([&] {
        EXPECT_EQ(Dialog->ItemText(kEdit), u"");
        End(IDOK);
    });
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Ended.Count(WM_CHAR, u'a', 0), 1);
}

TEST_F(KeyConformance, FocusTravelsWithTheTapAndTheEditsTell) {
    OpenDialogOnTap();
    TapControl(kEdit);
    Steps.Type(u"x");
    TapControl(kNumber);
    Steps.Type(u"7q8");
    Steps.Do([&] {
        EXPECT_EQ(Dialog->ItemText(kEdit), u"x");
        EXPECT_EQ(Dialog->ItemText(kNumber), u"78"); // digits only
        End(IDOK);
    });
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Ended.CodesOf(kEdit), (std::vector<int>{EN_SETFOCUS, EN_CHANGE, EN_KILLFOCUS}));
    EXPECT_EQ(Ended.CodesOf(kNumber), (std::vector<int>{EN_SETFOCUS, EN_CHANGE, EN_CHANGE}));
}

TEST_F(KeyConformance, TabWalksTheControlsOfADialogOneByOne) {
    OpenDialogOnTap();
    for (const int control : {kEdit, kNumber, kFixedList, kEditableList, kDate, kTime, kCheck}) {
        Steps.Key(VK_TAB);
        Steps.Do([&, control] { EXPECT_EQ(Host.Windows().GetFocus(), DialogItem(control)) << control; });
    }
    for (const int control : {kTime, kDate, kEditableList}) {
        Steps.Key(VK_TAB, kModifierShift);
        Steps.Do([&, control] { EXPECT_EQ(Host.Windows().GetFocus(), DialogItem(control)) << control; });
    }
    Steps.Do([&] { End(IDOK); });
    ASSERT_TRUE(Steps.Finish(Pump));
}

TEST_F(KeyConformance, WhatIsTypedReplacesTheNumberThatTheFocusComesTo) {
    OpenDialogOnTap();
    Steps.Do([&] {
        Dialog->SetItemText(kNumber, u"15");
        Host.Controls().SetCurSel(DialogItem(kEditableList), 2);
        Host.Windows().SetFocus(DialogItem(kNumber));
    });
    Steps.Type(u"8");
    Steps.Do([&] { Host.Windows().SetFocus(DialogItem(kEditableList)); });
    Steps.Type(u"9");
    Steps.Do([&] {
        EXPECT_EQ(Dialog->ItemText(kNumber), u"8");
        EXPECT_EQ(Dialog->ItemText(kEditableList), u"9");
        End(IDOK);
    });
    ASSERT_TRUE(Steps.Finish(Pump));
}

TEST_F(KeyConformance, HidingTheFocusedEditTakesTheFocusAway) {
    OpenDialogOnTap();
    TapControl(kEdit);
    Steps.Do([&] {
        EXPECT_EQ(Host.Windows().GetFocus(), DialogItem(kEdit));
        Dialog->ShowItem(kEdit, false);
        EXPECT_EQ(Host.Windows().GetFocus(), WindowHandle::None);
    });
    Steps.Do([&] { End(IDOK); });
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Ended.CodesOf(kEdit), (std::vector<int>{EN_SETFOCUS, EN_KILLFOCUS}));
}

TEST_F(KeyConformance, KeyThatAnEditDoesNotUseReachesItsParent) {
    OpenDialogOnTap();
    TapControl(kEdit);
    Steps.Key(VK_F1);
    Steps.Do([&] { End(IDOK); });
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Ended.Count(WM_KEYDOWN, VK_F1, 0), 1);
}

TEST_F(KeyConformance, ReturnInAnEditIsTheDialogsOk) {
    OpenDialogOnTap();
    TapControl(kEdit);
    Steps.Key(VK_RETURN);
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Results, std::vector<int>{IDOK});
}

TEST_F(KeyConformance, KeyUpOfAKeyThatClosedADialogDoesNotReachThePage) {
    OpenDialogOnTap();
    Steps.Key(VK_RETURN);
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Results, std::vector<int>{IDOK});
    EXPECT_EQ(Page.Log.Count(WM_KEYUP), 0);
}

TEST_F(KeyConformance, DisabledWindowTakesNoKeys) {
    Host.Windows().EnableWindow(Page.Handle(), false);
    Steps.Key(VK_LEFT);
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Page.Log.Count(WM_KEYDOWN), 0);
    EXPECT_EQ(Page.Log.Count(WM_KEYUP), 0);
}

} // namespace

} // namespace tavo::conformance
