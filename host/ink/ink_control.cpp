// The messages of the ink control.
#include "host/ink/ink_control.h"

#include "host/ink/ink_gestures.h"
#include "platform/messages.h"

#include <algorithm>
#include <utility>

namespace tavo::ink {
namespace {

constexpr std::u16string_view kForeignNotice = u"This memo was written by another program.";
constexpr std::u16string_view kDamagedNotice = u"This memo is damaged and cannot be shown.";
constexpr std::int32_t kPasteStep = 8 * kTicksPerPixel;

} // namespace

InkControl::InkControl(InkShared& shared) : Shared(shared) {}

InkControl::~InkControl() = default;

int InkControl::SendMessageW(MessageNumber number, int first, int second) {
    switch (number) {
    case kInkSetPageStyle:
    case kInkSetView:
    case kInkSetPenMode:
    case kInkSetZoom:
    case kInkShowRecorderBar:
    case EM_SETREADONLY:
        return Set(number, first, second);
    case kInkUndo:
    case kInkRedo:
    case WM_CUT:
    case WM_COPY:
    case WM_PASTE:
    case WM_CLEAR:
    case EM_SETSEL:
        FinishGesture();
        return ForbidsEdit(number) ? 0 : EditBy(number, first, second);
    default:
        return Ask(number);
    }
}

// To select and to copy changes nothing.
bool InkControl::ForbidsEdit(MessageNumber number) const {
    return ReadOnly && number != WM_COPY && number != EM_SETSEL;
}

int InkControl::Ask(MessageNumber number) const {
    if (ReadOnly && (number == kInkCanPaste || number == kInkCanRedo || number == EM_CANUNDO)) {
        return 0;
    }
    switch (number) {
    case kInkGetDataLength:
        return static_cast<int>(GetData().size());
    case kInkGetPageStyle:
        return Style;
    case kInkGetView:
        return ViewKind;
    case kInkCanPaste:
        return Shared.Clipboard.empty() ? 0 : 1;
    case kInkCanRedo:
        return History.CanRedo() ? 1 : 0;
    case EM_CANUNDO:
        return History.CanUndo() ? 1 : 0;
    case EM_GETSEL:
        return Paper.SelectedCount() > 0 ? 1 : 0;
    default:
        return 0;
    }
}

int InkControl::Set(MessageNumber number, int first, int second) {
    FinishGesture();
    switch (number) {
    case kInkSetPageStyle:
        Style = first;
        Damaged.All = true;
        break;
    case kInkSetView:
        ViewKind = first;
        break;
    case kInkSetPenMode:
        PenMode = first;
        if (PenMode == kInkPenDraws) {
            SelectAll(false);
        }
        break;
    case kInkSetZoom:
        SetZoom(second);
        break;
    case EM_SETREADONLY:
        ReadOnly = first != 0;
        break;
    default:
        RecorderShown = first != 0;
        RefreshPaper();
        break;
    }
    Tell();
    return 0;
}

int InkControl::EditBy(MessageNumber number, int first, int second) {
    switch (number) {
    case kInkUndo:
        Undo();
        break;
    case kInkRedo:
        Redo();
        break;
    case WM_CUT:
        Copy();
        Clear();
        break;
    case WM_COPY:
        Copy();
        break;
    case WM_PASTE:
        Paste();
        break;
    case WM_CLEAR:
        Clear();
        break;
    default:
        SelectAll(first == 0 && second == -1); // there is no other stretch of ink to name
        break;
    }
    Tell();
    return 0;
}

std::vector<std::uint8_t> InkControl::GetData() const {
    const Stroke* live = LiveStroke();
    if (live == nullptr) {
        return Paper.IsEmpty() ? Unread : Encode(Paper.Strokes());
    }
    const auto strokes = Paper.Strokes();
    std::vector<PlacedStroke> all(strokes.begin(), strokes.end());
    all.push_back(Place(*live)); // the pen need not leave the paper for its ink to count
    return Encode(all);
}

bool InkControl::SetData(std::span<const std::uint8_t> data) {
    std::vector<PlacedStroke> strokes;
    UnreadKind = Decode(data, strokes);
    Unread.clear();
    if (UnreadKind != Reading::Whole) {
        Unread.assign(data.begin(), data.end());
    }
    Doing.reset();
    Paper.Reset(std::move(strokes));
    ++Reshaped;
    History.Clear();
    WasSeen = false;
    Shown.ScrollTo({});
    RefreshPaper();
    Tell();
    return UnreadKind == Reading::Whole;
}

std::u16string_view InkControl::Notice() const {
    if (UnreadKind == Reading::Whole || !Paper.IsEmpty() || LiveStroke() != nullptr) {
        return {};
    }
    return UnreadKind == Reading::Foreign ? kForeignNotice : kDamagedNotice;
}

std::optional<Rect> InkControl::RecorderBar() const {
    if (!RecorderShown) {
        return std::nullopt;
    }
    return Rect{0, std::max(Control.Height - kRecorderBarHeight, 0), Control.Width, Control.Height};
}

void InkControl::Resize(Size size) {
    if (!(size == Control)) {
        Control = size;
        RefreshPaper();
        Tell();
    }
}

void InkControl::SetZoom(int percent) {
    if (Shown.SetZoom(percent, Paper.Bounds(), WasSeen)) {
        Damaged.All = true;
        Damaged.Overlay = true;
    }
}

void InkControl::RefreshPaper() {
    Shown.Fit(Control, RecorderShown, Paper.Bounds());
    Damaged.All = true;
    Damaged.Overlay = true;
}

void InkControl::NoteInk(const Box& changed) {
    ++Changes;
    Damaged.Ink = Damaged.Ink.United(changed);
    Damaged.Overlay = true;
    const Point before = Shown.Offset();
    const Rect area = Shown.Area();
    Shown.Fit(Control, RecorderShown, Paper.Bounds());
    Damaged.All = Damaged.All || !(Shown.Offset() == before) || !(Shown.Area() == area);
}

void InkControl::Do(Edit edit, bool isPartOfLast) {
    if (edit.IsEmpty()) {
        return;
    }
    Reshaped += edit.Removed.empty() && edit.Moved.empty() ? 0 : 1; // else strokes came behind all others
    const Box changed = Paper.Apply(edit);
    isPartOfLast ? History.AddToLast(std::move(edit)) : History.Add(std::move(edit));
    NoteInk(changed);
}

void InkControl::Undo() {
    if (History.CanUndo()) {
        ++Reshaped;
        NoteInk(History.Undo(Paper));
    }
}

void InkControl::Redo() {
    if (History.CanRedo()) {
        ++Reshaped;
        NoteInk(History.Redo(Paper));
    }
}

void InkControl::Copy() {
    if (Paper.SelectedCount() == 0) {
        return;
    }
    Shared.Clipboard.clear();
    for (PlacedStroke stroke : Paper.Strokes()) {
        if (std::exchange(stroke.Selected, false)) {
            Shared.Clipboard.push_back(std::move(stroke));
        }
    }
    if (Shared.Copied) {
        Shared.Copied(Shared.Clipboard);
    }
}

void InkControl::Clear() {
    Edit edit;
    for (const std::size_t index : Paper.SelectedIndices()) {
        edit.Removed.push_back({index, Paper.Strokes()[index]});
        edit.Removed.back().Stroke.Selected = false;
    }
    Do(std::move(edit));
}

void InkControl::Paste() {
    Box copied;
    std::size_t points = Paper.PointCount();
    for (const PlacedStroke& stroke : Shared.Clipboard) {
        copied = copied.United(stroke.Bounds);
        points += stroke.Body->Points.size();
    }
    std::size_t index = Paper.Strokes().size();
    if (points > kMaxPoints || index + Shared.Clipboard.size() > kMaxStrokes) {
        return;
    }
    SelectAll(false);
    // Beside where it was; where that is out of sight, at the corner of what is seen.
    Point shift{kPasteStep, kPasteStep};
    if (const Box seen = Shown.VisibleBox(); !seen.Meets(copied.Shifted(shift.X, shift.Y))) {
        shift = {seen.Left + kPasteStep - copied.Left, seen.Top + kPasteStep - copied.Top};
    }
    shift.X = std::min(shift.X, std::max(kMaxX - copied.Right, 0));
    shift.Y = std::min(shift.Y, std::max(kMaxY - copied.Bottom, 0));
    Edit edit;
    for (PlacedStroke& stroke : Shared.Clipboard) {
        stroke = stroke.Moved(shift.X, shift.Y); // the next paste goes beside this one
        edit.Added.push_back({index++, stroke});
    }
    Do(edit);
    for (const NumberedStroke& added : edit.Added) {
        Paper.Select(added.Index, true);
    }
}

void InkControl::SelectAll(bool selected) {
    if (!selected && Paper.SelectedCount() == 0) {
        return;
    }
    for (std::size_t i = 0; i < Paper.Strokes().size(); ++i) {
        if (Paper.Strokes()[i].Selected != selected) {
            Paper.Select(i, selected);
            Damaged.Ink = Damaged.Ink.United(Paper.Strokes()[i].Bounds);
            Damaged.Overlay = true;
        }
    }
}

void InkControl::Tell() {
    if (Watch) {
        Watch();
    }
}

} // namespace tavo::ink
