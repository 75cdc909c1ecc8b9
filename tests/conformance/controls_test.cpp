// One dialog with a control of every kind.
#include "platform/typing.h"
#include "tests/conformance/conformance_test.h"

namespace tavo::conformance {

namespace {

class ControlConformance : public ConformanceTest {
  protected:
    void CloseDialog() {
        Steps.Do([&] { End(IDOK); });
    }
};

TEST_F(ControlConformance, TextSetByTheProgramIsShownAndTellsNothing) {
    OpenDialogOnTap();
    Steps.Do([&] {
        Dialog->SetItemText(kEdit, u"Lunch");
        Dialog->SetItemText(kNumber, u"15");
        Dialog->SetItemText(kEditableList, u"Grey");
        Dialog->SetItemText(kLabel, u"Time :");
        EXPECT_EQ(Dialog->ItemText(kEdit), u"Lunch");
    });
    Steps.Do([&] {
        EXPECT_EQ(Driver->ShownTextOf(DialogItem(kEdit)), u"Lunch");
        EXPECT_EQ(Driver->ShownTextOf(DialogItem(kNumber)), u"15");
        EXPECT_EQ(Driver->ShownTextOf(DialogItem(kEditableList)), u"Grey");
        EXPECT_EQ(Driver->ShownTextOf(DialogItem(kLabel)), u"Time :");
    });
    CloseDialog();
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Ended.Count(WM_COMMAND), 0);
}

TEST_F(ControlConformance, TypedTextStopsAtTheLimit) {
    OpenDialogOnTap();
    Steps.Do([&] { Host.Controls().SetTextLimit(DialogItem(kEdit), 3); });
    TapControl(kEdit);
    Steps.Type(u"abcd");
    Steps.Do([&] { EXPECT_EQ(Dialog->ItemText(kEdit), u"abc"); });
    CloseDialog();
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Ended.Count(WM_COMMAND, kEdit, EN_CHANGE), 3);
}

TEST_F(ControlConformance, TypingReplacesTheSelection) {
    OpenDialogOnTap();
    Steps.Do([&] { Dialog->SetItemText(kEdit, u"Meeting"); });
    TapControl(kEdit);
    Steps.Do([&] { Host.Controls().SetTextSelection(DialogItem(kEdit), 0, -1); });
    Steps.Type(u"A");
    Steps.Do([&] { EXPECT_EQ(Dialog->ItemText(kEdit), u"A"); });
    CloseDialog();
    ASSERT_TRUE(Steps.Finish(Pump));
}

TEST_F(ControlConformance, BackspaceTakesTheLastCharacter) {
    OpenDialogOnTap();
    TapControl(kEdit);
    Steps.Type(u"ab");
    Steps.Key(VK_BACK);
    Steps.Do([&] { EXPECT_EQ(Dialog->ItemText(kEdit), u"a"); });
    CloseDialog();
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Ended.Count(WM_COMMAND, kEdit, EN_CHANGE), 3);
}

TEST_F(ControlConformance, CheckBoxTurnsWithEachTap) {
    OpenDialogOnTap();
    TapControl(kCheck);
    Steps.Do([&] { EXPECT_TRUE(Host.Controls().GetCheck(DialogItem(kCheck))); });
    TapControl(kCheck);
    Steps.Do([&] { EXPECT_FALSE(Host.Controls().GetCheck(DialogItem(kCheck))); });
    CloseDialog();
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Ended.Count(WM_COMMAND, kCheck, BN_CLICKED), 2);
}

TEST_F(ControlConformance, RadioButtonClearsItsOwnGroupOnly) {
    OpenDialogOnTap();
    TapControl(kFirstOfOne);
    TapControl(kSecondOfTwo);
    TapControl(kSecondOfOne);
    Steps.Do([&] {
        EXPECT_FALSE(Host.Controls().GetCheck(DialogItem(kFirstOfOne)));
        EXPECT_TRUE(Host.Controls().GetCheck(DialogItem(kSecondOfOne)));
        EXPECT_FALSE(Host.Controls().GetCheck(DialogItem(kFirstOfTwo)));
        EXPECT_TRUE(Host.Controls().GetCheck(DialogItem(kSecondOfTwo)));
    });
    CloseDialog();
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Ended.Count(WM_COMMAND, kFirstOfOne, BN_CLICKED), 1);
}

