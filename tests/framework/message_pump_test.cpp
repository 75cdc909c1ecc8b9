// The loop, its nested form, answers, and the end of all loops.
#include "framework/message_pump.h"

#include "host/headless/device.h"
#include "tests/framework/plain_window.h"

#include <gtest/gtest.h>

namespace tavo {

namespace {

class MessagePumpTest : public ::testing::Test {
  protected:
    MessagePumpTest() {
        Frame.Make();
        Pump.SetMainWindow(Frame.Handle());
    }

    // With the commands 301 and 302; waits for the choice.
    int OpenMenu() {
        std::vector<MenuItem> items(2);
        items[0].Id = 301;
        items[1].Id = 302;
        return Pump.TrackPopupMenu(Frame.Handle(), items, {20, 30}, MenuAlign::Left);
    }

    headless::Device Device;
    CMessagePump Pump{Device.Host()};
    test::PlainWindow Frame{Pump};
};

TEST_F(MessagePumpTest, RunEndsWithTheQuitCode) {
    Device.Do([&] { Device.Host().Queue().PostQuitMessage(7); });
    EXPECT_EQ(Pump.Run(), 7);
    EXPECT_TRUE(Pump.HasQuit());
}

TEST_F(MessagePumpTest, MessageReachesItsWindowOnly) {
    test::PlainWindow child(Pump);
    ASSERT_TRUE(child.Make(Frame.Handle()));
    ASSERT_TRUE(Device.Finish(Pump)); // first paints
    Frame.Taken.clear();
    child.Taken.clear();
    child.Post(WM_USER, 1, 2, 3);
    ASSERT_TRUE(Device.Finish(Pump));
    ASSERT_EQ(child.Taken.size(), 1u);
    EXPECT_EQ(child.Taken[0], (Message{child.Handle(), WM_USER, 1, 2, 3, {}}));
    for (const Message& message : Frame.Taken) {
        EXPECT_NE(message.Number, WM_USER);
    }
}

TEST_F(MessagePumpTest, MessageWithoutAWindowGoesToTheMainWindow) {
    Device.Host().Queue().PostMessageW({WindowHandle::None, WM_USER, 4, 0, 0, {}});
    ASSERT_TRUE(Device.Finish(Pump));
    int count = 0;
    for (const Message& message : Frame.Taken) {
        count += message.Number == WM_USER && message.Id == 4 ? 1 : 0;
    }
    EXPECT_EQ(count, 1);
}

TEST_F(MessagePumpTest, MessageForAWindowThatIsGoneIsDropped) {
    auto child = std::make_unique<test::PlainWindow>(Pump);
    ASSERT_TRUE(child->Make(Frame.Handle()));
    child->Post(WM_USER);
    child.reset();
    EXPECT_TRUE(Device.Finish(Pump));
}

TEST_F(MessagePumpTest, NestedLoopHandsOutMessagesAndThenReturnsToTheOuterOne) {
    bool innerDone = false;
    std::vector<int> order;
    Frame.Hook = [&](const Message& message) {
        if (message.Number == WM_USER) {
            order.push_back(1);
            EXPECT_TRUE(Pump.RunUntil(innerDone));
            order.push_back(3);
        } else if (message.Number == WM_USER + 1) {
            order.push_back(2);
            innerDone = true;
        }
    };
    Frame.Post(WM_USER);
    Frame.Post(WM_USER + 1);
    ASSERT_TRUE(Device.Finish(Pump));
    EXPECT_EQ(order, (std::vector<int>{1, 2, 3}));
}

TEST_F(MessagePumpTest, QuitEndsEveryLoop) {
    const bool never = false;
    int ended = 0;
    Frame.Hook = [&](const Message& message) {
        if (message.Number == WM_USER && message.Id < 3) {
            Frame.Post(WM_USER, message.Id + 1);
            EXPECT_FALSE(Pump.RunUntil(never));
            ++ended;
        } else if (message.Number == WM_USER) {
            Device.Host().Queue().PostQuitMessage(2);
        }
    };
    Frame.Post(WM_USER, 0);
    EXPECT_EQ(Pump.Run(), 2);
    EXPECT_EQ(ended, 3);
}

TEST_F(MessagePumpTest, BoxThatIsOpenWhenTheProgramQuitsAnswersCancel) {
    int answer = 0;
    Frame.Hook = [&](const Message& message) {
        if (message.Number == WM_USER) {
            answer = Pump.ShowMessageBox(Frame.Handle(), {u"Continue?", u"", MessageBoxButtons::YesNo, {}});
        }
    };
    Frame.Post(WM_USER);
    Device.Do([&] { Device.Host().Queue().PostQuitMessage(0); });
    Pump.Run();
    EXPECT_EQ(answer, IDCANCEL);
}

TEST_F(MessagePumpTest, AnswersReachTheInnermostBoxFirst) {
    std::vector<int> answers;
    Frame.Hook = [&](const Message& message) {
        if (message.Number == WM_USER) {
            answers.push_back(Pump.ShowMessageBox(Frame.Handle(), {u"Outer", u"", MessageBoxButtons::YesNo, {}}));
        } else if (message.Number == WM_USER + 1) {
            answers.push_back(Pump.ShowMessageBox(Frame.Handle(), {u"Inner", u"", MessageBoxButtons::Ok, {}}));
        }
    };
    Frame.Post(WM_USER);
    Device.Do([&] { Frame.Post(WM_USER + 1); });
    Device.AnswerBox(IDOK);
    Device.AnswerBox(IDYES);
    ASSERT_TRUE(Device.Finish(Pump));
    EXPECT_EQ(answers, (std::vector<int>{IDOK, IDYES}));
}

TEST_F(MessagePumpTest, AnAnswerThatIsAwaitedIsNoMessageOfTheWindow) {
    Frame.Hook = [&](const Message& message) {
        if (message.Number == WM_USER) {
            EXPECT_EQ(Pump.ShowMessageBox(Frame.Handle(), {u"Continue?", u"", MessageBoxButtons::YesNo, {}}), IDYES);
        }
    };
    Frame.Post(WM_USER);
    Device.AnswerBox(IDYES);
    ASSERT_TRUE(Device.Finish(Pump));
    for (const Message& message : Frame.Taken) {
        EXPECT_NE(message.Number, WM_MESSAGEBOXCLOSED);
    }
}

TEST_F(MessagePumpTest, AMenuGivesTheChosenCommandOrNone) {
    std::vector<int> commands;
    Frame.Hook = [&](const Message& message) {
        if (message.Number == WM_USER) {
            commands.push_back(OpenMenu());
        }
    };
    for (const int command : {302, 0}) {
        Device.Do([&] { Frame.Post(WM_USER); });
        Device.ChooseTracked(command);
    }
    ASSERT_TRUE(Device.Finish(Pump));
    EXPECT_EQ(commands, (std::vector<int>{302, 0}));
}

TEST_F(MessagePumpTest, AMenuThatTheDeviceDoesNotOpenGivesNoCommand) {
    std::vector<int> commands;
    Frame.Hook = [&](const Message& message) {
        if (message.Number == WM_USER) { // the second comes while the first one's menu is open
            commands.push_back(OpenMenu());
        }
    };
    Frame.Post(WM_USER);
    Frame.Post(WM_USER);
    Device.ChooseTracked(301);
    ASSERT_TRUE(Device.Finish(Pump));
    EXPECT_EQ(commands, (std::vector<int>{0, 301}));
}

TEST_F(MessagePumpTest, AWindowThatIsGoneTakesNoMessageThatStillNamesIt) {
    test::PlainWindow child(Pump);
    ASSERT_TRUE(child.Make(Frame.Handle()));
    const WindowHandle handle = child.Handle();
    child.Destroy();
    Device.Host().Queue().PostMessageW({handle, WM_USER, 0, 0, 0, {}});
    ASSERT_TRUE(Device.Finish(Pump));
    EXPECT_TRUE(child.Taken.empty());
}

TEST_F(MessagePumpTest, ADialogThatEndsGivesTheFocusBack) {
    IWindows& windows = Device.Host().Windows();
    WindowDescription description;
    description.Kind = WindowKind::Dialog;
    description.Visible = true;
    const WindowHandle dialog = windows.CreateWindowExW(description);
    windows.SetFocus(Frame.Handle());
    Pump.PushDialog(dialog);
    windows.SetFocus(dialog);
    Pump.PopDialog(dialog);
    EXPECT_EQ(windows.GetFocus(), Frame.Handle());
}

TEST_F(MessagePumpTest, ModalDialogsDisableWhatLiesBeneathInTurn) {
    IWindows& windows = Device.Host().Windows();
    WindowDescription description;
    description.Kind = WindowKind::Dialog;
    description.Visible = true;
    const WindowHandle first = windows.CreateWindowExW(description);
    const WindowHandle second = windows.CreateWindowExW(description);
    EXPECT_EQ(Pump.TopDialog(), WindowHandle::None);
    Pump.PushDialog(first);
    Pump.PushDialog(second);
    EXPECT_EQ(Pump.TopDialog(), second);
    EXPECT_FALSE(windows.IsWindowEnabled(Frame.Handle()));
    EXPECT_FALSE(windows.IsWindowEnabled(first));
    EXPECT_TRUE(windows.IsWindowEnabled(second));
    Pump.PopDialog(second);
    EXPECT_TRUE(windows.IsWindowEnabled(first));
    EXPECT_FALSE(windows.IsWindowEnabled(Frame.Handle()));
    Pump.PopDialog(first);
    EXPECT_TRUE(windows.IsWindowEnabled(Frame.Handle()));
    EXPECT_EQ(Pump.TopDialog(), WindowHandle::None);
}

} // namespace

} // namespace tavo
