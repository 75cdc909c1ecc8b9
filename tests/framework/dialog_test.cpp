// Modal dialogs and their results.
#include "framework/dialog.h"

#include "framework/message_pump.h"
#include "host/headless/device.h"
#include "tests/framework/plain_window.h"

#include <gtest/gtest.h>

#include <vector>

namespace tavo {

namespace {

constexpr int kWord = 101;

constexpr DialogItem kItems[] = {
    {ControlKind::Edit, kWord, u"", Rect::FromSize(10, 10, 60, 12)},
    {ControlKind::PushButton, IDOK, u"OK", Rect::FromSize(10, 40, 40, 14)},
    {ControlKind::PushButton, IDCANCEL, u"Cancel", Rect::FromSize(60, 40, 40, 14)},
};
const DialogTemplate kForm{100, u"About", {153, 170}, 8, kItems};
constexpr int kModify = 10;

class PlainDialog : public CDialog {
  public:
    explicit PlainDialog(CMessagePump& pump) : CDialog(pump, kForm) {}

    using CDialog::EndDialog;
    using CFormWindow::AddControl;
    using CFormWindow::Item;

    std::function<void()> OnOpen;
    std::u16string WordAtQuit;     // in the edit field
    std::vector<int> KeysLeftOver; // by the dialog's own tables

  protected:
    void OnInitDialog() override {
        if (OnOpen) {
            OnOpen();
        }
    }

    void OnQuit() override { WordAtQuit = ItemText(kWord); }

    void HandleByDefault(const Message& message) override {
        if (message.Number == WM_KEYDOWN) {
            KeysLeftOver.push_back(message.Id);
        }
    }
};

class DialogTest : public ::testing::Test {
  protected:
    DialogTest() {
        Frame.Make();
        Pump.SetMainWindow(Frame.Handle());
    }

    headless::Device Device;
    CMessagePump Pump{Device.Host()};
    test::PlainWindow Frame{Pump};
    PlainDialog Dialog{Pump};
};

TEST_F(DialogTest, OkAndCloseOfTheNavigationBarEndIt) {
    Device.PressOk();
    EXPECT_EQ(Dialog.DoModal(), IDOK);
    Device.PressClose();
    EXPECT_EQ(Dialog.DoModal(), IDCANCEL);
}

TEST_F(DialogTest, ButtonsOfTheNavigationBarCanBeTapped) {
    Device.TapScreen({200, 13});
    EXPECT_EQ(Dialog.DoModal(), IDOK);
    Device.TapScreen({227, 13});
    EXPECT_EQ(Dialog.DoModal(), IDCANCEL);
}

TEST_F(DialogTest, ReturnIsOkAndEscapeIsCancel) {
    Device.Key(VK_RETURN);
    EXPECT_EQ(Dialog.DoModal(), IDOK);
    Device.Key(VK_ESCAPE);
    EXPECT_EQ(Dialog.DoModal(), IDCANCEL);
}

TEST_F(DialogTest, ReturnOnCancelIsCancelAndAnywhereElseOk) {
    for (const int control : {kWord, IDOK, IDCANCEL}) {
        Dialog.OnOpen = [this, control] {
            Device.Do([this, control] { Device.Host().Windows().SetFocus(Dialog.Item(control)); });
            Device.Key(VK_RETURN);
        };
        EXPECT_EQ(Dialog.DoModal(), control == IDCANCEL ? IDCANCEL : IDOK) << control;
    }
}

constexpr DialogItem kStops[] = {
    {ControlKind::Label, 201, u"Name", Rect::FromSize(10, 10, 30, 12)},
    {ControlKind::Edit, 202, u"", Rect::FromSize(50, 10, 60, 12)},
    {ControlKind::ScrollBar, 203, u"", Rect::FromSize(120, 10, 10, 40)},
    {ControlKind::CheckBox, 204, u"Hidden", Rect::FromSize(10, 30, 60, 12), false},
    {ControlKind::CheckBox, 205, u"Greyed", Rect::FromSize(10, 40, 60, 12)},
    {ControlKind::CheckBox, 206, u"Check", Rect::FromSize(10, 50, 60, 12)},
    {ControlKind::PushButton, IDCANCEL, u"Cancel", Rect::FromSize(60, 70, 40, 14)},
};
const DialogTemplate kFormOfStops{101, u"Stops", {153, 170}, 8, kStops};

class DialogOfStops : public CDialog {
  public:
    explicit DialogOfStops(CMessagePump& pump) : CDialog(pump, kFormOfStops) {}

    using CFormWindow::Item;

  protected:
    void OnInitDialog() override { Host().Windows().EnableWindow(Item(205), false); }
};

class FocusWalk : public DialogTest {
  protected:
    // The focus after each press, by the controls' ids.
    std::vector<int> PressTab(int modifiers, int times) {
        std::vector<int> ids;
        for (int time = 0; time < times; ++time) {
            Device.Key(VK_TAB, modifiers);
            Device.Do([this, &ids] {
                for (const DialogItem& item : kStops) {
                    if (Walked.Item(item.Id) == Device.Host().Windows().GetFocus()) {
                        ids.push_back(item.Id);
                    }
                }
            });
        }
        Device.PressClose();
        EXPECT_EQ(Walked.DoModal(), IDCANCEL);
        return ids;
    }

