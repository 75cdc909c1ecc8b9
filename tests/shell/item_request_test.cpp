// Requests for an item, and what holds them up.
#include "host/shell/item_request.h"

#include "platform/activation.h"
#include "tests/shell/shell_fixture.h"

namespace tavo::shell {
namespace {

class ItemRequestTest : public ShellTest {
  protected:
    // The OIDs that reach the frame now.
    std::vector<int> Asked() {
        std::vector<int> oids;
        for (const Message& message : Drain()) {
            if (message.Number == WM_OPENITEM) {
                EXPECT_EQ(message.Window, Frame);
                oids.push_back(message.Id);
            }
        }
        return oids;
    }

    void CloseBox() {
        State.Menus.Boxes.clear();
        Items.Follow();
    }

    ItemRequest Items{State};
};

using Oids = std::vector<int>;

TEST_F(ItemRequestTest, ReachesTheFrame) {
    Items.Make(7);
    EXPECT_EQ(Asked(), Oids{7});
    Items.Follow();
    EXPECT_EQ(Asked(), Oids{});
}

TEST_F(ItemRequestTest, UnderABoxItIsForgotten) {
    Menus.OpenMessageBox(Page, {});
    Items.Make(7);
    CloseBox();
    EXPECT_EQ(Asked(), Oids{});
}

TEST_F(ItemRequestTest, UnderADialogItIsForgotten) {
    Windows.EnableWindow(Frame, false);
    Items.Make(7);
    Windows.EnableWindow(Frame, true);
    Items.Follow();
    EXPECT_EQ(Asked(), Oids{});
}

TEST_F(ItemRequestTest, WhatADialogOvertakesIsForgotten) {
    Items.Make(7);
    Windows.EnableWindow(Frame, false);
    EXPECT_EQ(Asked(), Oids{});
}

TEST_F(ItemRequestTest, OfTheStartWaitsUntilTheBoxIsClosed) {
    Menus.OpenMessageBox(Page, {});
    Items.MakeAtStart(7);
    Items.Follow();
    EXPECT_EQ(Asked(), Oids{});
    CloseBox();
    EXPECT_EQ(Asked(), Oids{7});
    Items.Follow();
    EXPECT_EQ(Asked(), Oids{});
}

TEST_F(ItemRequestTest, OfTheStartLetsTheAnswerOfTheBoxGoFirst) {
    Menus.OpenMessageBox(Page, {});
    Items.MakeAtStart(7);
    State.Menus.Boxes.clear();
    State.Post({Page, WM_MESSAGEBOXCLOSED, IDOK, 0, 0, {}});
    Items.Follow();
    Menus.OpenMessageBox(Page, {}); // the next question
    EXPECT_EQ(Asked(), Oids{});
    CloseBox();
    EXPECT_EQ(Asked(), Oids{7});
}

} // namespace
} // namespace tavo::shell