TEST_F(ControlConformance, ProgramChecksAreSilentAndClearTheGroup) {
    OpenDialogOnTap();
    Steps.Do([&] {
        IControls& controls = Host.Controls();
        controls.SetCheck(DialogItem(kFirstOfTwo), true);
        controls.SetCheck(DialogItem(kSecondOfTwo), true);
        controls.SetCheck(DialogItem(kCheck), true);
        controls.SetCheck(DialogItem(kPicture), true);
        EXPECT_FALSE(controls.GetCheck(DialogItem(kFirstOfTwo)));
        EXPECT_TRUE(controls.GetCheck(DialogItem(kSecondOfTwo)));
        EXPECT_TRUE(controls.GetCheck(DialogItem(kCheck)));
        EXPECT_TRUE(controls.GetCheck(DialogItem(kPicture)));
    });
    CloseDialog();
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Ended.Count(WM_COMMAND), 0);
}

TEST_F(ControlConformance, ButtonsTellEachTapAndKeepTheirPicture) {
    OpenDialogOnTap();
    TapControl(kPush);
    TapControl(kPicture);
    Steps.Do([&] { EXPECT_FALSE(Host.Controls().GetCheck(DialogItem(kPicture))); }); // the program turns it
    CloseDialog();
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Ended.Count(WM_COMMAND, kPush, BN_CLICKED), 1);
    EXPECT_EQ(Ended.Count(WM_COMMAND, kPicture, BN_CLICKED), 1);
    EXPECT_EQ(Ended.All.front().Value, 0); // from a control
}

TEST_F(ControlConformance, DisabledAndHiddenControlsTakeNoTaps) {
    OpenDialogOnTap();
    Steps.Do([&] {
        Dialog->EnableItem(kCheck, false);
        Dialog->ShowItem(kPush, false);
        EXPECT_FALSE(Driver->IsControlShown(DialogItem(kPush)));
    });
    TapControl(kCheck);
    TapControl(kPush);
    Steps.Do([&] { EXPECT_FALSE(Host.Controls().GetCheck(DialogItem(kCheck))); });
    CloseDialog();
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Ended.Count(WM_COMMAND), 0);
}

TEST_F(ControlConformance, PickersTellThePersonsChangesAndKeepTheOtherHalf) {
    OpenDialogOnTap();
    const SYSTEMTIME set{2004, 2, 0, 29, 13, 45, 0, 0};
    Steps.Do([&] {
        EXPECT_TRUE(Host.Controls().SetSystemtime(DialogItem(kDate), set));
        EXPECT_TRUE(Host.Controls().SetSystemtime(DialogItem(kTime), set));
    });
    Steps.Do([&] { Driver->Pick(DialogItem(kDate), {2005, 3, 0, 1, 0, 0, 0, 0}); });
    Steps.Do([&] { Driver->Pick(DialogItem(kTime), {1999, 1, 0, 1, 8, 30, 0, 0}); });
    Steps.Do([&] {
        EXPECT_EQ(Host.Controls().GetSystemtime(DialogItem(kDate)), (SYSTEMTIME{2005, 3, 2, 1, 13, 45, 0, 0}));
        EXPECT_EQ(Host.Controls().GetSystemtime(DialogItem(kTime)), (SYSTEMTIME{2004, 2, 0, 29, 8, 30, 0, 0}));
    });
    CloseDialog();
    Prepare = [](ScratchDialog&) {};
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Results, std::vector<int>{IDOK});
}

