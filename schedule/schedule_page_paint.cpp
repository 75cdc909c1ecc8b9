// How the Schedule page looks, apart from its lists.
#include "schedule/schedule_page.h"

#include "res/resource_ids.h"
#include "schedule/schedule_page_look.h"
#include "store/text_tables.h"

namespace tavo {

namespace {

constexpr Color kTitleColor = Color::FromRgb(0, 0, 0);
constexpr Color kBackground = Color::FromRgb(255, 255, 255);

// The cell of a bitmap whose cells stand side by side.
constexpr Rect CellOf(const Rect& place, int cell) {
    return Rect::FromSize(cell * place.Width(), 0, place.Width(), place.Height());
}

} // namespace

void CSchedulePage::Paint() {
    const auto drawCell = [this](int bitmap, const Rect& place, int cell) {
        Surface().DrawBitmap(bitmap, {place.Left, place.Top}, CellOf(place, cell));
    };
    DropPainted();
    Surface().FillRect(Rect::Whole(kPageSurface), kBackground);
    drawCell(kBitmapKinds, kKindIcon, static_cast<int>(Kind));
    Surface().DrawTextW(kKindNames[IndexOf(Kind)], kTitleArea,
                        {State.Fonts.FontComic13Bold, kTitleColor, DT_SINGLELINE | DT_VCENTER});
    drawCell(kBitmapArrows, kPreviousArrow, 0);
    drawCell(kBitmapArrows, kNextArrow, 1);
    NewButton.Draw(Surface());
    DrawPageBar();
    DeclareHeader();
    DeclarePageBar();
    PresentSurface();
}

void CSchedulePage::DeclareHeader() {
    Declare({kTitleArea, PaintedRole::Header, std::u16string(kKindNames[IndexOf(Kind)])});
    Declare({kPreviousArrow, PaintedRole::Button, u"Previous kind"});
    Declare({kNextArrow, PaintedRole::Button, u"Next kind"});
    Declare(NewButton.Describe(u"New"));
}

} // namespace tavo
