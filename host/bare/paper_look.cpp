// The paper's own chrome.
#include "host/bare/paper_look.h"

#include "host/bare/colors.h"
#include "host/ink/picture.h"
#include "host/ink/recorder_bar.h"

#include <algorithm>
#include <cmath>

namespace tavo::bare {

namespace {

using shell::Argb;

constexpr Argb kFrameColor = 0xFF2F6FC0;
constexpr Argb kNoticeColor = 0xFF606870;
constexpr int kSwatchRadius = 7; // of a pen's colour

class PaperLook {
  public:
    PaperLook(BareHost& host, WindowHandle paper)
        : Ink(host.Papers.Find(paper)), Fonts(host), Whole(host.State.Tree.ScreenBounds(paper)) {}

    shell::Pieces Draw() {
        DrawBars();
        DrawFrame(Ink.SelectionFrame());
        DrawFrame(Ink.Lasso());
        const std::u16string_view notice = Ink.Notice();
        Made.emplace_back(
            shell::MakeParagraph(Fonts, shell::ChromeFont::Small, notice, OnScreen(Ink.View().Area()), kNoticeColor));
        if (const std::optional<Rect> bar = Ink.RecorderBar()) {
            DrawPens(*bar);
        }
        return std::move(Made);
    }

  private:
    Rect OnScreen(const Rect& inControl) const {
        return Rect::FromSize(Whole.Left + inControl.Left, Whole.Top + inControl.Top, inControl.Width(),
                              inControl.Height());
    }

    // How much of the paper is seen, and where.
    void DrawThumb(const Rect& bar, int offset, int seen, int all, bool isUpright) {
        Made.emplace_back(shell::FillPiece{bar, kFaceColor});
        const int length = isUpright ? bar.Height() : bar.Width();
        const int from = length * offset / std::max(all, 1);
        const int to = length * std::min(offset + seen, all) / std::max(all, 1);
        Made.emplace_back(shell::FillPiece{isUpright
                                               ? Rect{bar.Left + 4, bar.Top + from, bar.Right - 4, bar.Top + to}
                                               : Rect{bar.Left + from, bar.Top + 4, bar.Left + to, bar.Bottom - 4},
                                           kEdgeColor});
    }

    void DrawBars() {
        const ink::PaperView& view = Ink.View();
        const Rect area = OnScreen(view.Area());
        const Size paper = view.PaperSize();
        const Size seen = view.Extent();
        DrawThumb({area.Right, area.Top, Whole.Right, area.Bottom}, view.Offset().Y, seen.Height, paper.Height, true);
        if (view.HasSideBar()) {
            DrawThumb({area.Left, area.Bottom, Whole.Right, area.Bottom + ink::kScrollBarWidth}, view.Offset().X,
                      seen.Width, paper.Width, false);
        }
    }

    void DrawFrame(const ink::Box& box) {
        if (!box.IsEmpty()) {
            const ink::ViewPoint from = Ink.View().ToControl(box.Left, box.Top);
            const ink::ViewPoint to = Ink.View().ToControl(box.Right, box.Bottom);
            const auto round = [](double place) { return static_cast<int>(std::lround(place)); };
            const Rect frame = OnScreen({round(from.X), round(from.Y), round(to.X), round(to.Y)});
            Made.emplace_back(shell::FramePiece{frame, 0, kFrameColor});
        }
    }

    void DrawPens(const Rect& bar) {
        const ink::Pen& pen = Ink.ChosenPen();
        const auto inkOf = [](std::size_t color) { return ink::ToPixel(ink::kPenColors[color]); };
        const Argb chosen = inkOf(static_cast<std::size_t>(pen.Color));
        Made.emplace_back(shell::FillPiece{OnScreen(bar), kFaceColor});
        for (int cell = 0; cell < ink::kPenCells; ++cell) {
            const Rect place = OnScreen(ink::PenCell(bar, cell));
            const Point middle{(place.Left + place.Right) / 2, (place.Top + place.Bottom) / 2};
            if (ink::IsChosen(pen, cell)) {
                Made.emplace_back(shell::RoundedFillPiece{place, 3, kSelectionColor});
            }
            if (ink::IsColorCell(cell)) {
                Made.emplace_back(
                    shell::RoundedFillPiece{Rect::FromSize(middle.X - kSwatchRadius, middle.Y - kSwatchRadius,
                                                           2 * kSwatchRadius, 2 * kSwatchRadius),
                                            kSwatchRadius, inkOf(static_cast<std::size_t>(cell))});
            } else {
                const double width = ink::kPenWidths[static_cast<std::size_t>(cell) - ink::kPenColors.size()];
                const double y = middle.Y;
                Made.emplace_back(shell::LinePiece{{middle.X - 7.0, y}, {middle.X + 7.0, y}, width, chosen});
            }
        }
    }

    const ink::InkControl& Ink;
    shell::IChromeFonts& Fonts;
    Rect Whole;
    shell::Pieces Made;
};

} // namespace

shell::Pieces DrawPaperBars(BareHost& host, WindowHandle paper) {
    return PaperLook(host, paper).Draw();
}

} // namespace tavo::bare
