// Dialogs over dialogs, message boxes over both, and their ends.
#include "tests/conformance/conformance_test.h"

namespace tavo::conformance {

namespace {

class ModalConformance : public ConformanceTest {
  protected:
    // A tap on the dialog's push button opens the same dialog again over it.
    void NestOnPush() {
        Prepare = [this](ScratchDialog& dialog) {
            dialog.Log.Hook = [this](const Message& message) {
                if (message.Id == kPush && message.Code == BN_CLICKED) {
                    ScratchDialog inner(Pump);
                    ScratchDialog* const outer = std::exchange(Dialog, &inner);
                    Results.push_back(inner.DoModal());
                    Dialog = outer;
                    Ended = inner.Log;
                }
            };
        };
    }

    // A tap on the dialog's push button asks a question.
    void AskOnPush(MessageBoxButtons buttons) {
        Prepare = [this, buttons](ScratchDialog& dialog) {
            dialog.Log.Hook = [this, buttons, &dialog](const Message& message) {
                if (message.Id == kPush && message.Code == BN_CLICKED) {
                    MessageBoxDescription box;
                    box.Text = u"Are you sure to delete?";
                    box.Caption = u"Delete";
                    box.Buttons = buttons;
                    Answers.push_back(Pump.ShowMessageBox(dialog.Handle(), box));
                }
            };
        };
    }

    std::vector<int> Answers;
};

TEST_F(ModalConformance, DialogLiesOverThePageUntilItEnds) {
    EXPECT_EQ(Driver->Caption(), u"Scratch page");
    OpenDialogOnTap();
    Steps.Do([&] {
        EXPECT_EQ(Driver->Caption(), u"Scratch dialog");
        EXPECT_FALSE(Host.Windows().IsWindowEnabled(Page.Handle()));
        EXPECT_TRUE(Host.Windows().IsWindowVisible(Page.Handle()));
        End(10);
    });
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Results, std::vector<int>{10});
    EXPECT_TRUE(Host.Windows().IsWindowEnabled(Page.Handle()));
    EXPECT_EQ(Driver->Caption(), u"Scratch page");
}

TEST_F(ModalConformance, InnerDialogEndsFirstAndTheOuterTakesInputAgain) {
    NestOnPush();
    OpenDialogOnTap();
    TapControl(kPush);
    TapControl(kCheck); // of the inner one
    Steps.Do([&] {
        EXPECT_TRUE(Host.Controls().GetCheck(DialogItem(kCheck)));
        End(11);
    });
    Steps.Do([&] { EXPECT_FALSE(Host.Controls().GetCheck(DialogItem(kCheck))); });
    TapControl(kCheck); // of the outer one
    Steps.Do([&] {
        EXPECT_TRUE(Host.Controls().GetCheck(DialogItem(kCheck)));
        End(IDOK);
    });
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Results, (std::vector<int>{11, IDOK}));
}

TEST_F(ModalConformance, FocusComesBackWhenTheDialogAboveEnds) {
    NestOnPush();
    OpenDialogOnTap();
    TapControl(kEdit);
    WindowHandle edit = WindowHandle::None;
    Steps.Do([&] {
        edit = DialogItem(kEdit);
        Host.Queue().PostMessageW({Dialog->Handle(), WM_COMMAND, kPush, BN_CLICKED, 0, {}});
    });
    Steps.Do([&] {
        EXPECT_NE(Host.Windows().GetFocus(), edit);
        End(IDOK);
    });
    Steps.Do([&] {
        EXPECT_EQ(Host.Windows().GetFocus(), edit);
        End(IDOK);
    });
    ASSERT_TRUE(Steps.Finish(Pump));
}

TEST_F(ModalConformance, BoxOverADialogOverAPageTakesAllInput) {
    AskOnPush(MessageBoxButtons::YesNo);
    OpenDialogOnTap();
    TapControl(kPush);
    Steps.Do([&] { EXPECT_EQ(Driver->BoxText(), u"Are you sure to delete?"); });
    Steps.Key(VK_F1);
    Steps.AnswerBox(IDNO);
    Steps.Do([&] {
        EXPECT_EQ(Driver->BoxText(), u"");
        EXPECT_EQ(Answers, std::vector<int>{IDNO});
        EXPECT_EQ(Dialog->Log.Count(WM_KEYDOWN), 0);
    });
    TapControl(kPush);
    Steps.AnswerBox(IDYES);
    Steps.Do([&] { End(IDOK); });
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Answers, (std::vector<int>{IDNO, IDYES}));
}

TEST_F(ModalConformance, EscapeAnswersABoxWithOneButtonOnly) {
    AskOnPush(MessageBoxButtons::Ok);
    OpenDialogOnTap();
    TapControl(kPush);
    Steps.Key(VK_ESCAPE);
    Steps.Do([&] {
        EXPECT_EQ(Answers, std::vector<int>{IDOK});
        ASSERT_NE(Dialog, nullptr); // the dialog stays
        End(IDYES);
    });
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Results, std::vector<int>{IDYES});
}

TEST_F(ModalConformance, EscapeDoesNotAnswerAQuestion) {
    AskOnPush(MessageBoxButtons::YesNo);
    OpenDialogOnTap();
    TapControl(kPush);
    Steps.Key(VK_ESCAPE);
    Steps.Do([&] { EXPECT_EQ(Driver->BoxText(), u"Are you sure to delete?"); });
    Steps.AnswerBox(IDYES);
    Steps.Do([&] { End(IDOK); });
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Answers, std::vector<int>{IDYES});
}

TEST_F(ModalConformance, BoxWithoutAnOwnerLiesOverEverything) {
    int answer = 0;
    Steps.Do([&] { Host.Queue().PostMessageW({View.Handle(), WM_USER, 0, 0, 0, {}}); });
    View.Log.Hook = [&](const Message& message) {
        if (message.Number == WM_USER) {
            MessageBoxDescription box;
            box.Text = u"Error occurred [001:5]";
            answer = Pump.ShowMessageBox(WindowHandle::None, box);
        }
    };
    Steps.Tap(50, 50); // dropped
    Steps.Do([&] { EXPECT_EQ(Driver->BoxText(), u"Error occurred [001:5]"); });
    Steps.AnswerBox(IDOK);
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(answer, IDOK);
    EXPECT_EQ(Page.Log.Count(WM_LBUTTONDOWN), 0);
}

TEST_F(ModalConformance, DoubleTapOnAButtonOpensOneDialog) {
    NestOnPush();
    OpenDialogOnTap();
    Steps.Do([&] {
        for (int tap = 0; tap < 2; ++tap) {
            Driver->PressStylus(PlaceOf(kPush));
            Driver->ReleaseStylus(PlaceOf(kPush));
        }
    });
    Steps.Do([&] { End(10); });
    Steps.Do([&] { End(11); });
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Results, (std::vector<int>{10, 11}));
}

} // namespace

} // namespace tavo::conformance
