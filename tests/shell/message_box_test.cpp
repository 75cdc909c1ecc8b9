// Message boxes: their layout, their looks, taps and keys.
#include "host/shell/chrome/colors.h"
#include "host/shell/chrome/message_box.h"
#include "tests/shell/shell_fixture.h"
#include "tests/shell/square_face.h"

namespace tavo::shell {

namespace {

class MessageBoxTest : public ShellTest {
  protected:
    void Open(MessageBoxButtons buttons, std::u16string text = u"Are you sure?", MessageBoxIcon icon = {}) {
        Menus.OpenMessageBox(Page, {std::move(text), u"Delete", buttons, icon});
        Box.Refresh();
    }

    // The answers given since the last call.
    std::vector<int> Answers() {
        std::vector<int> answers;
        for (const Message& message : Drain()) {
            if (message.Number == WM_MESSAGEBOXCLOSED) {
                answers.push_back(message.Id);
            }
        }
        return answers;
    }

    static Point Middle(const Rect& area) { return {(area.Left + area.Right) / 2, (area.Top + area.Bottom) / 2}; }

    int SelectedAnswer() {
        for (const PaintedItem& item : Box.Items()) {
            if (item.Selected) {
                return item.Id;
            }
        }
        return 0;
    }

    bool LooksPressed(int answer) {
        const Pieces pieces = Box.Draw();
        return std::find(pieces.begin(), pieces.end(),
                         Piece(RoundedFillPiece{Box.ButtonPlace(answer), 3, kChromePressedColor})) != pieces.end();
    }

    SquareFonts Fonts;
    MessageBox Box{State, Navigation, Fonts};
};

TEST_F(MessageBoxTest, LiesInTheMiddleAsHighAsItsText) {
    Open(MessageBoxButtons::YesNo);
    const std::vector<PaintedItem>& items = Box.Items();
    ASSERT_EQ(items.size(), 4u);
    // 22 for the caption, 12 around each thing, a line of 12, a button of 24.
    EXPECT_EQ(items[0].Bounds, (Rect{12, 113, 228, 135}));
    EXPECT_EQ(items[0].Name, u"Delete");
    EXPECT_EQ(items[1].Bounds, (Rect{24, 147, 216, 165}));
    EXPECT_EQ(items[1].Name, u"Are you sure?");
    EXPECT_EQ(Box.ButtonPlace(IDYES), (Rect{51, 171, 115, 195}));
    EXPECT_EQ(Box.ButtonPlace(IDNO), (Rect{125, 171, 189, 195}));
    EXPECT_TRUE(Box.ButtonPlace(IDOK).IsEmpty());
    State.Menus.Boxes.clear();
    Open(MessageBoxButtons::Ok, u"One line and\nanother");
    EXPECT_EQ(Box.Items()[0].Bounds.Top, 107);
    EXPECT_EQ(Box.ButtonPlace(IDOK), (Rect{88, 177, 152, 201}));
}

TEST_F(MessageBoxTest, ShowsItsTextsOverAShadeOfTheWholeScreen) {
    Open(MessageBoxButtons::YesNo, u"Are you really sure that all of them are to be deleted?");
    const Pieces pieces = Box.Draw();
    EXPECT_EQ(std::get<FillPiece>(pieces[0]).Area, (Rect{0, 0, 240, 320}));
    EXPECT_EQ(TextsOf(pieces), (std::vector<std::u16string>{u"Delete", u"Are you really sure that all of",
                                                            u"them are to be deleted?", u"Yes", u"No"}));
    EXPECT_EQ(CountKind<PolygonPiece>(pieces), 0u);
}

TEST_F(MessageBoxTest, AWarningHasATriangleAndItsTextGivesWay) {
    Open(MessageBoxButtons::Ok, u"No.", MessageBoxIcon::Exclamation);
    EXPECT_EQ(CountKind<PolygonPiece>(Box.Draw()), 1u);
    EXPECT_EQ(Box.Items()[1].Bounds.Left, 64);
    EXPECT_EQ(Box.Items()[0].Bounds.Top, 105); // as high as the triangle
}

TEST_F(MessageBoxTest, WithoutACaptionItHasTheProgramsName) {
    Menus.OpenMessageBox(Page, {u"Saved.", u"", {}, {}});
    Box.Refresh();
    EXPECT_EQ(Box.Title(), u"Tavo Calendar");
}

TEST_F(MessageBoxTest, AButtonAnswersWhenLiftedOnIt) {
    Open(MessageBoxButtons::YesNo);
    const Point no = Middle(Box.ButtonPlace(IDNO));
    Box.Down(no);
    EXPECT_TRUE(LooksPressed(IDNO));
    EXPECT_EQ(SelectedAnswer(), IDNO);
    Box.Move(Middle(Box.ButtonPlace(IDYES)));
    EXPECT_FALSE(LooksPressed(IDNO));
    EXPECT_FALSE(LooksPressed(IDYES));
    Box.Up(Middle(Box.ButtonPlace(IDYES)));
    EXPECT_TRUE(Answers().empty());
    EXPECT_TRUE(Box.IsOpen());
    Box.Down(no);
    Box.Up(no);
    EXPECT_EQ(Answers(), std::vector<int>{IDNO});
    EXPECT_FALSE(Box.IsOpen());
}

TEST_F(MessageBoxTest, BesideTheButtonsATapDoesNothing) {
    Open(MessageBoxButtons::Ok);
    Box.Down({5, 5});
    Box.Up({5, 5});
    EXPECT_TRUE(Drain().empty());
    EXPECT_TRUE(Box.IsOpen());
}

TEST_F(MessageBoxTest, KeysSelectAndAnswer) {
    Open(MessageBoxButtons::YesNo);
    EXPECT_EQ(SelectedAnswer(), IDYES);
    Box.TakeKey(VK_LEFT, 0); // round to the last
    EXPECT_EQ(SelectedAnswer(), IDNO);
    Box.TakeKey(VK_DOWN, 0);
    EXPECT_EQ(SelectedAnswer(), IDYES);
    Box.TakeKey(VK_RIGHT, 0);
    Box.TakeKey(VK_SPACE, 0);
    EXPECT_EQ(Answers(), std::vector<int>{IDNO});
    Open(MessageBoxButtons::YesNo);
    Box.TakeKey(VK_ESCAPE, 0);
    EXPECT_TRUE(Box.IsOpen()); // a question stays
    Box.TakeKey('Y', 0);
    EXPECT_EQ(Answers(), std::vector<int>{IDYES});
    Open(MessageBoxButtons::Ok);
    Box.TakeKey('Y', 0); // it has no such button
    EXPECT_TRUE(Box.IsOpen());
    Box.TakeKey(VK_ESCAPE, 0);
    EXPECT_EQ(Answers(), std::vector<int>{IDOK});
}

} // namespace

} // namespace tavo::shell
