// The ink editor: its two states and its commands.
#include "tests/memo/ink_memo_view_desk.h"

namespace tavo::test {
namespace {

using testing::ElementsAre;

TEST_F(InkMemoView, OpensInWritingAtZoom150) {
    Desk.Check([this] {
        EXPECT_EQ(Desk.Device.See.Caption(), u"Memo");
        EXPECT_EQ(Ask(kInkGetPageStyle), 2);
        EXPECT_EQ(Ask(kInkGetView), 2);
        EXPECT_EQ(Zoom(), 150);
        EXPECT_THAT(CheckedZooms(), ElementsAre(150));
        EXPECT_TRUE(Desk.IsChecked(kCommandInputMode));
    });
    Desk.Device.PressClose();
    EXPECT_EQ(Run(), IDCANCEL);
}

// What a new control would be by itself is told to it all the same; asking changes nothing and is left out here.
TEST_F(InkMemoView, ThePaperIsToldEachStepOfOpening) {
    Desk.Device.PressClose();
    EXPECT_EQ(Run(), IDCANCEL);
    std::vector<InkMessage> told;
    for (const InkMessage& message : Desk.Host.OwnInk.Sent) {
        if (message.Number == kInkSetPageStyle || message.Number == kInkSetZoom || message.Number == kInkSetPenMode ||
            message.Number == kInkSetView) {
            told.push_back(message);
        }
    }
    const InkMessage reading[] = {
        {WM_USER + 287, 16, 0}, {WM_USER + 290, 0, 100}, {WM_USER + 329, 1, 0}, {WM_USER + 284, 0, 0}};
    const InkMessage writing[] = {
        {WM_USER + 287, 2, 0}, {WM_USER + 290, 0, 150}, {WM_USER + 329, 0, 0}, {WM_USER + 284, 2, 0}};
    EXPECT_THAT(told, ElementsAre(reading[0], reading[1],                           // as it is made
                                  reading[0], reading[1], reading[2], reading[3],   // with the ink
                                  writing[0], writing[1], writing[2], writing[3])); // and opened
    EXPECT_EQ(Desk.Host.OwnInk.SentBeforeData, 2U);
}

TEST_F(InkMemoView, ThePaperLeaves24LinesFreeUnderIt) {
    Desk.Check([this] {
        const shell::WindowTree& tree = Desk.Device.Host().State.Tree;
        EXPECT_EQ(tree.Find(Desk.Device.See.Control(kInkPaper))->Bounds, (Rect{0, 0, 240, 244}));
    });
    Desk.Device.PressClose();
    EXPECT_EQ(Run(), IDCANCEL);
}

TEST_F(InkMemoView, TheModeButtonGoesBetweenWritingAndReading) {
    Desk.Device.PressBarButton(kCommandInputMode);
    Desk.Check([this] {
        EXPECT_EQ(Ask(kInkGetPageStyle), 16);
        EXPECT_EQ(Ask(kInkGetView), 0);
        EXPECT_EQ(Zoom(), 100);
        EXPECT_THAT(CheckedZooms(), ElementsAre(100));
        EXPECT_FALSE(Desk.IsChecked(kCommandInputMode));
    });
    Desk.Device.PressBarButton(kCommandInputMode);
    Desk.Check([this] {
        EXPECT_EQ(Ask(kInkGetPageStyle), 2);
        EXPECT_EQ(Ask(kInkGetView), 2);
        EXPECT_EQ(Zoom(), 150);
        EXPECT_TRUE(Desk.IsChecked(kCommandInputMode));
    });
    Desk.Device.PressClose();
    EXPECT_EQ(Run(), IDCANCEL);
}

TEST_F(InkMemoView, InReadingThePenSelectsAndDrawsNothing) {
    Desk.Draw();
    Desk.Device.PressBarButton(kCommandInputMode);
    Desk.Check([this] { EXPECT_EQ(Ask(EM_GETSEL), 0); });
    Desk.Draw(); // the same way, now around nothing but the stroke
    Desk.Check([this] {
        EXPECT_EQ(Desk.Strokes(), 1U);
        ink::InkControl& paper = Desk.Paper();
        paper.PenDown(ink::PenEnd::Tip, {{1, 1}, ink::kNoPressure, 2000});
        paper.PenUp({{200, 200}, ink::kNoPressure, 2050});
        EXPECT_EQ(Desk.Strokes(), 1U);
        EXPECT_NE(Ask(EM_GETSEL), 0);
    });
    Desk.Device.PressBarButton(kCommandInputMode);
    Desk.Draw(100);
    Desk.Check([this] { EXPECT_EQ(Desk.Strokes(), 2U); });
    Desk.Device.PressClose();
    EXPECT_EQ(Run(), IDCANCEL);
}

TEST_F(InkMemoView, AnotherPageStyleIsLeftAloneButTheViewBecomesWriting) {
    Desk.Check([this] {
        Desk.Paper().SendMessageW(kInkSetPageStyle, kInkStyleGrid, 0);
        Desk.Paper().SendMessageW(kInkSetView, kInkViewTyping, 0);
    });
    Desk.Device.PressBarButton(kCommandInputMode);
    Desk.Check([this] {
        EXPECT_EQ(Ask(kInkGetPageStyle), kInkStyleGrid);
        EXPECT_EQ(Ask(kInkGetView), 2);
        EXPECT_EQ(Zoom(), 150);
    });
    Desk.Device.PressClose();
    EXPECT_EQ(Run(), IDCANCEL);
}

TEST_F(InkMemoView, EachZoomIsSentAndItsItemAloneIsChecked) {
    for (std::size_t index = 0; index < kZooms.size(); ++index) {
        Choose(u"Tool", kZoomCommands[index]);
        Desk.Check([this, index] {
            EXPECT_EQ(Zoom(), kZooms[index]);
            EXPECT_THAT(CheckedZooms(), ElementsAre(kZooms[index]));
        });
    }
    Desk.Device.PressClose();
    EXPECT_EQ(Run(), IDCANCEL);
}

TEST_F(InkMemoView, Zoom300AndTheModeButtonGiveTheZoomOfTheMode) {
    Choose(u"Tool", kCommandZoom300);
    Desk.Device.PressBarButton(kCommandInputMode);
    Desk.Check([this] { EXPECT_THAT(CheckedZooms(), ElementsAre(100)); });
    Choose(u"Tool", kCommandZoom300);
    Desk.Device.PressBarButton(kCommandInputMode);
    Desk.Check([this] {
        EXPECT_THAT(CheckedZooms(), ElementsAre(150));
        EXPECT_EQ(Zoom(), 150);
    });
    Desk.Device.PressClose();
    EXPECT_EQ(Run(), IDCANCEL);
}

TEST_F(InkMemoView, EditCommandsAreEnabledByWhatThePaperCanDo) {
    const auto expectEnabled = [this](bool undo, bool redo, bool selection, bool paste) {
        Desk.Device.OpenMenu(u"Edit");
        Desk.Check([=, this] {
            EXPECT_EQ(Desk.CanChoose(kCommandUndo), undo);
            EXPECT_EQ(Desk.CanChoose(kCommandRedo), redo);
            EXPECT_EQ(Desk.CanChoose(kCommandCut), selection);
            EXPECT_EQ(Desk.CanChoose(kCommandCopy), selection);
            EXPECT_EQ(Desk.CanChoose(kCommandClear), selection);
            EXPECT_EQ(Desk.CanChoose(kCommandPaste), paste);
            EXPECT_TRUE(Desk.CanChoose(kCommandSelectAll));
            Desk.Device.Host().Navigation.CloseBarMenu();
        });
    };
    expectEnabled(false, false, false, false);
    Desk.Draw();
    expectEnabled(true, false, false, false);
    Choose(u"Edit", kCommandUndo);
    expectEnabled(false, true, false, false);
    Choose(u"Edit", kCommandRedo);
    expectEnabled(true, false, false, false);
    Desk.Device.PressBarButton(kCommandInputMode);
    Choose(u"Edit", kCommandSelectAll);
    expectEnabled(true, false, true, false);
    Choose(u"Edit", kCommandCopy);
    expectEnabled(true, false, true, true);
    Desk.Device.PressClose();
    EXPECT_EQ(Run(), IDCANCEL);
}

TEST_F(InkMemoView, TheEditCommandsWorkOnTheInk) {
    Desk.Draw(60);
    Desk.Check([this] { EXPECT_EQ(Desk.Strokes(), 1U); });
    Choose(u"Edit", kCommandUndo);
    Desk.Check([this] { EXPECT_EQ(Desk.Strokes(), 0U); });
    Choose(u"Edit", kCommandRedo);
    Desk.Check([this] { EXPECT_EQ(Desk.Strokes(), 1U); });
    Desk.Device.PressBarButton(kCommandInputMode);
    Choose(u"Edit", kCommandSelectAll);
    Choose(u"Edit", kCommandCopy);
    Choose(u"Edit", kCommandPaste);
    Desk.Check([this] { EXPECT_EQ(Desk.Strokes(), 2U); });
    Choose(u"Edit", kCommandSelectAll);
    Choose(u"Edit", kCommandCut);
    Desk.Check([this] { EXPECT_EQ(Desk.Strokes(), 0U); });
    Choose(u"Edit", kCommandPaste);
    Desk.Check([this] { EXPECT_EQ(Desk.Strokes(), 2U); });
    Choose(u"Edit", kCommandSelectAll);
    Choose(u"Edit", kCommandClear);
    Desk.Check([this] { EXPECT_EQ(Desk.Strokes(), 0U); });
    Desk.Device.PressClose();
    EXPECT_EQ(Run(), IDCANCEL);
}

TEST_F(InkMemoView, TheSecondButtonShowsAndHidesThePens) {
    Desk.Check([this] { EXPECT_FALSE(Desk.Paper().RecorderBar().has_value()); });
    Desk.Device.PressBarButton(kCommandRecorderBar);
    Desk.Check([this] { EXPECT_TRUE(Desk.Paper().RecorderBar().has_value()); });
    Desk.Device.PressBarButton(kCommandRecorderBar);
    Desk.Check([this] { EXPECT_FALSE(Desk.Paper().RecorderBar().has_value()); });
    Desk.Device.PressClose();
    EXPECT_EQ(Run(), IDCANCEL);
}

TEST_F(InkMemoView, ItsCommandsHaveKeys) {
    const auto press = [this](int key, std::size_t strokes) {
        Desk.Device.Key(key, key == VK_DELETE ? 0 : kModifierControl);
        Desk.Check([=, this] { EXPECT_EQ(Desk.Strokes(), strokes) << key; });
    };
    Desk.Draw();
    press('Z', 0);
    press('Z', 0); // there is nothing left to undo
    press('Y', 1);
    Desk.Device.PressBarButton(kCommandInputMode);
    press('V', 1); // nor to paste
    press('A', 1);
    press('C', 1);
    press('V', 2);
    press('A', 2);
    press('X', 0);
    press('V', 2);
    press('A', 2);
    press(VK_DELETE, 0);
    Desk.Device.PressClose();
    EXPECT_EQ(Run(), IDCANCEL);
}

} // namespace
} // namespace tavo::test
