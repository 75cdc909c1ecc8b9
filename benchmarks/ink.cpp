// What ink costs: its bytes, the frame after a new sample of the pen, and painting all that is seen. At scale 2, on
// pages of 50 and of 5,000 strokes of 60 points each.
#include "host/ink/ink_canvas.h"
#include "tests/ink/handwriting.h"

#include <benchmark/benchmark.h>

#include <memory>

#include <malloc.h>

namespace {

using namespace tavo;
using namespace tavo::ink;

constexpr int kPointsEach = 60;
constexpr double kScale = 2;
constexpr Size kEditor{240, 244};

void CountPoints(benchmark::State& state, std::int64_t points) {
    state.SetItemsProcessed(state.iterations() * points);
}

void EncodeInk(benchmark::State& state) {
    const std::vector<PlacedStroke> strokes = WriteByHand(static_cast<int>(state.range(0)), kPointsEach);
    std::size_t bytes = 0;
    for (auto _ : state) {
        const std::vector<std::uint8_t> encoded = Encode(strokes);
        bytes = encoded.size();
        benchmark::DoNotOptimize(encoded.data());
    }
    CountPoints(state, state.range(0) * kPointsEach);
    state.counters["BytesPerPoint"] = static_cast<double>(bytes) / static_cast<double>(state.range(0) * kPointsEach);
}

void DecodeInk(benchmark::State& state) {
    const std::vector<std::uint8_t> bytes = Encode(WriteByHand(static_cast<int>(state.range(0)), kPointsEach));
    std::vector<PlacedStroke> strokes;
    for (auto _ : state) {
        if (Decode(bytes, strokes) != Reading::Whole) {
            state.SkipWithError("cannot be read");
            return;
        }
        benchmark::DoNotOptimize(strokes.data());
    }
    CountPoints(state, state.range(0) * kPointsEach);
}

// The editor on such a page, its picture up to date.
class Desk {
  public:
    explicit Desk(int strokes) {
        Control.Resize(kEditor);
        Control.SetData(Encode(WriteByHand(strokes, kPointsEach)));
        Control.SendMessageW(kInkSetPageStyle, kInkStyleRuled, 0);
        Control.SendMessageW(kInkSetPenMode, kInkPenDraws, 0);
        const Rect area = Control.View().Area();
        Canvas.Resize(static_cast<int>(area.Width() * kScale), static_cast<int>(area.Height() * kScale), kScale);
        Canvas.Update(Control);
    }

    InkShared Shared;
    InkControl Control{Shared};
    InkCanvas Canvas;
};

void FrameAfterSample(benchmark::State& state) {
    Desk desk(static_cast<int>(state.range(0)));
    const auto sampleAt = [](int number) {
        return PenSample{{20 + number % 180 + 0.3, 40 + number / 4 % 120 + 0.7},
                         500 + number % 200,
                         static_cast<std::uint32_t>(5 * number)};
    };
    int number = 0;
    for (auto _ : state) {
        if (number % kPointsEach == 0) { // a new stroke now and then, as writing goes
            desk.Control.PenUp(sampleAt(number));
            desk.Control.PenDown(PenEnd::Tip, sampleAt(number));
        }
        desk.Control.PenMove(sampleAt(++number));
        benchmark::DoNotOptimize(desk.Canvas.Update(desk.Control));
    }
}

void PaintAllSeen(benchmark::State& state) {
    Desk desk(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        desk.Control.SendMessageW(kInkSetPageStyle, kInkStyleRuled, 0); // all is to be painted anew
        benchmark::DoNotOptimize(desk.Canvas.Update(desk.Control));
    }
}

void ScrollByAWheelStep(benchmark::State& state) {
    Desk desk(static_cast<int>(state.range(0)));
    bool isDown = false;
    for (auto _ : state) {
        isDown = !isDown;
        desk.Control.Wheel(isDown ? -1 : 1);
        benchmark::DoNotOptimize(desk.Canvas.Update(desk.Control));
    }
}

double MegabytesInUse() {
    const struct mallinfo2 heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd) / 1e6;
}

// The memory of an editor with the page, less that of one with empty paper; the bytes it was read from are gone by
// then.
void OpenPage(benchmark::State& state) {
    double taken = 0;
    for (auto _ : state) {
        const double before = MegabytesInUse();
        const auto empty = std::make_unique<Desk>(0);
        const double between = MegabytesInUse();
        const auto full = std::make_unique<Desk>(static_cast<int>(state.range(0)));
        taken = MegabytesInUse() - between - (between - before);
    }
    state.counters["Megabytes"] = taken;
}

BENCHMARK(EncodeInk)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK(DecodeInk)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK(FrameAfterSample)->Arg(50)->Arg(5000)->Unit(benchmark::kMicrosecond);
BENCHMARK(PaintAllSeen)->Arg(50)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenPage)->Arg(5000)->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(ScrollByAWheelStep)->Arg(5000)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
