// What the ink editor tells its paper, word for word, and what it is without a paper.
#include "tests/memo/ink_memo_view_desk.h"

#include <gmock/gmock.h>

namespace tavo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class InkMemoPaper : public InkMemoView {
  protected:
    // What the paper is told and asked at this command, which comes as from a key.
    std::vector<InkMessage> SentAt(int command) {
        std::vector<InkMessage> sent;
        Desk.Check([this, command] {
            Desk.Host.OwnInk.Sent.clear();
            Desk.Device.Host().Queue().PostMessageW({Editor.Handle(), WM_COMMAND, command, BN_CLICKED, 0, {}});
        });
        Desk.Check([&] { sent = Desk.Host.OwnInk.Sent; });
        Close();
        return sent;
    }

    void Close() {
        Desk.Device.PressClose();
        EXPECT_EQ(Run(), IDCANCEL);
    }
};

TEST_F(InkMemoPaper, IsToldOneThingAtEachCommand) {
    EXPECT_THAT(SentAt(32781), ElementsAre(InkMessage{WM_USER + 234, 0, 0}));
    EXPECT_THAT(SentAt(32782), ElementsAre(InkMessage{WM_USER + 235, 0, 0}));
    EXPECT_THAT(SentAt(32783), ElementsAre(InkMessage{WM_CUT, 0, 0}));
    EXPECT_THAT(SentAt(32784), ElementsAre(InkMessage{WM_COPY, 0, 0}));
    EXPECT_THAT(SentAt(32785), ElementsAre(InkMessage{WM_PASTE, 0, 0}));
    EXPECT_THAT(SentAt(32786), ElementsAre(InkMessage{WM_CLEAR, 0, 0}));
    EXPECT_THAT(SentAt(32780), ElementsAre(InkMessage{EM_SETSEL, 0, -1}));
    EXPECT_THAT(SentAt(32791), ElementsAre(InkMessage{WM_USER + 290, 0, 300}));
    EXPECT_THAT(SentAt(204), ElementsAre(InkMessage{WM_USER + 530, 1, 0}));
}

TEST_F(InkMemoPaper, IsAskedItsStyleAndToldTheOtherState) {
    EXPECT_THAT(SentAt(205), ElementsAre(InkMessage{WM_USER + 323, 0, 0}, InkMessage{WM_USER + 287, 16, 0},
                                         InkMessage{WM_USER + 290, 0, 100}, InkMessage{WM_USER + 329, 1, 0},
                                         InkMessage{WM_USER + 284, 0, 0}, InkMessage{WM_USER + 254, 0, 0}));
}

TEST_F(InkMemoPaper, IsAskedBeforeAMenuOpensWhatItCanDo) {
    Desk.Check([this] { Desk.Host.OwnInk.Sent.clear(); });
    Desk.Device.OpenMenu(u"Edit");
    Desk.Check([this] {
        EXPECT_THAT(Desk.Host.OwnInk.Sent,
                    testing::UnorderedElementsAre(InkMessage{EM_GETSEL, 0, 0}, InkMessage{EM_CANUNDO, 0, 0},
                                                  InkMessage{WM_USER + 246, 0, 0}, InkMessage{WM_USER + 50, 0, 0},
                                                  InkMessage{WM_USER + 254, 0, 0}));
        Desk.Device.Host().Navigation.CloseBarMenu();
    });
    Close();
}

TEST_F(InkMemoPaper, ThatChangedItsViewByItselfIsFoundOutWhenAMenuOpens) {
    Desk.Check([this] {
        EXPECT_TRUE(Desk.IsChecked(kCommandInputMode));
        Desk.Paper().SendMessageW(kInkSetView, kInkViewTyping, 0);
    });
    Desk.Device.OpenMenu(u"Edit");
    Desk.Check([this] {
        EXPECT_FALSE(Desk.IsChecked(kCommandInputMode));
        for (const int command : {kCommandUndo, kCommandRedo, kCommandCut, kCommandCopy, kCommandPaste}) {
            EXPECT_FALSE(Desk.IsChecked(command)) << command;
        }
        Desk.Device.Host().Navigation.CloseBarMenu();
    });
    Close();
}

TEST_F(InkMemoPaper, HasTwoButtonsInTheBarWithTheirPictures) {
    Desk.Check([this] {
        const std::vector<shell::ButtonState>& buttons = Desk.Device.See.MenuBar()->Buttons;
        ASSERT_EQ(buttons.size(), 2U);
        for (std::size_t place = 0; place < buttons.size(); ++place) {
            const MenuBarButton& button = buttons[place].Button;
            EXPECT_EQ(button.Id, place == 0 ? 205 : 204);
            EXPECT_EQ(button.Bitmap, 203);
            EXPECT_EQ(button.Picture, static_cast<int>(place));
            EXPECT_EQ(button.PictureSize, 16);
            EXPECT_EQ(button.Name, place == 0 ? u"Write or select" : u"Pens");
        }
    });
    Close();
}

// The device cannot make one.
class InkMemoWithoutPaper : public InkMemoPaper {
  protected:
    InkMemoWithoutPaper() { Desk.Host.OwnControls.Unknown = ControlKind::Ink; }
};

TEST_F(InkMemoWithoutPaper, ItTellsNobodyAnythingAndChecksNoZoom) {
    Desk.Device.PressBarButton(kCommandInputMode);
    Choose(u"Tool", kCommandZoom300);
    Desk.Check([this] {
        EXPECT_THAT(CheckedZooms(), IsEmpty());
        EXPECT_FALSE(Desk.IsChecked(kCommandInputMode));
    });
    Close();
    EXPECT_THAT(Desk.Host.OwnInk.Sent, IsEmpty());
}

TEST_F(InkMemoWithoutPaper, NothingCanBeDone) {
    Desk.Device.OpenMenu(u"Edit");
    Desk.Check([this] {
        for (const int command :
             {kCommandUndo, kCommandRedo, kCommandCut, kCommandCopy, kCommandPaste, kCommandClear}) {
            EXPECT_FALSE(Desk.CanChoose(command)) << command;
        }
        Desk.Device.Host().Navigation.CloseBarMenu();
    });
    Close();
}

TEST_F(InkMemoWithoutPaper, ClosingItNotesNothingToHaveBack) {
    Desk.State.Memo.Fill({1, 2, 3});
    Close();
    std::u16string name;
    EXPECT_EQ(Desk.State.Store.OutlookApp->GetUndoName(name), Status::NotFound);
}

TEST_F(InkMemoWithoutPaper, OkTakesNothingAway) {
    Desk.State.Memo.Fill({1, 2, 3});
    Desk.Device.PressOk();
    EXPECT_EQ(Run(), IDCANCEL);
    EXPECT_EQ(Desk.Buffer(), (std::vector<std::uint8_t>{1, 2, 3}));
}

} // namespace
} // namespace tavo::test
