// What the pen does on the paper.
#include "host/ink/ink_control.h"

#include "host/ink/recorder_bar.h"
#include "platform/messages.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tavo::ink {
namespace {

constexpr double kEraserReach = 5; // pixels of the control
constexpr double kTapReach = 4;
constexpr int kWheelPixels = 48;
constexpr int kLinePixels = 16;

bool IsFinite(ViewPoint place) {
    return std::isfinite(place.X) && std::isfinite(place.Y);
}

Box Between(ViewPoint one, ViewPoint other) {
    return {static_cast<std::int32_t>(std::min(one.X, other.X)), static_cast<std::int32_t>(std::min(one.Y, other.Y)),
            static_cast<std::int32_t>(std::max(one.X, other.X)) + 1,
            static_cast<std::int32_t>(std::max(one.Y, other.Y)) + 1};
}

} // namespace

ViewPoint InkControl::Clamped(ViewPoint place) const {
    const ViewPoint onPaper = Shown.ToPaper(place);
    return {std::clamp(onPaper.X, 0.0, static_cast<double>(kMaxX)),
            std::clamp(onPaper.Y, 0.0, static_cast<double>(kMaxY))};
}

void InkControl::PenDown(PenEnd end, const PenSample& sample) {
    FinishGesture();
    if (!IsFinite(sample.Place) || PressBars(sample.Place)) {
        return;
    }
    WasSeen = true;
    Anchor = Last = Clamped(sample.Place);
    if (ReadOnly) {
        SelectAll(false);
        Doing = Gesture::Lasso;
        Span = {};
    } else if (end == PenEnd::Eraser) {
        Doing = Gesture::Erase;
        ErasedAny = false;
        SelectAll(false);
        EraseTo(Last);
    } else if (PenMode == kInkPenDraws) {
        BeginStroke(sample);
    } else if (Paper.SelectedBounds().Contains(Anchor.X, Anchor.Y)) {
        Doing = Gesture::Move;
    } else {
        SelectAll(false);
        Doing = Gesture::Lasso;
        Span = {};
    }
    Tell();
}

void InkControl::PenMove(const PenSample& sample) {
    if (Doing == Gesture::None || !IsFinite(sample.Place)) {
        return;
    }
    const ViewPoint place = Clamped(sample.Place);
    switch (Doing) {
    case Gesture::Draw:
        ExtendStroke(sample);
        break;
    case Gesture::Erase:
        EraseTo(place);
        break;
    case Gesture::Lasso:
        Span = Between(Anchor, place);
        Damaged.Overlay = true;
        break;
    default:
        Damaged.Overlay = true;
        break;
    }
    Last = place;
    Tell();
}

void InkControl::PenUp(const PenSample& sample) {
    PenMove(sample);
    if (Doing != Gesture::None) {
        FinishGesture();
        Tell();
    }
}

void InkControl::PenCancel() {
    if (Doing == Gesture::Draw) {
        Damaged.Ink = Damaged.Ink.United(InkBox(Live));
        ++Changes;
    }
    if (std::exchange(Doing, Gesture::None) != Gesture::None) {
        Damaged.Overlay = true;
        Tell();
    }
}

void InkControl::FinishGesture() {
    switch (Doing) {
    case Gesture::Draw:
        FinishStroke();
        break;
    case Gesture::Lasso:
        SelectLasso();
        break;
    case Gesture::Move:
        MoveSelection();
        break;
    default:
        break;
    }
    Doing = Gesture::None;
}

bool InkControl::PressBars(ViewPoint place) {
    const Point pixel{static_cast<int>(std::floor(place.X)), static_cast<int>(std::floor(place.Y))};
    if (const std::optional<Rect> bar = RecorderBar(); bar.has_value() && bar->Contains(pixel)) {
        if (const std::optional<int> cell = PenCellAt(*bar, pixel)) {
            ChoosePen(Shared.Tool, *cell);
            Damaged.Overlay = true;
            Tell();
        }
        return true;
    }
    const Rect area = Shown.Area();
    if (area.Contains(pixel)) {
        return false;
    }
    if (pixel.X >= area.Right && pixel.Y < area.Bottom) { // the scroll bar: a page towards its end
        const Size seen = Shown.Extent();
        const Point offset = Shown.Offset();
        const int step = pixel.Y < area.Height() / 2 ? -seen.Height : seen.Height;
        ScrollTo({offset.X, offset.Y + step});
    }
    return true;
}

void InkControl::BeginStroke(const PenSample& sample) {
    if (Paper.PointCount() >= kMaxPoints || Paper.Strokes().size() >= kMaxStrokes) {
        return;
    }
    Doing = Gesture::Draw;
    Damaged.Overlay = Damaged.Overlay || !Unread.empty();
    SelectAll(false);
    Live = {};
    Live.Tool = Shared.Tool;
    Live.Tool.HasPressure = sample.Pressure != kNoPressure;
    Live.Started = Shared.Now ? Shared.Now() : 0;
    LiveBegan = sample.Time;
    ExtendStroke(sample);
}

void InkControl::ExtendStroke(const PenSample& sample) {
    const ViewPoint place = Clamped(sample.Place);
    InkPoint point;
    point.X = static_cast<std::int32_t>(std::lround(place.X));
    point.Y = static_cast<std::int32_t>(std::lround(place.Y));
    if (Live.Tool.HasPressure) {
        point.Pressure = static_cast<std::uint16_t>(std::clamp(sample.Pressure, 0, kMaxPressure));
    }
    if (!Live.Points.empty()) {
        const InkPoint& before = Live.Points.back();
        point.Pressure = sample.Pressure == kNoPressure ? before.Pressure : point.Pressure;
        const bool isSame = before.X == point.X && before.Y == point.Y && before.Pressure == point.Pressure;
        if (isSame || Paper.PointCount() + Live.Points.size() >= kMaxPoints) {
            return;
        }
        point.Time = std::clamp(sample.Time - LiveBegan, before.Time, kMaxStrokeTime);
    }
    Live.Points.push_back(point);
    Damaged.LiveChanged = true;
    ++Changes;
}

