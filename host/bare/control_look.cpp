// Fields, arrows, ticks and thumbs.
#include "host/bare/control_look.h"

#include "host/bare/colors.h"
#include "host/bare/control_touch.h"
#include "host/bare/paper_look.h"
#include "host/shell/picker_input.h"

#include <algorithm>

namespace tavo::bare {

namespace {

using shell::Argb;
using shell::ControlState;
using shell::Pieces;

constexpr Argb kFocusColor = shell::kBarColor;
constexpr double kGreyedOpacity = 0.4;
constexpr int kBoxSize = 13;
constexpr int kThumbHeight = 12;

class ControlLook {
  public:
    ControlLook(BareHost& host, const shell::WindowRecord& control)
        : Host(host), Record(control), State(*control.Control), Font(FontOf(State.FontPoints)),
          Area(host.State.Tree.ScreenBounds(control.Handle)), HasFocus(host.State.Focus == control.Handle),
          IsEnabled(host.State.Tree.IsEnabled(control.Handle)), Ink(IsEnabled ? kTextColor : kGreyedColor) {}

    Pieces Draw();

  private:
    void DrawText(const std::u16string& text, const Rect& area, std::uint32_t format);
    void DrawField();
    void DrawEntry(const std::u16string& text, int selectionFirst, int selectionLast, int right);
    void DrawArrow(const Rect& area, int down);
    void DrawBox();
    void DrawScrollBar();

