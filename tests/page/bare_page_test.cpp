// A main page without anything of its own: its menu bar, its page bar, and what it leaves to the main view.
#include "page/main_page.h"

#include "res/dialog_templates.h"
#include "res/resource_ids.h"
#include "tests/page/page_on_a_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace tavo {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BarePage final : public CMainPage {
  public:
    BarePage(CMessagePump& pump, CProgramState& state, IMainView& view)
        : CMainPage(pump, state, view, kClockPageTemplate, kMenuPage) {}

    using CMainPage::ConfirmDeletion;
    using CMainPage::MenuBar;
    using CMainPage::Refuse;

    int Initialised = 0;
    std::vector<MessageNumber> NotTaken; // that neither the page bar nor its keys took

  protected:
    void OnInitDialog() override { ++Initialised; }

    void Paint() override {
        DropPainted();
        DrawPageBar();
        DeclarePageBar();
        PresentSurface();
    }

    void HandleByDefault(const Message& message) override {
        NotTaken.push_back(message.Number);
        CMainPage::HandleByDefault(message);
    }
};

class BareMainPage : public testing::Test {
  protected:
    BareMainPage() {
        EXPECT_TRUE(Page.CreateOn(Desk.Frame.Handle()));
        Page.Show(ShowCommand::Maximize);
        EXPECT_TRUE(Desk.Settle());
        Page.NotTaken.clear();
    }

    std::vector<std::string> Calls() {
        EXPECT_TRUE(Desk.Settle());
        return std::exchange(Desk.View.Calls, {});
    }

    std::string DrawnOn(int page) {
        Desk.State.CurrentPage = static_cast<PageNumber>(page);
        Page.Invalidate();
        EXPECT_TRUE(Desk.Settle());
        return ToText(Desk.Device.See.LastFrame()->Calls);
    }

    void Send(MessageNumber number, int id, int code) {
        Page.Post(number, id, code);
        EXPECT_TRUE(Desk.Settle());
    }

    bool WasTaken(MessageNumber number) {
        EXPECT_TRUE(Desk.Settle());
        const std::vector<MessageNumber> left = std::exchange(Page.NotTaken, {});
        return std::find(left.begin(), left.end(), number) == left.end();
    }

    test::ViewDesk Desk;
    BarePage Page{Desk.Pump, Desk.State, Desk.View};
};

TEST_F(BareMainPage, IsMadeWithItsMenuBar) {
    EXPECT_EQ(Page.Initialised, 1);
    EXPECT_NE(Page.MenuBar, WindowHandle::None);
    EXPECT_THAT(Calls(), ElementsAre("menu 207"));
}

TEST_F(BareMainPage, DrawsTheBarAndTheTabOfThePageOnShow) {
    const std::string bar = "bitmap 139 0,241,240,267 from 0,0,240,26\n";
    EXPECT_EQ(DrawnOn(0), bar + "bitmap 144 0,241,60,267 from 0,0,60,26\n");
    EXPECT_EQ(DrawnOn(1), bar + "bitmap 140 60,241,120,267 from 0,0,60,26\n");
    EXPECT_EQ(DrawnOn(2), bar + "bitmap 141 120,241,180,267 from 0,0,60,26\n");
    EXPECT_EQ(DrawnOn(3), bar + "bitmap 142 180,241,240,267 from 0,0,60,26\n");
    EXPECT_EQ(DrawnOn(4), bar + "bitmap 143 240,241,300,267 from 0,0,60,26\n"); // beyond the edge
}

TEST_F(BareMainPage, DrawsTheBarAloneForWhatIsNoPage) {
    EXPECT_EQ(DrawnOn(-1), "bitmap 139 0,241,240,267 from 0,0,240,26\n");
    EXPECT_EQ(DrawnOn(5), "bitmap 139 0,241,240,267 from 0,0,240,26\n");
}

TEST_F(BareMainPage, DeclaresFourTabsOfWhichOneIsSelected) {
    DrawnOn(2);
    EXPECT_THAT(Desk.Device.See.Items(),
                ElementsAre(PaintedItem{{0, 241, 60, 267}, PaintedRole::Tab, u"Clock", 0, false},
                            PaintedItem{{60, 241, 120, 267}, PaintedRole::Tab, u"Schedule", 1, false},
                            PaintedItem{{120, 241, 180, 267}, PaintedRole::Tab, u"Calendar", 2, true},
                            PaintedItem{{180, 241, 240, 267}, PaintedRole::Tab, u"Settings", 3, false}));
}

TEST_F(BareMainPage, APressOnTheBarShowsThatPage) {
    Calls();
    Desk.Device.Press(130, 242);
    EXPECT_TRUE(WasTaken(WM_LBUTTONDOWN));
    EXPECT_THAT(Calls(), ElementsAre("show 2"));
    EXPECT_EQ(Desk.State.CurrentPage, PageNumber::Calendar);
}

