// Slices of the work, driven by a timer of the main view, which runs in the background too.
#include "page/progress_dlg.h"

#include "res/dialog_templates.h"
#include "res/resource_ids.h"

namespace tavo {

namespace {

// Work that is done by then needs no display.
constexpr std::uint32_t kQuickMilliseconds = 500;
constexpr int kQuickItems = 2000; // whatever the clock says

constexpr std::uint32_t kSliceMilliseconds = 20;
constexpr int kSliceItems = 500; // whatever the clock says

constexpr Rect kTextArea{20, 60, 220, 80};
constexpr Rect kBarFrame{20, 84, 220, 100};
constexpr Color kBackground = Color::FromRgb(255, 255, 255);
constexpr Color kTextColor = Color::FromRgb(0, 0, 0);
constexpr Color kFrameColor = Color::FromRgb(0, 0, 0);
constexpr Color kBarColor{0xBF6000};

constexpr Rect Shrink(const Rect& area) {
    return {area.Left + 1, area.Top + 1, area.Right - 1, area.Bottom - 1};
}

// False when it was not done in time.
bool DoQuickly(ILongWork& work, WorkStep step, IClock& clock) {
    const std::uint32_t begin = clock.GetTickCount();
    for (int count = 0; count < kQuickItems && clock.GetTickCount() - begin < kQuickMilliseconds; ++count) {
        if (!(work.*step)()) {
            return true;
        }
    }
    return false;
}

// False when it was cancelled.
bool DoShown(CMessagePump& pump, CProgramState& state, ILongWork& work, WorkStep step, std::u16string_view caption) {
    return DoQuickly(work, step, pump.Host().Clock()) ||
           CProgressDlg(pump, state, work, step, caption).DoModal() == IDOK;
}

} // namespace

CProgressDlg::CProgressDlg(CMessagePump& pump, CProgramState& state, ILongWork& work, WorkStep step,
                           std::u16string_view caption)
    : CDialog(pump, kProgressTemplate, NavigationButtons::Close), State(state), Work(work), Step(step),
      Caption(caption) {}

CProgressDlg::~CProgressDlg() {
    Host().Windows().KillTimer(State.MainView, kTimerWork);
    State.Work = nullptr;
}

void CProgressDlg::OnInitDialog() {
    Host().Windows().SetWindowTextW(Handle(), Caption);
    State.Work = this;
    Host().Windows().SetTimer(State.MainView, kTimerWork, 1);
}

void CProgressDlg::DoSlice() {
    const std::uint32_t begin = Host().Clock().GetTickCount();
    for (int count = 0; count < kSliceItems; ++count) {
        if (!(Work.*Step)()) {
            EndDialog(IDOK);
            return;
        }
        if (Host().Clock().GetTickCount() - begin >= kSliceMilliseconds) {
            break;
        }
    }
    Invalidate();
}

void CProgressDlg::Paint() {
    const std::u16string text = Work.DescribeProgress();
    DropPainted();
    Surface().FillRect(Rect::Whole(Surface().GetSize()), kBackground);
    Surface().DrawTextW(text, kTextArea,
                        {State.Fonts.FontArial10, kTextColor, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX});
    Surface().FillRect(kBarFrame, kFrameColor);
    Rect bar = Shrink(kBarFrame);
    Surface().FillRect(bar, kBackground);
    if (Work.Total() > 0) {
        bar.Right = bar.Left + static_cast<int>(std::int64_t{bar.Width()} * Work.Done() / Work.Total());
        Surface().FillRect(bar, kBarColor);
    }
    Declare({kTextArea, PaintedRole::Text, text});
    PresentSurface();
}

void RunLongWork(CMessagePump& pump, CProgramState& state, ILongWork& work, std::u16string_view caption) {
    if (!DoShown(pump, state, work, &ILongWork::DoNext, caption) &&
        !DoShown(pump, state, work, &ILongWork::TakeBackNext, caption)) {
        work.Abandon(); // there is no way back but this one
    }
}

} // namespace tavo
