// The smallest program there is.
#include "tests/qt/desktop_test.h"

#include <QTimer>

#include <algorithm>

namespace tavo::qt {
namespace {

constexpr MessageNumber kEndOfRun = WM_USER + 7000;

} // namespace

DesktopTest::DesktopTest() {
    IWindows& windows = Host.Windows();
    WindowDescription description;
    description.Kind = WindowKind::Frame;
    description.ClassName = u"TestClass";
    description.Title = u"Test";
    description.Visible = true;
    Frame = windows.CreateWindowExW(description);
    description.Kind = WindowKind::View;
    description.Parent = Frame;
    View = windows.CreateWindowExW(description);
    description.Kind = WindowKind::Page;
    description.Parent = View;
    description.Title = u"Test page";
    description.Buttons = NavigationButtons::Close;
    Page = windows.CreateWindowExW(description);
    Run();
}

void DesktopTest::Paint() {
    if (!Surface) {
        Surface = Host.Drawing().CreateCompatibleSurface({240, 267});
    }
    Surface->FillRect({0, 0, 240, 267}, kWhite);
    Surface->FillRect(kSquare, kRed);
    Host.Drawing().Present(Page, *Surface, Items);
}

void DesktopTest::Run(std::chrono::milliseconds time) {
    bool isOver = false;
    EventScript script([&] {
        Host.Queue().PostMessageW({Frame, kEndOfRun, 0, 0, 0, {}});
        isOver = true;
    });
    script.Pass(time);
    while (true) {
        const Message message = Host.Queue().Wait();
        if (message.Number == kEndOfRun && isOver) {
            return;
        }
        Log.push_back(message);
        if (message.Window == Page && message.Number == WM_DISPLAYCHANGE) {
            Surface.reset();
            Host.Windows().InvalidateRect(Page, {0, 0, 240, 268});
        } else if (message.Window == Page && message.Number == WM_PAINT) {
            Paint();
        }
    }
}

int DesktopTest::Count(MessageNumber number) const {
    return static_cast<int>(
        std::count_if(Log.begin(), Log.end(), [&](const Message& message) { return message.Number == number; }));
}

std::vector<Message> DesktopTest::StylusMessages() const {
    std::vector<Message> found;
    std::copy_if(Log.begin(), Log.end(), std::back_inserter(found), [](const Message& message) {
        return message.Number >= WM_MOUSEMOVE && message.Number <= WM_LBUTTONUP;
    });
    return found;
}

} // namespace tavo::qt