TEST_F(BareMainPage, APressOnTheTabOfThePageOnShowIsTakenButDoesNothing) {
    Calls();
    Desk.Device.Press(30, 266);
    EXPECT_TRUE(WasTaken(WM_LBUTTONDOWN));
    EXPECT_THAT(Calls(), IsEmpty());
}

TEST_F(BareMainPage, APressElsewhereIsLeftToThePage) {
    Calls();
    for (const int y : {100, 241, 267}) {
        Desk.Device.Press(130, y);
        EXPECT_FALSE(WasTaken(WM_LBUTTONDOWN)) << y;
        Desk.Device.Release(130, y);
    }
    EXPECT_THAT(Calls(), IsEmpty());
}

TEST_F(BareMainPage, ItsKeysShowTheNextPageAndThePreviousOneAndOthersAreLeftToThePage) {
    Calls();
    Desk.Device.KeyDown(VK_NEXT, kModifierControl);
    EXPECT_TRUE(WasTaken(WM_KEYDOWN));
    EXPECT_THAT(Calls(), ElementsAre("show 1"));
    Desk.Device.KeyDown(VK_NEXT, kModifierControl | kModifierShift);
    EXPECT_THAT(Calls(), ElementsAre("show 2"));
    Desk.Device.KeyDown(VK_PRIOR, kModifierControl);
    EXPECT_THAT(Calls(), ElementsAre("show 1"));
    Page.NotTaken.clear();
    Desk.Device.KeyDown(VK_NEXT, kModifierShift);
    EXPECT_FALSE(WasTaken(WM_KEYDOWN));
    Desk.Device.KeyDown(VK_UP, kModifierControl);
    EXPECT_FALSE(WasTaken(WM_KEYDOWN));
    EXPECT_THAT(Calls(), IsEmpty());
}

TEST_F(BareMainPage, ClosesAllPagesWithItself) {
    Calls();
    Desk.Device.PressClose();
    EXPECT_THAT(Calls(), ElementsAre("close"));
}

TEST_F(BareMainPage, LeavesCommandsThatItDoesNotKnowToTheMainView) {
    Calls();
    Send(WM_COMMAND, kCommandUndoStep, BN_CLICKED);
    EXPECT_THAT(Calls(), ElementsAre("command " + std::to_string(kCommandUndoStep)));
    Send(WM_COMMAND, kCommandUndoStep, CBN_DROPDOWN);
    Send(WM_VSCROLL, kCommandUndoStep, BN_CLICKED);
    EXPECT_THAT(Calls(), IsEmpty());
}

TEST_F(BareMainPage, OffersInItsMenuWhatCanBeUndone) {
    const auto entry = [this] {
        Desk.Device.OpenMenu(u"Tools");
        MenuItem found;
        Desk.Device.Do([&] {
            for (const MenuItem& item : Desk.Device.See.MenuBar()->Menus.back().Children) {
                found = item.Id == kCommandUndoStep ? item : found;
            }
        });
        Desk.Device.Key(VK_ESCAPE);
        EXPECT_TRUE(Desk.Settle());
        EXPECT_FALSE(found.Checked);
        return found.Enabled ? found.Text : u"(" + found.Text + u")";
    };
    EXPECT_EQ(entry(), u"(Undo)");
    const Oid item = Desk.GivenAppointment(u"Wake up", test::At(2004, 5, 3, 6), test::At(2004, 5, 3, 6));
    ASSERT_EQ(Desk.State.Store.OutlookApp->Begin(u"delete of alarm Wake up"), Status::Ok);
    Desk.State.Store.DeleteAppointment(item);
    ASSERT_EQ(Desk.State.Store.OutlookApp->End(), Status::Ok);
    EXPECT_EQ(entry(), u"Undo delete of alarm Wake up");
}

TEST_F(BareMainPage, AsksBeforeADeletionAndTakesOnlyYesForYes) {
    Desk.Device.AnswerBox(IDYES);
    EXPECT_TRUE(Page.ConfirmDeletion());
    Desk.Device.AnswerBox(IDNO);
    EXPECT_FALSE(Page.ConfirmDeletion());
    const MessageBoxDescription& box = Desk.Device.Host().Seen.Boxes.at(0);
    EXPECT_EQ(box.Text, u"Are you sure to delete?");
    EXPECT_EQ(box.Caption, u"Delete");
    EXPECT_EQ(box.Buttons, MessageBoxButtons::YesNo);
}

TEST_F(BareMainPage, SaysWhatCouldNotBeDone) {
    Desk.Device.AnswerBox(IDOK);
    Page.Refuse(u"That was too much.");
    ASSERT_EQ(Desk.Device.Host().Seen.Boxes.size(), 1U);
    EXPECT_EQ(Desk.Device.Host().Seen.Boxes[0].Text, u"That was too much.");
}

} // namespace

} // namespace tavo
