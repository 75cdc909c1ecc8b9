// One control as large as the editor's, and a pen.
#pragma once

#include "host/ink/ink_control.h"
#include "tests/ink/handwriting.h"

#include <gmock/gmock.h>

namespace tavo::ink {

class ControlDesk : public ::testing::Test {
  protected:
    ControlDesk() {
        Shared.Now = [] { return std::int64_t{1'099'501'800'000}; };
        Control.Resize({240, 244});
    }

    int Send(MessageNumber number, int first = 0, int second = 0) {
        return Control.SendMessageW(number, first, second);
    }

    // As the editor's two states are set.
    void Write(int zoom = 100) {
        Send(kInkSetPageStyle, kInkStyleRuled);
        Send(kInkSetZoom, 0, zoom);
        Send(kInkSetPenMode, kInkPenDraws);
        Send(kInkSetView, kInkViewWriting);
    }

    void Choose() {
        Send(kInkSetPenMode, kInkPenSelects);
        Send(kInkSetView, kInkViewTyping);
    }

    // In pixels of the control.
    void Drag(double fromX, double fromY, double toX, double toY, PenEnd end = PenEnd::Tip) {
        Control.PenDown(end, {{fromX, fromY}, kNoPressure, Time});
        for (int step = 1; step <= 8; ++step) {
            Time += 5;
            Control.PenMove({{fromX + (toX - fromX) * step / 8, fromY + (toY - fromY) * step / 8}, kNoPressure, Time});
        }
        Control.PenUp({{toX, toY}, kNoPressure, Time});
    }

    void Tap(double x, double y) { Drag(x, y, x, y); }

    std::size_t Count() const { return Control.Ink().Strokes().size(); }

    std::vector<std::size_t> Selected() const { return Control.Ink().SelectedIndices(); }

    InkShared Shared;
    InkControl Control{Shared};
    std::uint32_t Time = 1000;
};

} // namespace tavo::ink
