// The order of posted messages.
#include "host/shell/posted_messages.h"

#include <gtest/gtest.h>

namespace tavo::shell {

namespace {

constexpr WindowHandle kWindow{1};

PostedMessage Move(int x) {
    return {{kWindow, WM_MOUSEMOVE, 0, 0, 0, {x, 0}}, MessageOrigin::PersonEnding, {}};
}

TEST(PostedMessages, FirstInFirstOut) {
    PostedMessages posted;
    posted.Add({{kWindow, WM_USER, 1, 0, 0, {}}, MessageOrigin::Program, {}});
    posted.Add({{kWindow, WM_USER, 2, 0, 0, {}}, MessageOrigin::Program, {}});
    EXPECT_TRUE(posted.Has(WM_USER));
    EXPECT_FALSE(posted.Has(WM_CLOSE));
    EXPECT_EQ(posted.Take()->Message.Id, 1);
    EXPECT_EQ(posted.Take()->Message.Id, 2);
    EXPECT_FALSE(posted.Take().has_value());
    EXPECT_TRUE(posted.IsEmpty());
}

TEST(PostedMessages, StylusMovesInARowBecomeTheLastOne) {
    PostedMessages posted;
    posted.Add(Move(1));
    posted.Add(Move(2));
    posted.Add({{kWindow, WM_USER, 0, 0, 0, {}}, MessageOrigin::Program, {}});
    posted.Add(Move(3));
    EXPECT_EQ(posted.Take()->Message.Position.X, 2);
    EXPECT_EQ(posted.Take()->Message.Number, WM_USER);
    EXPECT_EQ(posted.Take()->Message.Position.X, 3);
    EXPECT_TRUE(posted.IsEmpty());
}

TEST(PostedMessages, MovesOfOtherWindowsStayApart) {
    PostedMessages posted;
    posted.Add(Move(1));
    PostedMessage other = Move(2);
    other.Message.Window = WindowHandle{2};
    posted.Add(other);
    EXPECT_EQ(posted.Take()->Message.Position.X, 1);
    EXPECT_EQ(posted.Take()->Message.Position.X, 2);
}

} // namespace

} // namespace tavo::shell
