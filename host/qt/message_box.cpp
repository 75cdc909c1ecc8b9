// Layout, looks and keys of message boxes.
#include "host/qt/message_box.h"

#include "host/shell/chrome/text_placement.h"

#include <QAccessible>
#include <QKeyEvent>

#include <algorithm>

namespace tavo::qt {
namespace {

constexpr std::u16string_view kProgramName = u"Tavo Calendar"; // the caption where none is given
constexpr int kWidth = 216;
constexpr int kCaptionHeight = 22;
constexpr int kMargin = 12;
constexpr int kIconSize = 28;
constexpr int kButtonWidth = 64;
constexpr int kButtonHeight = 24;
constexpr int kButtonGap = 10;
constexpr QRgb kShadeColor = 0x40202830;
constexpr QRgb kEdgeColor = 0xFF1B4C8C;
constexpr QRgb kWarningColor = 0xFFE8A317;
constexpr QRgb kTextColor = 0xFF1E252C;
constexpr QRgb kButtonColor = 0xFFF2F5F9;
constexpr QRgb kButtonEdgeColor = 0xFF9AA9BB;
constexpr QRgb kFocusColor = 0xFF46A3FA;

} // namespace

MessageBox::MessageBox(Device& device, QWidget* parent)
    : DeviceWidget(device, parent), CaptionFont({u"Arial", -13, 0, 700}), TextFont({u"Arial", -13, 0, 400}) {
    setFocusPolicy(Qt::StrongFocus);
    hide();
}

void MessageBox::Follow() {
    const std::vector<shell::OpenBox>& boxes = Shared.State.Menus.Boxes;
    if (boxes.empty()) {
        hide();
        return;
    }
    LayOut(boxes.back().Description);
    Selected = 0;
    Held = -1;
    Pressed = false;
    Declare();
    Place(kWholeScreen);
    show();
    raise();
    setFocus(Qt::OtherFocusReason);
    update();
    if (QAccessible::isActive()) {
        QAccessibleEvent alert(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
}

void MessageBox::LayOut(const MessageBoxDescription& box) {
    Caption = box.Caption.empty() ? std::u16string(kProgramName) : box.Caption;
    Text = box.Text;
    Icon = box.Icon;
    const int textLeft = kMargin + (Icon == MessageBoxIcon::None ? 0 : kIconSize + kMargin);
    const Rect measured{0, 0, kWidth - textLeft - kMargin, 1};
    const std::size_t lines = PlaceText(TextFont, Text, measured, DT_WORDBREAK | DT_NOPREFIX).size();
    const int textHeight =
        std::max(static_cast<int>(lines) * TextFont.LineHeight(), Icon == MessageBoxIcon::None ? 0 : kIconSize);
    const int height =
        std::min(kCaptionHeight + kMargin + textHeight + kMargin + kButtonHeight + kMargin, kScreenSize.Height);
    const int left = (kScreenSize.Width - kWidth) / 2;
    const int top = (kScreenSize.Height - height) / 2;
    Frame = Rect::FromSize(left, top, kWidth, height);
    const int buttonTop = Frame.Bottom - kMargin - kButtonHeight;
    TextArea = {left + textLeft, top + kCaptionHeight + kMargin, Frame.Right - kMargin, buttonTop - kMargin / 2};
    Choices.clear();
    if (box.Buttons == MessageBoxButtons::YesNo) {
        Choices.push_back({IDYES, u"Yes", {}});
        Choices.push_back({IDNO, u"No", {}});
    } else {
        Choices.push_back({IDOK, u"OK", {}});
    }
    const int count = static_cast<int>(Choices.size());
    int buttonLeft = left + (kWidth - count * kButtonWidth - (count - 1) * kButtonGap) / 2;
    for (Choice& choice : Choices) {
        choice.Area = Rect::FromSize(buttonLeft, buttonTop, kButtonWidth, kButtonHeight);
        buttonLeft += kButtonWidth + kButtonGap;
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

void MessageBox::DrawIcon(BarPainter& painter) const {
    const double left = Frame.Left + kMargin;
    const double top = TextArea.Top;
    const QPolygonF triangle(
        {QPointF(left + 13.5, top + 2), QPointF(left + 26, top + 24), QPointF(left + 1, top + 24)});
    painter.Polygon(triangle, 2.0, kWarningColor);
    painter.Line({left + 13.5, top + 9.5}, {left + 13.5, top + 15.5}, 2.4, 0xFFFFFFFF);
    painter.Line({left + 13.5, top + 20.5}, {left + 13.5, top + 20.6}, 2.6, 0xFFFFFFFF);
}

void MessageBox::Draw(QPainter& target, const QRect& area) {
    target.fillRect(area, QColor::fromRgba(kShadeColor));
    BarPainter painter(target, Shared.Geometry);
    painter.Fill(Frame, kEdgeColor);
    painter.Fill({Frame.Left + 1, Frame.Top + kCaptionHeight, Frame.Right - 1, Frame.Bottom - 1}, 0xFFFFFFFF);
    painter.Fill({Frame.Left, Frame.Top, Frame.Right, Frame.Top + kCaptionHeight}, kBarColor);
    painter.Text(CaptionFont, Caption, {Frame.Left + 8, Frame.Top, Frame.Right - 8, Frame.Top + kCaptionHeight},
                 kBarTextColor, false);
    if (Icon != MessageBoxIcon::None) {
        DrawIcon(painter);
    }
    painter.Paragraph(TextFont, Text, TextArea, kTextColor);
    for (std::size_t i = 0; i < Choices.size(); ++i) {
        const Choice& choice = Choices[i];
        const bool isHeld = Pressed && Held == static_cast<int>(i);
        const bool isSelected = Selected == static_cast<int>(i);
        painter.RoundedFill(choice.Area, 3, isHeld ? kMenuBarPressedColor : kButtonColor);
        painter.Frame(choice.Area, 3, isSelected ? kFocusColor : kButtonEdgeColor);
        painter.Text(TextFont, choice.Name, choice.Area, kTextColor, true);
    }
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
    update();
}

void MessageBox::StylusDown(Point screen) {
    Held = ChoiceAt(screen);
    Pressed = Held >= 0;
    if (Pressed) {
        Select(Held);
    }
}

void MessageBox::StylusMove(Point screen) {
    const bool isOn = Held >= 0 && ChoiceAt(screen) == Held;
    if (isOn != Pressed) {
        Pressed = isOn;
        update();
    }
}

void MessageBox::StylusUp(Point screen) {
    const int held = std::exchange(Held, -1);
    Pressed = false;
    update();
    if (held >= 0 && ChoiceAt(screen) == held) {
        (void)Shared.Navigation.AnswerBox(Choices[static_cast<std::size_t>(held)].Answer);
    }
}

bool MessageBox::focusNextPrevChild(bool next) {
    const int count = static_cast<int>(Choices.size());
    Select((Selected + (next ? 1 : count - 1)) % count);
    return true;
}

void MessageBox::keyPressEvent(QKeyEvent* event) {
    event->accept();
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        (void)Shared.Navigation.AnswerBox(Choices[static_cast<std::size_t>(Selected)].Answer);
        break;
    case Qt::Key_Escape:
        (void)Shared.Navigation.PressClose();
        break;
    case Qt::Key_Y:
        (void)Shared.Navigation.AnswerBox(IDYES);
        break;
    case Qt::Key_N:
        (void)Shared.Navigation.AnswerBox(IDNO);
        break;
    case Qt::Key_Left:
    case Qt::Key_Up:
        (void)focusNextPrevChild(false);
        break;
    case Qt::Key_Right:
    case Qt::Key_Down:
        (void)focusNextPrevChild(true);
        break;
    case Qt::Key_Q:
        if (event->modifiers() == Qt::ControlModifier) {
            Shared.Navigation.RequestQuit();
        }
        break;
    default:
        break;
    }
}

} // namespace tavo::qt
