// Layout, looks and keys of message boxes.
#include "host/shell/chrome/message_box.h"

#include "host/shell/chrome/colors.h"

#include <algorithm>
#include <utility>

namespace tavo::shell {

namespace {

constexpr std::u16string_view kProgramName = u"Tavo Calendar"; // the caption where none is given
constexpr int kWidth = 216;
constexpr int kCaptionHeight = 22;
constexpr int kMargin = 12;
constexpr int kIconSize = 28;
constexpr int kButtonWidth = 64;
constexpr int kButtonHeight = 24;
constexpr int kButtonGap = 10;
constexpr Argb kShadeColor = 0x40202830;
constexpr Argb kPaperColor = 0xFFFFFFFF;
constexpr Argb kEdgeColor = 0xFF1B4C8C;
constexpr Argb kWarningColor = 0xFFE8A317;
constexpr Argb kTextColor = 0xFF1E252C;
constexpr Argb kButtonColor = 0xFFF2F5F9;
constexpr Argb kButtonEdgeColor = 0xFF9AA9BB;
constexpr Argb kFocusColor = 0xFF46A3FA;

} // namespace

void MessageBox::Refresh() {
    if (!IsOpen()) {
        return;
    }
    LayOut(State.Menus.Boxes.back().Description);
    Selected = 0;
    Held = -1;
    Pressed = false;
    Declare();
}

void MessageBox::LayOut(const MessageBoxDescription& box) {
    Caption = box.Caption.empty() ? std::u16string(kProgramName) : box.Caption;
    Text = box.Text;
    Icon = box.Icon;
    Choices.clear();
    if (box.Buttons == MessageBoxButtons::YesNo) {
        Choices.push_back({IDYES, u"Yes", {}});
        Choices.push_back({IDNO, u"No", {}});
    } else {
        Choices.push_back({IDOK, u"OK", {}});
    }
    const int iconHeight = Icon == MessageBoxIcon::None ? 0 : kIconSize;
    const int textLeft = kMargin + (Icon == MessageBoxIcon::None ? 0 : kIconSize + kMargin);
    ITextFace& face = Fonts.Find(ChromeFont::Plain);
    const Rect measured{0, 0, kWidth - textLeft - kMargin, 1};
    const std::size_t lines = PlaceText(face, Text, measured, DT_WORDBREAK | DT_NOPREFIX).size();
    const int textHeight = std::max(static_cast<int>(lines) * face.LineHeight(), iconHeight);
    const int height =
        std::min(kCaptionHeight + kMargin + textHeight + kMargin + kButtonHeight + kMargin, kScreenSize.Height);
    const int left = (kScreenSize.Width - kWidth) / 2;
    const int top = (kScreenSize.Height - height) / 2;
    Frame = Rect::FromSize(left, top, kWidth, height);
    const int buttonTop = Frame.Bottom - kMargin - kButtonHeight;
    TextArea = {left + textLeft, top + kCaptionHeight + kMargin, Frame.Right - kMargin, buttonTop - kMargin / 2};
    PlaceChoices(buttonTop);
}

void MessageBox::PlaceChoices(int top) {
    const int count = static_cast<int>(Choices.size());
    int left = Frame.Left + (kWidth - count * kButtonWidth - (count - 1) * kButtonGap) / 2;
    for (Choice& choice : Choices) {
        choice.Area = Rect::FromSize(left, top, kButtonWidth, kButtonHeight);
        left += kButtonWidth + kButtonGap;
    }
}

void MessageBox::Declare() {
    Shown.clear();
    Shown.push_back({{Frame.Left, Frame.Top, Frame.Right, Frame.Top + kCaptionHeight}, PaintedRole::Header, Caption});
    Shown.push_back({TextArea, PaintedRole::Text, Text});
    for (std::size_t i = 0; i < Choices.size(); ++i) {
        PaintedItem item{Choices[i].Area, PaintedRole::Button, Choices[i].Name, Choices[i].Answer};
        item.Selected = static_cast<int>(i) == Selected;
        Shown.push_back(std::move(item));
    }
}

Rect MessageBox::ButtonPlace(int answer) const {
    for (const Choice& choice : Choices) {
        if (IsOpen() && choice.Answer == answer) {
            return choice.Area;
        }
    }
    return {};
}

void MessageBox::DrawIcon(Pieces& pieces) const {
    const double left = Frame.Left + kMargin;
    const double top = TextArea.Top;
    pieces.push_back(
        PolygonPiece{{{left + 13.5, top + 2}, {left + 26, top + 24}, {left + 1, top + 24}}, 2.0, kWarningColor});
    pieces.push_back(LinePiece{{left + 13.5, top + 9.5}, {left + 13.5, top + 15.5}, 2.4, kPaperColor});
    pieces.push_back(LinePiece{{left + 13.5, top + 20.5}, {left + 13.5, top + 20.6}, 2.6, kPaperColor});
}

void MessageBox::DrawChoice(int number, Pieces& pieces) const {
    const Choice& choice = Choices[static_cast<std::size_t>(number)];
    const bool isHeld = Pressed && Held == number;
    pieces.push_back(RoundedFillPiece{choice.Area, 3, isHeld ? kChromePressedColor : kButtonColor});
    pieces.push_back(FramePiece{choice.Area, 3, Selected == number ? kFocusColor : kButtonEdgeColor});
    pieces.push_back(MakeLine(Fonts, ChromeFont::Plain, choice.Name, choice.Area, kTextColor, TextAlign::Centre));
}

Pieces MessageBox::Draw() {
    const Rect caption{Frame.Left, Frame.Top, Frame.Right, Frame.Top + kCaptionHeight};
    Pieces pieces{FillPiece{Bounds(), kShadeColor}, FillPiece{Frame, kEdgeColor},
                  FillPiece{{Frame.Left + 1, caption.Bottom, Frame.Right - 1, Frame.Bottom - 1}, kPaperColor},
                  FillPiece{caption, kBarColor}};
    pieces.push_back(MakeLine(Fonts, ChromeFont::Button, Caption,
                              {caption.Left + 8, caption.Top, caption.Right - 8, caption.Bottom}, kBarTextColor,
                              TextAlign::Left));
    if (Icon != MessageBoxIcon::None) {
        DrawIcon(pieces);
    }
    pieces.push_back(MakeParagraph(Fonts, ChromeFont::Plain, Text, TextArea, kTextColor));
    for (std::size_t i = 0; i < Choices.size(); ++i) {
        DrawChoice(static_cast<int>(i), pieces);
    }
    return pieces;
}

int MessageBox::ChoiceAt(Point screen) const {
    for (std::size_t i = 0; i < Choices.size(); ++i) {
        if (Choices[i].Area.Contains(screen)) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

void MessageBox::Select(int choice) {
    Selected = choice;
    Declare();
    Tell(PartChange::Look);
}

void MessageBox::Answer(int choice) {
    const int answer = Choices[static_cast<std::size_t>(choice)].Answer; // the choices may become those of another box
    static_cast<void>(Navigation.AnswerBox(answer));
}

void MessageBox::Down(Point screen) {
    Held = ChoiceAt(screen);
    Pressed = Held >= 0;
    if (Pressed) {
        Select(Held);
    }
}

void MessageBox::Move(Point screen) {
    const bool isOn = Held >= 0 && ChoiceAt(screen) == Held;
    if (isOn != Pressed) {
        Pressed = isOn;
        Tell(PartChange::Look);
    }
}

void MessageBox::Up(Point screen) {
    const int held = std::exchange(Held, -1);
    Pressed = false;
    Tell(PartChange::Look);
    if (held >= 0 && ChoiceAt(screen) == held) {
        Answer(held);
    }
}

void MessageBox::Step(int by) {
    const int count = static_cast<int>(Choices.size());
    Select((Selected + by + count) % count);
}

void MessageBox::TakeKey(int key, int modifiers) {
    switch (key) {
    case VK_RETURN:
    case VK_SPACE:
        Answer(Selected);
        break;
    case VK_ESCAPE:
        static_cast<void>(Navigation.PressClose());
        break;
    case 'Y':
        static_cast<void>(Navigation.AnswerBox(IDYES));
        break;
    case 'N':
        static_cast<void>(Navigation.AnswerBox(IDNO));
        break;
    case VK_LEFT:
    case VK_UP:
        Step(-1);
        break;
    case VK_RIGHT:
    case VK_DOWN:
        Step(1);
        break;
    case 'Q':
        if (modifiers == kModifierControl) {
            Navigation.RequestQuit();
        }
        break;
    default:
        break;
    }
}

} // namespace tavo::shell
