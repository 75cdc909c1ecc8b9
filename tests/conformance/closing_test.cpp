// "ok", ×, Escape, the desktop window's own close, and quitting.
#include "tests/conformance/conformance_test.h"

namespace tavo::conformance {

namespace {

using ClosingConformance = ConformanceTest;

TEST_F(ClosingConformance, EscapeWithNothingToCloseDoesNothing) {
    Steps.Key(VK_ESCAPE);
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Page.Log.Count(WM_CLOSE), 0);
    EXPECT_EQ(Page.Log.Count(WM_KEYDOWN), 0);
    EXPECT_TRUE(Host.Windows().IsWindowVisible(Page.Handle()));
}

TEST_F(ClosingConformance, TheDesktopsCloseAsksThePage) {
    Steps.Do([&] { Driver->RequestClose(); });
    ASSERT_TRUE(Steps.Finish(Pump)); // refused by doing nothing: the program runs on
    EXPECT_EQ(Page.Log.Count(WM_CLOSE), 1);
    EXPECT_EQ(Frame.Log.Count(WM_QUERYENDSESSION), 0);
    EXPECT_TRUE(Host.Windows().IsWindowVisible(Page.Handle()));
}

TEST_F(ClosingConformance, EscapeCancelsTheDialog) {
    OpenDialogOnTap();
    Steps.Key(VK_ESCAPE);
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Results, std::vector<int>{IDCANCEL});
    EXPECT_EQ(Page.Log.Count(WM_CLOSE), 0);
}

TEST_F(ClosingConformance, DesktopsCloseIsTheTopDialogsCancel) {
    OpenDialogOnTap();
    Steps.Do([&] { Driver->RequestClose(); });
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Results, std::vector<int>{IDCANCEL});
    EXPECT_EQ(Page.Log.Count(WM_CLOSE), 0);
}

TEST_F(ClosingConformance, DialogMayRefuseToClose) {
    int asked = 0;
    Prepare = [&](ScratchDialog& dialog) { dialog.MayClose = [&] { return ++asked > 1; }; };
    OpenDialogOnTap();
    Steps.Do([&] { Driver->RequestClose(); });
    Steps.Do([&] { EXPECT_NE(Dialog, nullptr); });
    Steps.Key(VK_ESCAPE);
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(Results, std::vector<int>{IDCANCEL});
}

TEST_F(ClosingConformance, QuitAsksTheMainWindowOnce) {
    Steps.Do([&] {
        Driver->RequestQuit();
        Driver->RequestQuit();
    });
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Frame.Log.Count(WM_QUERYENDSESSION), 1);
    EXPECT_EQ(Page.Log.Count(WM_CLOSE), 0);
}

TEST_F(ClosingConformance, QuitReachesTheMainWindowBehindADialog) {
    OpenDialogOnTap();
    Frame.Log.Hook = [&](const Message& message) {
        if (message.Number == WM_QUERYENDSESSION) {
            Host.Queue().PostQuitMessage(3);
        }
    };
    Steps.Do([&] { Driver->RequestQuit(); });
    EXPECT_EQ(Pump.Run(), 3);
    EXPECT_EQ(Results, std::vector<int>{IDCANCEL}); // its loop ended with the program
}

TEST_F(ClosingConformance, QuitMessageComesAgainAtEveryWait) {
    Host.Queue().PostQuitMessage(5);
    Host.Queue().PostMessageW({Page.Handle(), WM_USER, 0, 0, 0, {}});
    for (int wait = 0; wait < 3; ++wait) {
        const Message message = Host.Queue().Wait();
        EXPECT_EQ(message.Number, WM_QUIT);
        EXPECT_EQ(message.Id, 5);
    }
}

TEST_F(ClosingConformance, WindowIsFoundByClassAndTitle) {
    Host.Windows().SetWindowTextW(Frame.Handle(), u"Tested");
    EXPECT_EQ(Host.Windows().FindWindowW(u"ScratchClass", u"Tested"), Frame.Handle());
    EXPECT_EQ(Host.Windows().FindWindowW(u"ScratchClass", u"Scratch"), WindowHandle::None);
    EXPECT_EQ(Host.Windows().FindWindowW(u"Other", u"Tested"), WindowHandle::None);
}

} // namespace

} // namespace tavo::conformance
