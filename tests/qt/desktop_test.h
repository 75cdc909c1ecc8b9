// A page on the desktop host: it paints one red square and keeps every message.
#pragma once

#include "host/qt/host.h"
#include "tests/qt/event_script.h"
#include "tests/qt/temporary_root.h"

#include <gtest/gtest.h>

#include <vector>

namespace tavo::qt {

constexpr Color kRed = Color::FromRgb(255, 0, 0);
constexpr Color kWhite = Color::FromRgb(255, 255, 255);
constexpr Rect kSquare{10, 10, 20, 21}; // in the page

class DesktopTest : public testing::Test {
  protected:
    DesktopTest();

    // Takes messages, painting where asked, until the program has waited that long with nothing to do.
    void Run(std::chrono::milliseconds time = std::chrono::milliseconds(0));
    void Paint();

    int Count(MessageNumber number) const;
    std::vector<Message> StylusMessages() const;

    DesktopWindow& Desktop() { return Host.Desktop(); }

    PaintedWidget& PageWidget() { return *Host.Views().FindPainted(Page); }

    TemporaryRoot Root;
    QtHost Host{{Root.Open(), ""}};
    WindowHandle Frame;
    WindowHandle View;
    WindowHandle Page;
    std::unique_ptr<ISurface> Surface;
    std::vector<PaintedItem> Items{{kSquare, PaintedRole::Button, u"Today", 7}};
    std::vector<Message> Log;
};

} // namespace tavo::qt
