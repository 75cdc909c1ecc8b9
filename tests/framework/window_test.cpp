// The life of a window object and its device window.
#include "framework/window.h"

#include "host/headless/device.h"
#include "tests/framework/plain_window.h"

#include <gtest/gtest.h>

namespace tavo {

namespace {

TEST(Window, ObjectTakesItsDeviceWindowWithIt) {
    headless::Device device;
    CMessagePump pump(device.Host());
    WindowHandle handle = WindowHandle::None;
    {
        test::PlainWindow window(pump);
        ASSERT_TRUE(window.Make());
        handle = window.Handle();
        EXPECT_TRUE(device.Host().Windows().IsWindowVisible(handle));
    }
    EXPECT_FALSE(device.Host().Windows().IsWindowVisible(handle));
}

TEST(Window, CreationFailsWithoutItsParent) {
    headless::Device device;
    CMessagePump pump(device.Host());
    test::PlainWindow window(pump);
    EXPECT_FALSE(window.Make(WindowHandle{99}));
    EXPECT_EQ(window.Handle(), WindowHandle::None);
}

TEST(Window, InvalidateAsksForOnePaintOfTheWholeWindow) {
    headless::Device device;
    CMessagePump pump(device.Host());
    test::PlainWindow frame(pump);
    ASSERT_TRUE(frame.Make());
    ASSERT_TRUE(device.Finish(pump));
    frame.Taken.clear();
    frame.Invalidate();
    frame.Invalidate(Rect::FromSize(0, 0, 5, 5));
    EXPECT_EQ(device.Host().State.Tree.Find(frame.Handle())->Invalid, Rect::FromSize(0, 0, 240, 320));
    ASSERT_TRUE(device.Finish(pump));
    int paints = 0;
    for (const Message& message : frame.Taken) {
        paints += message.Number == WM_PAINT ? 1 : 0;
    }
    EXPECT_EQ(paints, 1);
}

TEST(Window, DestroyedWindowTakesNothingMore) {
    headless::Device device;
    CMessagePump pump(device.Host());
    test::PlainWindow frame(pump);
    test::PlainWindow child(pump);
    ASSERT_TRUE(frame.Make());
    ASSERT_TRUE(child.Make(frame.Handle()));
    child.Post(WM_USER);
    child.Destroy();
    ASSERT_TRUE(device.Finish(pump));
    EXPECT_TRUE(child.Taken.empty());
}

} // namespace

} // namespace tavo
