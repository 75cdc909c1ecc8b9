// A message box inside the device's screen. It covers the screen, so nothing beneath takes a tap.
#pragma once

#include "host/shell/chrome/chrome_part.h"
#include "host/shell/navigation_input.h"

namespace tavo::shell {

class MessageBox final : public ChromePart {
  public:
    MessageBox(Shell& shell, NavigationInput& navigation, IChromeFonts& fonts)
        : State(shell), Navigation(navigation), Fonts(fonts) {}

    // Takes the innermost box of the shell, if there is one.
    void Refresh();

    bool IsOpen() const { return !State.Menus.Boxes.empty(); }

    // Where the button with this answer lies; nothing when the box has none or is not open.
    Rect ButtonPlace(int answer) const;

    // A key while the box is open: Return and Space press the selected button, arrows select, Y and N answer, Escape
    // is ×.
    void TakeKey(int key, int modifiers);
    // The next button is selected (1) or the one before (-1), round and round.
    void Step(int by);

    Rect Bounds() const override { return Rect::Whole(kScreenSize); }

    std::u16string Title() const override { return Caption; }

    const std::vector<PaintedItem>& Items() const override { return Shown; }

    bool TakesInput() const override { return true; }

    Pieces Draw() override;
    void Down(Point screen) override;
    void Move(Point screen) override;
    void Up(Point screen) override;

  private:
    struct Choice {
        int Answer = 0;
        std::u16string Name;
        Rect Area;
    };

    void LayOut(const MessageBoxDescription& box);
    void PlaceChoices(int top);
    void Declare();
    void DrawIcon(Pieces& pieces) const;
    void DrawChoice(int number, Pieces& pieces) const;
    int ChoiceAt(Point screen) const;
    void Select(int choice);
    void Answer(int choice);

    Shell& State;
    NavigationInput& Navigation;
    IChromeFonts& Fonts;
    std::u16string Caption;
    std::u16string Text;
    MessageBoxIcon Icon = MessageBoxIcon::None;
    Rect Frame;
    Rect TextArea;
    std::vector<Choice> Choices;
    std::vector<PaintedItem> Shown;
    int Selected = 0;
    int Held = -1;
    bool Pressed = false;
};

} // namespace tavo::shell
