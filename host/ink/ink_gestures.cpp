// Drawing, erasing, selecting and moving.
#include "host/ink/ink_gestures.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tavo::ink {
namespace {

constexpr double kEraserReach = 5; // pixels of the control
constexpr double kTapReach = 4;

Box Between(ViewPoint one, ViewPoint other) {
    return {static_cast<std::int32_t>(std::min(one.X, other.X)), static_cast<std::int32_t>(std::min(one.Y, other.Y)),
            static_cast<std::int32_t>(std::max(one.X, other.X)) + 1,
            static_cast<std::int32_t>(std::max(one.Y, other.Y)) + 1};
}

} // namespace

void InkControl::Gesture::MoveTo(InkControl& on, const PenSample& sample, ViewPoint place) {
    Follow(on, sample, place);
    Last = place;
}

InkControl::Drawing::Drawing(InkControl& on, const PenSample& sample, ViewPoint anchor)
    : Gesture(anchor), LiveBegan(sample.Time) {
    Live.Tool = on.Shared.Tool;
    Live.Tool.HasPressure = sample.Pressure != kNoPressure;
    Live.Started = on.Shared.Now ? on.Shared.Now() : 0;
    Drawing::Follow(on, sample, anchor);
}

void InkControl::Drawing::Follow(InkControl& on, const PenSample& sample, ViewPoint place) {
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
        if (isSame || on.Paper.PointCount() + Live.Points.size() >= kMaxPoints) {
            return;
        }
        point.Time = std::clamp(sample.Time - LiveBegan, before.Time, kMaxStrokeTime);
    }
    Live.Points.push_back(point);
    on.Damaged.LiveChanged = true;
    ++on.Changes;
}

void InkControl::Drawing::Finish(InkControl& on) {
    Edit edit;
    edit.Added.push_back({on.Paper.Strokes().size(), Place(std::exchange(Live, {}))});
    const Box before = on.Damaged.Ink;
    on.Do(std::move(edit));
    on.Damaged.Ink = before; // it is on the screen already
    on.Damaged.LiveFinished = true;
}

void InkControl::Drawing::Cancel(InkControl& on) {
    on.Damaged.Ink = on.Damaged.Ink.United(InkBox(Live));
    ++on.Changes;
}

InkControl::Erasing::Erasing(InkControl& on, ViewPoint anchor) : Gesture(anchor) {
    EraseTo(on, anchor);
}

void InkControl::Erasing::Follow(InkControl& on, const PenSample&, ViewPoint place) {
    EraseTo(on, place);
}

void InkControl::Erasing::EraseTo(InkControl& on, ViewPoint place) {
    const double reach = kEraserReach * kTicksPerPixel * 100 / on.Shown.Zoom();
    Edit edit;
    const auto strokes = on.Paper.Strokes();
    for (std::size_t i = 0; i < strokes.size(); ++i) {
        if (PassesNear(strokes[i], Last.X, Last.Y, place.X, place.Y, reach)) {
            edit.Removed.push_back({i, strokes[i]});
        }
    }
    if (!edit.IsEmpty()) {
        on.Do(std::move(edit), ErasedAny);
        ErasedAny = true; // one way of the eraser is one step of the history
    }
}

void InkControl::Selecting::Follow(InkControl& on, const PenSample&, ViewPoint place) {
    Span = Between(Anchor, place);
    on.Damaged.Overlay = true;
}

void InkControl::Selecting::Finish(InkControl& on) {
    std::vector<std::size_t> found = on.Paper.FindMostlyIn(Span);
    const double reach = kTapReach * kTicksPerPixel * 100 / on.Shown.Zoom();
    if (Span.Width() <= reach && Span.Height() <= reach) { // a tap takes the stroke it meets
        const std::size_t met = on.Paper.FindAt(Anchor.X, Anchor.Y, reach);
        found = met == Page::kNone ? std::vector<std::size_t>() : std::vector<std::size_t>{met};
    }
    for (const std::size_t index : found) {
        on.Paper.Select(index, true);
        on.Damaged.Ink = on.Damaged.Ink.United(on.Paper.Strokes()[index].Bounds);
    }
    on.Damaged.Overlay = true;
}

// What is moved stays on the paper.
Box InkControl::Moving::MovedFrame(const Box& frame) const {
    const auto right = static_cast<std::int32_t>(std::lround(Last.X - Anchor.X));
    const auto down = static_cast<std::int32_t>(std::lround(Last.Y - Anchor.Y));
    return frame.Shifted(std::clamp(right, std::min(-frame.Left, 0), std::max(kMaxX - frame.Right, 0)),
                         std::clamp(down, std::min(-frame.Top, 0), std::max(kMaxY - frame.Bottom, 0)));
}

void InkControl::Moving::Follow(InkControl& on, const PenSample&, ViewPoint) {
    on.Damaged.Overlay = true;
}

void InkControl::Moving::Finish(InkControl& on) {
    const Box from = on.Paper.SelectedBounds();
    const Box to = on.SelectionFrame();
    on.Damaged.Overlay = true;
    if (from == to) {
        return;
    }
    Edit edit;
    edit.Moved = on.Paper.SelectedIndices();
    edit.Right = to.Left - from.Left;
    edit.Down = to.Top - from.Top;
    on.Do(std::move(edit));
}

} // namespace tavo::ink