    DialogOfStops Walked{Pump};
};

TEST_F(FocusWalk, TabGoesThroughWhatTakesKeysAndAround) {
    EXPECT_EQ(PressTab(0, 4), (std::vector<int>{202, 206, IDCANCEL, 202}));
}

TEST_F(FocusWalk, ShiftAndTabGoTheOtherWay) {
    EXPECT_EQ(PressTab(kModifierShift, 4), (std::vector<int>{IDCANCEL, 206, 202, IDCANCEL}));
}

TEST_F(DialogTest, FirstResultCounts) {
    Device.Do([&] {
        Dialog.EndDialog(kModify);
        Dialog.EndDialog(IDOK);
        Device.Host().Queue().PostMessageW({});
    });
    EXPECT_EQ(Dialog.DoModal(), kModify);
}

TEST_F(DialogTest, EndedWhileItOpensItIsNeverShown) {
    Dialog.OnOpen = [&] { Dialog.EndDialog(kModify); };
    EXPECT_EQ(Dialog.DoModal(), kModify);
    EXPECT_EQ(Device.Host().State.Tree.TopDialog(), WindowHandle::None);
    EXPECT_TRUE(Device.Host().Windows().IsWindowEnabled(Frame.Handle()));
}

TEST_F(DialogTest, FrameIsDisabledMeanwhileAndTheWindowGoesAfterwards) {
    bool wasEnabled = true;
    Dialog.OnOpen = [&] { wasEnabled = Device.Host().Windows().IsWindowEnabled(Frame.Handle()); };
    Device.PressOk();
    Dialog.DoModal();
    EXPECT_FALSE(wasEnabled);
    EXPECT_TRUE(Device.Host().Windows().IsWindowEnabled(Frame.Handle()));
    EXPECT_EQ(Dialog.Handle(), WindowHandle::None);
}

TEST_F(DialogTest, QuitMeanwhileIsCancel) {
    Device.Do([&] { Device.Host().Queue().PostQuitMessage(0); });
    EXPECT_EQ(Dialog.DoModal(), IDCANCEL);
    EXPECT_TRUE(Pump.HasQuit());
}

TEST_F(DialogTest, WhenTheProgramQuitsItsControlsStillHoldWhatTheyHold) {
    Device.TypeInto(kWord, u"draft");
    Device.Quit();
    Dialog.DoModal();
    EXPECT_EQ(Dialog.WordAtQuit, u"draft");
}

TEST_F(DialogTest, ItsEndIsNoQuit) {
    Device.TypeInto(kWord, u"draft");
    Device.PressOk();
    Dialog.DoModal();
    EXPECT_EQ(Dialog.WordAtQuit, u"");
}

TEST_F(DialogTest, CoversTheWholeClientArea) {
    Dialog.OnOpen = [this] {
        const shell::WindowTree& tree = Device.Host().State.Tree;
        EXPECT_EQ(tree.ScreenBounds(Dialog.Handle()), kClientArea);
    };
    Device.PressOk();
    EXPECT_EQ(Dialog.DoModal(), IDOK);
}

TEST_F(DialogTest, KeysThatMeanSomethingToItAreUsedUp) {
    for (const int key : {VK_TAB, VK_F1, VK_RETURN}) {
        Device.Key(key);
    }
    EXPECT_EQ(Dialog.DoModal(), IDOK);
    EXPECT_EQ(Dialog.KeysLeftOver, std::vector<int>{VK_F1});
}

TEST_F(DialogTest, TheFocusComesBackToWhatHadIt) {
    test::PlainWindow field(Pump);
    ASSERT_TRUE(field.Make(Frame.Handle()));
    IWindows& windows = Device.Host().Windows();
    windows.SetFocus(field.Handle());
    Dialog.OnOpen = [&] { windows.SetFocus(Dialog.Item(kWord)); };
    Device.PressOk();
    Dialog.DoModal();
    EXPECT_EQ(windows.GetFocus(), field.Handle());
}

TEST_F(DialogTest, OpenedAgainItHasNothingThatWasAddedBefore) {
    constexpr int kAdded = 777;
    Dialog.OnOpen = [this] {
        ControlDescription bar;
        bar.Kind = ControlKind::ScrollBar;
        bar.Id = kAdded;
        EXPECT_NE(Dialog.AddControl(bar), WindowHandle::None);
    };
    Device.PressOk();
    Dialog.DoModal();
    Dialog.OnOpen = [this] { EXPECT_EQ(Dialog.Item(kAdded), WindowHandle::None); };
    Device.PressOk();
    Dialog.DoModal();
}

} // namespace

} // namespace tavo