TEST_F(ControlConformance, PickersSayNothingWhenSetAndRefuseImpossibleDates) {
    std::vector<Message> notices;
    OpenDialogOnTap();
    Prepare = [&](ScratchDialog& dialog) {
        dialog.Log.Hook = [&](const Message& message) {
            if (message.Number == WM_NOTIFY && message.Code != DTN_USERSTRING) { // the hand may have typed it
                notices.push_back(message);
            }
        };
    };
    Steps.Do([&] {
        EXPECT_TRUE(Host.Controls().SetSystemtime(DialogItem(kDate), {2004, 2, 0, 29, 0, 0, 0, 0}));
        EXPECT_FALSE(Host.Controls().SetSystemtime(DialogItem(kDate), {2005, 2, 0, 29, 0, 0, 0, 0}));
        EXPECT_EQ(Host.Controls().GetSystemtime(DialogItem(kDate)).Year, 2004);
    });
    Steps.Do([&] { Driver->Pick(DialogItem(kDate), {2004, 12, 0, 24, 0, 0, 0, 0}); });
    CloseDialog();
    ASSERT_TRUE(Steps.Finish(Pump));
    ASSERT_EQ(notices.size(), 1u);
    EXPECT_EQ(notices[0].Id, kDate);
    EXPECT_EQ(notices[0].Code, DTN_DATETIMECHANGE);
}

TEST_F(ControlConformance, ScrollBarAsksAndMovesOnlyWhenTold) {
    OpenDialogOnTap();
    Steps.Do([&] { Host.Controls().SetScrollInfo(DialogItem(kScroll), {0, 20, 4}); });
    Steps.Do([&] { Driver->Scroll(DialogItem(kScroll), SB_LINEDOWN, 0); });
    Steps.Do([&] { Driver->Scroll(DialogItem(kScroll), SB_THUMBTRACK, 9); });
    Steps.Do([&] {
        EXPECT_EQ(Host.Controls().GetScrollInfo(DialogItem(kScroll)), (ScrollInfo{0, 20, 4}));
        Host.Controls().SetScrollInfo(DialogItem(kScroll), {0, 20, 9});
        EXPECT_EQ(Host.Controls().GetScrollInfo(DialogItem(kScroll)).Position, 9);
    });
    CloseDialog();
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Ended.Count(WM_VSCROLL, kScroll, SB_LINEDOWN), 1);
    ASSERT_EQ(Ended.Count(WM_VSCROLL, kScroll, SB_THUMBTRACK), 1);
    for (const Message& message : Ended.All) {
        if (message.Number == WM_VSCROLL && message.Code == SB_THUMBTRACK) {
            EXPECT_EQ(message.Value, 9);
        }
    }
}

TEST_F(ControlConformance, PaperGivesBackTheBytesItWasGiven) {
    OpenDialogOnTap();
    Steps.Do([&] {
        IInk& ink = Host.Ink();
        const WindowHandle paper = DialogItem(kPaper);
        EXPECT_EQ(ink.SendMessageW(paper, kInkGetDataLength, 0, 0), 0);
        EXPECT_TRUE(ink.GetData(paper).empty());
        ink.SendMessageW(paper, kInkSetPageStyle, kInkStyleRuled, 0);
        ink.SendMessageW(paper, kInkSetView, kInkViewWriting, 0);
        EXPECT_EQ(ink.SendMessageW(paper, kInkGetPageStyle, 0, 0), kInkStyleRuled);
        EXPECT_EQ(ink.SendMessageW(paper, kInkGetView, 0, 0), kInkViewWriting);
    });
    CloseDialog();
    ASSERT_TRUE(Steps.Finish(Pump));
}

TEST_F(ControlConformance, ControlsGoWithTheirDialog) {
    OpenDialogOnTap();
    WindowHandle edit = WindowHandle::None;
    Steps.Do([&] {
        edit = DialogItem(kEdit);
        EXPECT_TRUE(Host.Windows().IsWindowVisible(edit));
        End(IDOK);
    });
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_FALSE(Host.Windows().IsWindowVisible(edit));
    EXPECT_EQ(Host.Controls().GetWindowTextW(edit), u"");
}

} // namespace

} // namespace tavo::conformance
