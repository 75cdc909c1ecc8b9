// What the pen does on the paper.
#include "host/ink/ink_control.h"

#include "host/ink/ink_gestures.h"
#include "host/ink/recorder_bar.h"
#include "platform/messages.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tavo::ink {
namespace {

constexpr int kWheelPixels = 48;
constexpr int kLinePixels = 16;

bool IsFinite(ViewPoint place) {
    return std::isfinite(place.X) && std::isfinite(place.Y);
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
    const ViewPoint place = Clamped(sample.Place);
    if (ReadOnly) {
        SelectAll(false);
        Doing = std::make_unique<Selecting>(place);
    } else if (end == PenEnd::Eraser) {
        SelectAll(false);
        Doing = std::make_unique<Erasing>(*this, place);
    } else if (PenMode == kInkPenDraws) {
        BeginStroke(sample, place);
    } else if (Paper.SelectedBounds().Contains(place.X, place.Y)) {
        Doing = std::make_unique<Moving>(place);
    } else {
        SelectAll(false);
        Doing = std::make_unique<Selecting>(place);
    }
    Tell();
}

void InkControl::BeginStroke(const PenSample& sample, ViewPoint place) {
    if (Paper.PointCount() >= kMaxPoints || Paper.Strokes().size() >= kMaxStrokes) {
        return;
    }
    Damaged.Overlay = Damaged.Overlay || !Unread.empty();
    SelectAll(false);
    Doing = std::make_unique<Drawing>(*this, sample, place);
}

void InkControl::PenMove(const PenSample& sample) {
    if (Doing && IsFinite(sample.Place)) {
        Doing->MoveTo(*this, sample, Clamped(sample.Place));
        Tell();
    }
}

void InkControl::PenUp(const PenSample& sample) {
    PenMove(sample);
    if (Doing) {
        FinishGesture();
        Tell();
    }
}

void InkControl::PenCancel() {
    if (Doing) {
        Doing->Cancel(*this);
        Doing.reset();
        Damaged.Overlay = true;
        Tell();
    }
}

void InkControl::FinishGesture() {
    if (Doing) {
        Doing->Finish(*this);
        Doing.reset();
    }
}

const Stroke* InkControl::LiveStroke() const {
    return Doing ? Doing->LiveStroke() : nullptr;
}

Box InkControl::Lasso() const {
    return Doing ? Doing->Lasso() : Box();
}

Box InkControl::SelectionFrame() const {
    const Box frame = Paper.SelectedBounds();
    return Doing && !frame.IsEmpty() ? Doing->MovedFrame(frame) : frame;
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
