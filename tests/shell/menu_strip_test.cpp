// Menus, buttons and the input panel's button: where they lie, what they look like, what a tap does.
#include "host/shell/chrome/colors.h"
#include "host/shell/chrome/menu_strip.h"
#include "tests/shell/shell_fixture.h"
#include "tests/shell/square_face.h"

namespace tavo::shell {

namespace {

constexpr int kNew = 40;
constexpr int kPen = 41;

class MenuStripTest : public ShellTest {
  protected:
    MenuStripTest() {
        Bar = Menus.SHCreateMenuBar(Page, {Menu(u"&Edit", true), Menu(u"Tool", false)});
        MenuBarButton button;
        button.Id = kPen;
        button.Bitmap = 212;
        button.Picture = 3;
        button.Name = u"Pen";
        Menus.AddButtons(Bar, {button});
        Strip.SetWatch([this](PartChange change) { Told.push_back(change); });
        Strip.Refresh();
        Told.clear();
    }

    static MenuItem Menu(std::u16string text, bool enabled) {
        MenuItem entry;
        entry.Id = kNew;
        MenuItem menu;
        menu.Text = std::move(text);
        menu.IsPopup = true;
        menu.Enabled = enabled;
        menu.Children = {entry};
        return menu;
    }

    static constexpr Rect kEdit{0, 295, 40, 320}; // four characters and eight pixels on either side
    static constexpr Rect kTool{40, 295, 80, 320};
    static constexpr Rect kPenButton{80, 295, 106, 320};
    static constexpr Point kOnPen{90, 300};

    WindowHandle Bar = WindowHandle::None;
    SquareFonts Fonts;
    MenuStrip Strip{State, Navigation, Fonts};
    std::vector<PartChange> Told;
};

TEST_F(MenuStripTest, MenusAreAsWideAsTheirTitlesAndButtonsFollow) {
    EXPECT_EQ(Strip.MenuPlace(0), kEdit);
    EXPECT_EQ(Strip.MenuPlace(1), kTool);
    EXPECT_EQ(Strip.ButtonPlace(kPen), kPenButton);
    EXPECT_EQ(Strip.MenuPlace(2), kMenuBar); // there is none
    EXPECT_EQ(Strip.ButtonPlace(kNew), kMenuBar);
    PaintedItem edit{{0, 1, 40, 26}, PaintedRole::Button, u"Edit", 0};
    PaintedItem tool{{40, 1, 80, 26}, PaintedRole::Button, u"Tool", 1};
    tool.Enabled = false;
    PaintedItem pen{{80, 1, 106, 26}, PaintedRole::Button, u"Pen", kPen};
    EXPECT_EQ(Strip.Items(), (std::vector<PaintedItem>{edit, tool, pen}));
}

TEST_F(MenuStripTest, DrawsTitlesWithoutMarksAndTheButtonsPicture) {
    const Pieces pieces = Strip.Draw();
    EXPECT_EQ(TextsOf(pieces), (std::vector<std::u16string>{u"Edit", u"Tool"}));
    EXPECT_EQ(pieces.back(), Piece(PicturePiece{212, {85, 299}, {48, 0, 64, 16}, 1.0}));
    EXPECT_NE(std::get<TextPiece>(pieces[2]).Ink, std::get<TextPiece>(pieces[3]).Ink); // one of them is greyed
    Menus.SetMenuItem(Bar, kPen, false, true);
    Strip.Refresh();
    EXPECT_LT(std::get<PicturePiece>(Strip.Draw().back()).Opacity, 1.0);
    EXPECT_EQ(CountKind<RoundedFillPiece>(Strip.Draw()), 1u); // it is checked
    EXPECT_FALSE(Strip.CanPress(kOnPen));
}

TEST_F(MenuStripTest, AMenuOpensOnTheTapAndLooksOpen) {
    EXPECT_TRUE(Strip.CanPress({5, 300}));
    Strip.Down({5, 300});
    EXPECT_EQ(DrainNumbers(), std::vector<MessageNumber>{WM_INITMENUPOPUP});
    ASSERT_TRUE(State.Menus.BarMenu.has_value());
    EXPECT_TRUE(Fills(Strip.Draw(), kEdit, kChromePressedColor));
    State.CloseMenu(0);
    EXPECT_FALSE(Fills(Strip.Draw(), kEdit, kChromePressedColor));
}

TEST_F(MenuStripTest, AGreyMenuAndTheEmptyBarTakeNoTap) {
    for (const Point place : {Point{50, 300}, Point{200, 300}, Point{5, 294}}) {
        EXPECT_FALSE(Strip.CanPress(place));
        Strip.Down(place);
        Strip.Up(place);
    }
    EXPECT_TRUE(Drain().empty());
}

TEST_F(MenuStripTest, AButtonActsWhenLiftedOnIt) {
    Strip.Down(kOnPen);
    EXPECT_TRUE(Fills(Strip.Draw(), kPenButton, kChromePressedColor));
    EXPECT_TRUE(Drain().empty());
    Strip.Move({90, 200});
    EXPECT_FALSE(Fills(Strip.Draw(), kPenButton, kChromePressedColor));
    Strip.Up({90, 200});
    EXPECT_TRUE(Drain().empty());
    Strip.Down(kOnPen);
    Strip.Up(kOnPen);
    EXPECT_EQ(Drain(), std::vector<Message>({{Page, WM_COMMAND, kPen, BN_CLICKED, 1, {}}}));
    EXPECT_EQ(Told, std::vector<PartChange>(4, PartChange::Look));
}

TEST_F(MenuStripTest, ThePanelsButtonComesAndGoesAndTellsOfItsTap) {
    int taps = 0;
    Strip.SetPanelButton([&] { ++taps; });
    const Point place{230, 300};
    EXPECT_FALSE(Strip.CanPress(place));
    Strip.SetPanelState(true, false);
    EXPECT_EQ(Strip.Items().back().Bounds, (Rect{210, 1, 240, 26}));
    EXPECT_FALSE(Strip.Items().back().Selected);
    Strip.SetPanelState(true, true);
    EXPECT_TRUE(Strip.Items().back().Selected);
    Strip.Down(place);
    EXPECT_EQ(taps, 0);
    Strip.Up(place);
    EXPECT_EQ(taps, 1);
    Strip.SetPanelState(false, false);
    EXPECT_EQ(Strip.Items().size(), 3u);
}

TEST_F(MenuStripTest, ButtonsSayTheirNameAndMenusNeedNot) {
    EXPECT_EQ(Strip.TipAt(kOnPen), u"Pen");
    EXPECT_EQ(Strip.TipAt({5, 300}), u"");
    EXPECT_EQ(Strip.TipAt({200, 300}), u"");
}

} // namespace

} // namespace tavo::shell