    BareHost& Host;
    const shell::WindowRecord& Record;
    const ControlState& State;
    shell::ChromeFont Font;
    Rect Area;
    bool HasFocus;
    bool IsEnabled;
    Argb Ink;
    Pieces Made;
};

void ControlLook::DrawText(const std::u16string& text, const Rect& area, std::uint32_t format) {
    Made.emplace_back(
        shell::TextPiece{Font, shell::PlaceText(Host.Find(Font), text, area, format | DT_NOPREFIX), area, Ink});
}

void ControlLook::DrawField() {
    Made.emplace_back(shell::FillPiece{Area, kFieldColor});
    Made.emplace_back(shell::FramePiece{Area, 0, HasFocus ? kFocusColor : kEdgeColor});
}

// One line of text with its selection, or its caret, which is kept in sight.
void ControlLook::DrawEntry(const std::u16string& text, int selectionFirst, int selectionLast, int right) {
    DrawField();
    const Rect inside{Area.Left + kEntryMargin, Area.Top + 1, right - 1, Area.Bottom - 1};
    const std::vector<double> ends = Host.Find(Font).Ends(text);
    const auto endOf = [&](int count) {
        const int known = std::min(count, static_cast<int>(ends.size()));
        return known <= 0 ? 0 : static_cast<int>(ends[static_cast<std::size_t>(known) - 1]);
    };
    const bool isRight = State.Kind == ControlKind::NumberEdit;
    const int shift =
        isRight ? endOf(static_cast<int>(text.size())) - inside.Width() + 1 : endOf(selectionLast) - inside.Width() + 1;
    const int left = inside.Left - (isRight ? shift : std::max(HasFocus ? shift : 0, 0));
    if (HasFocus) {
        const int from = std::max(left + endOf(selectionFirst), inside.Left);
        const int to = std::clamp(left + endOf(selectionLast), from + 1, inside.Right);
        const bool isCaret = selectionFirst == selectionLast;
        Made.emplace_back(
            shell::FillPiece{{from, inside.Top + 1, to, inside.Bottom - 1}, isCaret ? Ink : kSelectionColor});
    }
    const Rect whole{left, inside.Top, std::max(inside.Right, left + endOf(static_cast<int>(text.size()))),
                     inside.Bottom};
    Made.emplace_back(shell::TextPiece{
        Font, shell::PlaceText(Host.Find(Font), text, whole, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX), inside, Ink});
}

void ControlLook::DrawArrow(const Rect& area, int down) {
    const double x = (area.Left + area.Right - 1) / 2.0;
    const double y = (area.Top + area.Bottom - 1) / 2.0;
    Made.emplace_back(
        shell::PolygonPiece{{{x - 3, y - 1.5 * down}, {x + 3, y - 1.5 * down}, {x, y + 1.5 * down}}, 1, Ink});
}

void ControlLook::DrawBox() {
    const int top = (Area.Top + Area.Bottom - kBoxSize) / 2;
    const Rect box = Rect::FromSize(Area.Left, top, kBoxSize, kBoxSize);
    const double radius = State.Kind == ControlKind::RadioButton ? kBoxSize / 2.0 : 0;
    Made.emplace_back(shell::RoundedFillPiece{box, radius, kFieldColor});
    Made.emplace_back(shell::FramePiece{box, radius, HasFocus ? kFocusColor : kEdgeColor});
    if (State.Checked) {
        Made.emplace_back(
            shell::RoundedFillPiece{{box.Left + 3, box.Top + 3, box.Right - 3, box.Bottom - 3}, radius / 2, Ink});
    }
    DrawText(Record.Text, {box.Right + 4, Area.Top, Area.Right, Area.Bottom}, DT_SINGLELINE | DT_VCENTER);
}

void ControlLook::DrawScrollBar() {
    const Rect up{Area.Left, Area.Top, Area.Right, Area.Top + kScrollArrowHeight};
    const Rect down{Area.Left, Area.Bottom - kScrollArrowHeight, Area.Right, Area.Bottom};
    const int range = std::max(State.Scroll.Maximum - State.Scroll.Minimum, 1);
    const int way = std::max(down.Top - up.Bottom - kThumbHeight, 0);
    const int thumb = up.Bottom + way * (State.Scroll.Position - State.Scroll.Minimum) / range;
    Made.emplace_back(shell::FillPiece{Area, kFaceColor});
    Made.emplace_back(shell::FramePiece{Area, 0, kEdgeColor});
    Made.emplace_back(shell::FillPiece{{Area.Left + 1, thumb, Area.Right - 1, thumb + kThumbHeight}, kEdgeColor});
    DrawArrow(up, -1);
    DrawArrow(down, 1);
}

Pieces ControlLook::Draw() {
    const Rect arrow{Area.Right - kListArrowWidth, Area.Top, Area.Right, Area.Bottom};
    switch (State.Kind) {
    case ControlKind::Label:
        DrawText(Record.Text, Area, DT_WORDBREAK);
        break;
    case ControlKind::Edit:
    case ControlKind::NumberEdit:
        DrawEntry(Record.Text, State.SelectionFirst, State.SelectionLast, Area.Right);
        break;
    case ControlKind::FixedList:
    case ControlKind::EditableList:
        DrawEntry(Record.Text, State.SelectionFirst, State.SelectionLast, arrow.Left);
        DrawArrow(arrow, 1);
        break;
    case ControlKind::DatePicker:
    case ControlKind::TimePicker: {
        const shell::PickerFace face = shell::FaceOf(Record);
        const shell::PickerFace::Span part = face.Parts[static_cast<std::size_t>(State.Entry.Part)];
        DrawEntry(face.Text, part.First, part.Last, arrow.Left);
        if (State.Kind == ControlKind::DatePicker) {
            DrawArrow(arrow, 1);
        }
        break;
    }
    case ControlKind::CheckBox:
    case ControlKind::RadioButton:
        DrawBox();
        break;
    case ControlKind::PushButton:
        Made.emplace_back(shell::RoundedFillPiece{Area, 2, kFaceColor});
        Made.emplace_back(shell::FramePiece{Area, 2, HasFocus ? kFocusColor : kEdgeColor});
        DrawText(Record.Text, Area, DT_SINGLELINE | DT_VCENTER | DT_CENTER);
        break;
    case ControlKind::PictureButton:
        Made.emplace_back(shell::PicturePiece{State.Checked ? State.PictureOn : State.PictureOff,
                                              {Area.Left, Area.Top},
                                              Rect::FromSize(0, 0, Area.Width(), Area.Height()),
                                              IsEnabled ? 1.0 : kGreyedOpacity});
        break;
    case ControlKind::ScrollBar:
        DrawScrollBar();
        break;
    case ControlKind::Ink:
        Made = DrawPaperBars(Host, Record.Handle);
        break;
    }
    return std::move(Made);
}

} // namespace

Pieces DrawControl(BareHost& host, const shell::WindowRecord& control) {
    return ControlLook(host, control).Draw();
}

} // namespace tavo::bare