void InkControl::FinishStroke() {
    Edit edit;
    edit.Added.push_back({Paper.Strokes().size(), Place(std::exchange(Live, {}))});
    const Box before = Damaged.Ink;
    Do(std::move(edit));
    Damaged.Ink = before; // it is on the screen already
    Damaged.LiveFinished = true;
}

void InkControl::EraseTo(ViewPoint place) {
    const double reach = kEraserReach * kTicksPerPixel * 100 / Shown.Zoom();
    Edit edit;
    const auto strokes = Paper.Strokes();
    for (std::size_t i = 0; i < strokes.size(); ++i) {
        if (PassesNear(strokes[i], Last.X, Last.Y, place.X, place.Y, reach)) {
            edit.Removed.push_back({i, strokes[i]});
        }
    }
    if (!edit.IsEmpty()) {
        Do(std::move(edit), ErasedAny);
        ErasedAny = true; // one way of the eraser is one step of the history
    }
}

void InkControl::SelectLasso() {
    std::vector<std::size_t> found = Paper.FindMostlyIn(Span);
    const double reach = kTapReach * kTicksPerPixel * 100 / Shown.Zoom();
    if (Span.Width() <= reach && Span.Height() <= reach) { // a tap takes the stroke it meets
        const std::size_t met = Paper.FindAt(Anchor.X, Anchor.Y, reach);
        found = met == Page::kNone ? std::vector<std::size_t>() : std::vector<std::size_t>{met};
    }
    for (const std::size_t index : found) {
        Paper.Select(index, true);
        Damaged.Ink = Damaged.Ink.United(Paper.Strokes()[index].Bounds);
    }
    Span = {};
    Damaged.Overlay = true;
}

Box InkControl::SelectionFrame() const {
    const Box frame = Paper.SelectedBounds();
    if (Doing != Gesture::Move || frame.IsEmpty()) {
        return frame;
    }
    // What is moved stays on the paper.
    const auto right = static_cast<std::int32_t>(std::lround(Last.X - Anchor.X));
    const auto down = static_cast<std::int32_t>(std::lround(Last.Y - Anchor.Y));
    return frame.Shifted(std::clamp(right, std::min(-frame.Left, 0), std::max(kMaxX - frame.Right, 0)),
                         std::clamp(down, std::min(-frame.Top, 0), std::max(kMaxY - frame.Bottom, 0)));
}

void InkControl::MoveSelection() {
    const Box from = Paper.SelectedBounds();
    const Box to = SelectionFrame();
    Damaged.Overlay = true;
    if (from == to) {
        return;
    }
    Edit edit;
    edit.Moved = Paper.SelectedIndices();
    edit.Right = to.Left - from.Left;
    edit.Down = to.Top - from.Top;
    Do(std::move(edit));
}

void InkControl::Wheel(int steps) {
    const Point offset = Shown.Offset();
    ScrollTo({offset.X, offset.Y - steps * kWheelPixels * kTicksPerPixel * 100 / Shown.Zoom()});
}

void InkControl::WheelSideways(int steps) {
    const Point offset = Shown.Offset();
    ScrollTo({offset.X - steps * kWheelPixels * kTicksPerPixel * 100 / Shown.Zoom(), offset.Y});
}

void InkControl::ScrollTo(Point offset) {
    const Point before = Shown.Offset();
    Shown.ScrollTo(offset);
    WasSeen = true;
    if (!(before == Shown.Offset())) {
        Damaged.Scrolled = true;
        Damaged.Overlay = true;
        Tell();
    }
}

bool InkControl::Key(int key, int modifiers) {
    const Point offset = Shown.Offset();
    const int line = kLinePixels * kTicksPerPixel * 100 / Shown.Zoom();
    if (modifiers == 0) {
        switch (key) {
        case VK_UP:
        case VK_DOWN:
            ScrollTo({offset.X, offset.Y + (key == VK_UP ? -line : line)});
            return true;
        case VK_LEFT:
        case VK_RIGHT:
            ScrollTo({offset.X + (key == VK_LEFT ? -line : line), offset.Y});
            return true;
        case VK_PRIOR:
        case VK_NEXT:
            ScrollTo({offset.X, offset.Y + (key == VK_PRIOR ? -1 : 1) * Shown.Extent().Height});
            return true;
        case VK_DELETE:
            if (ReadOnly) {
                return Paper.SelectedCount() > 0; // it means the ink, which stays; else whatever it means elsewhere
            }
            SendMessageW(WM_CLEAR, 0, 0);
            return true;
        default:
            return false;
        }
    }
    constexpr std::array<std::pair<int, MessageNumber>, 5> edits{
        {{'Z', kInkUndo}, {'Y', kInkRedo}, {'X', WM_CUT}, {'C', WM_COPY}, {'V', WM_PASTE}}};
    const auto edit = std::find_if(edits.begin(), edits.end(), [&](const auto& pair) { return pair.first == key; });
    if (modifiers != kModifierControl || (edit == edits.end() && key != 'A')) {
        return false;
    }
    key == 'A' ? SendMessageW(EM_SETSEL, 0, -1) : SendMessageW(edit->second, 0, 0);
    return true;
}

} // namespace tavo::ink
