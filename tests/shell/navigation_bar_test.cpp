// Caption, "ok" and ×: where they lie, what they look like, what a tap does.
#include "host/shell/chrome/colors.h"
#include "host/shell/chrome/navigation_bar.h"
#include "tests/shell/shell_fixture.h"
#include "tests/shell/square_face.h"

namespace tavo::shell {

namespace {

class NavigationBarTest : public ShellTest {
  protected:
    NavigationBarTest() {
        Bar.SetWatch([this](PartChange change) { Told.push_back(change); });
        Windows.SetWindowTextW(Page, u"Schedule");
        Bar.Refresh();
        Told.clear();
    }

    WindowHandle OpenDialog(NavigationButtons buttons) {
        const WindowHandle dialog = Make(WindowKind::Dialog, Page, {}, buttons);
        Windows.SetWindowTextW(dialog, u"Options");
        Drain();
        Bar.Refresh();
        return dialog;
    }

    TextPiece CaptionPiece() { return std::get<TextPiece>(Bar.Draw()[1]); }

    static constexpr Point kOnOk{190, 10};
    static constexpr Point kOnClose{230, 10};

    SquareFonts Fonts;
    NavigationBar Bar{State, Stylus, Fonts};
    std::vector<PartChange> Told;
};

TEST_F(NavigationBarTest, ShowsCaptionAndButtonsOfTheWindowOnTop) {
    OpenDialog(NavigationButtons::OkAndClose);
    EXPECT_EQ(Bar.Title(), u"Options");
    EXPECT_EQ(Bar.Items(), (std::vector<PaintedItem>{{{0, 0, 240, 26}, PaintedRole::Header, u"Options"},
                                                     {{184, 0, 214, 26}, PaintedRole::Button, u"OK", IDOK},
                                                     {{214, 0, 240, 26}, PaintedRole::Button, u"Close", IDCANCEL}}));
    EXPECT_EQ(TextsOf(Bar.Draw()), (std::vector<std::u16string>{u"Options", u"ok"}));
    EXPECT_EQ(CountKind<LinePiece>(Bar.Draw()), 2u); // of the cross
    OpenDialog(NavigationButtons::Close);
    EXPECT_EQ(TextsOf(Bar.Draw()), std::vector<std::u16string>{u"Options"});
    EXPECT_EQ(CountKind<LinePiece>(Bar.Draw()), 2u);
    OpenDialog(NavigationButtons::None);
    EXPECT_EQ(Bar.Items().size(), 1u);
    EXPECT_EQ(CountKind<LinePiece>(Bar.Draw()), 0u);
}

TEST_F(NavigationBarTest, TheCaptionEndsBeforeTheFirstButton) {
    OpenDialog(NavigationButtons::OkAndClose);
    EXPECT_EQ(CaptionPiece().Area, (Rect{8, 0, 180, 26}));
    EXPECT_EQ(CaptionPiece().Lines[0].Left, 8);
    EXPECT_EQ(CaptionPiece().Lines[0].Baseline, (26 - SquareFace::kLine) / 2 + SquareFace::kAscent);
    OpenDialog(NavigationButtons::Close);
    EXPECT_EQ(CaptionPiece().Area.Right, 210);
    OpenDialog(NavigationButtons::None);
    EXPECT_EQ(CaptionPiece().Area.Right, 236);
}

TEST_F(NavigationBarTest, AButtonLooksPressedWhileTheStylusIsOnIt) {
    const WindowHandle dialog = OpenDialog(NavigationButtons::OkAndClose);
    Told.clear();
    Bar.Down(kOnOk);
    EXPECT_TRUE(Fills(Bar.Draw(), kOkButton, kBarPressedColor));
    Bar.Move({190, 60});
    EXPECT_FALSE(Fills(Bar.Draw(), kOkButton, kBarPressedColor));
    Bar.Move(kOnOk);
    Bar.Move({191, 11}); // nothing new to see
    EXPECT_TRUE(Fills(Bar.Draw(), kOkButton, kBarPressedColor));
    Bar.Up(kOnOk);
    EXPECT_FALSE(Fills(Bar.Draw(), kOkButton, kBarPressedColor));
    EXPECT_EQ(Told, std::vector<PartChange>(4, PartChange::Look));
    EXPECT_EQ(Drain(), std::vector<Message>({{dialog, WM_COMMAND, IDOK, BN_CLICKED, 1, {}}}));
}

TEST_F(NavigationBarTest, LiftedElsewhereAButtonDoesNothing) {
    OpenDialog(NavigationButtons::OkAndClose);
    Bar.Down(kOnOk);
    Bar.Move(kOnClose);
    EXPECT_FALSE(Fills(Bar.Draw(), kCloseButton, kBarPressedColor)); // nor is it the other's press
    Bar.Up(kOnClose);
    EXPECT_TRUE(Drain().empty());
}

TEST_F(NavigationBarTest, TheCrossOfAPageAsksItToClose) {
    Bar.Down(kOnClose);
    Bar.Up(kOnClose);
    EXPECT_EQ(DrainNumbers(), std::vector<MessageNumber>{WM_CLOSE});
}

TEST_F(NavigationBarTest, BeneathAMenuOrABoxNoButtonTakesAPress) {
    ASSERT_TRUE(Menus.TrackPopupMenu(Page, {MenuItem{}}, {5, 5}, MenuAlign::Left));
    EXPECT_FALSE(Bar.TakesInput());
    Bar.Down(kOnClose);
    EXPECT_FALSE(Fills(Bar.Draw(), kCloseButton, kBarPressedColor));
    Bar.Up(kOnClose);
    EXPECT_EQ(DrainNumbers(), std::vector<MessageNumber>{WM_EXITMENULOOP}); // the tap closed the menu, and that is all
    Menus.OpenMessageBox(Page, {});
    EXPECT_FALSE(Bar.TakesInput());
    Bar.Down(kOnClose);
    Bar.Up(kOnClose);
    EXPECT_TRUE(Drain().empty());
}

} // namespace

} // namespace tavo::shell
