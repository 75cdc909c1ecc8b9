// How the item lists look.
#include "schedule/item_list.h"

#include "store/fit_text.h"

#include <algorithm>

namespace tavo {

namespace {

constexpr int kLineHeight = 17;
constexpr int kLineLeft = 5;
constexpr int kRightMargin = 20;
constexpr int kHeadingWidth = 130;
constexpr int kSmallRight = 224; // as far as the scroll bar lets it be seen
constexpr int kDotsWidth = 16;   // with the character before them, in the small font
constexpr std::uint32_t kLineFormat = DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX;

constexpr Color kWhite = Color::FromRgb(255, 255, 255);
constexpr Color kBlack = Color::FromRgb(0, 0, 0);
constexpr Color kSelection{0xBF6000};

} // namespace

void CItemList::PaintRow(int row, const Rect& area) {
    const ItemRowText text = Describe(Records[static_cast<std::size_t>(row)]);
    const bool selected = row == SelectedRow;
    const Color ink = selected ? kWhite : kBlack;
    Surface().FillRect(area, selected ? kSelection : kWhite);
    DrawSeparators(area);

    const FontHandle bold = State.Fonts.FontArial10Bold;
    Rect line{kLineLeft, area.Top, area.Right - kRightMargin, area.Top + kLineHeight};
    Surface().DrawTextW(MakeOneLine(FitText(Host().Drawing(), bold, text.Heading, kHeadingWidth)), line,
                        {bold, ink, kLineFormat});
    if (!text.Date.empty()) {
        Surface().DrawTextW(text.Date, {kLineLeft, line.Top, kSmallRight, line.Bottom},
                            {State.Fonts.FontArial7, ink, kLineFormat | DT_RIGHT});
    }
    std::u16string name = text.Heading;
    const std::size_t below = static_cast<std::size_t>(Look.LinesBelow);
    const std::size_t first = text.Lines.size() > below ? text.Lines.size() - below : 0;
    for (std::size_t index = 0; index < text.Lines.size(); ++index) {
        name += u", " + text.Lines[index];
        if (index >= first) {
            line.Top += kLineHeight;
            line.Bottom += kLineHeight;
            const bool isLast = index + 1 == text.Lines.size();
            DrawLine(text.Lines[index], isLast ? text.ShortLine : std::u16string(), line, ink);
        }
    }
    PaintedItem item{area, PaintedRole::Row, MakeOneLine(std::move(name)), row};
    item.Selected = selected;
    Declare(std::move(item));
}

// A line that is too long for the ordinary font is drawn in the small one, then in its shorter words, and cut only if
// it must be.
void CItemList::DrawLine(const std::u16string& words, const std::u16string& shorter, Rect area, Color color) {
    IDrawing& drawing = Host().Drawing();
    FontHandle font = State.Fonts.FontArial10;
    const auto fits = [&](const std::u16string& text) { return !IsWiderThan(drawing, font, text, area.Width()); };
    std::u16string shown = words;
    if (!fits(words)) {
        font = State.Fonts.FontArial7;
        area.Right = kSmallRight;
        if (!fits(words)) {
            const bool hasShorter = !shorter.empty() && fits(shorter);
            shown = hasShorter ? shorter : FitText(drawing, font, words, area.Width() - kDotsWidth);
        }
    }
    Surface().DrawTextW(MakeOneLine(std::move(shown)), area, {font, color, kLineFormat});
}

} // namespace tavo
