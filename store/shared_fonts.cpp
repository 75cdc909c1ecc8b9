// Which fonts the pages share.
#include "store/shared_fonts.h"

namespace tavo {

namespace {

constexpr std::u16string_view kArial = u"Arial";
constexpr std::u16string_view kComicSans = u"Comic Sans MS";
constexpr int kNormal = 400;
constexpr int kBold = 700;

struct FontEntry {
    FontHandle SharedFonts::*Font;
    std::u16string_view Face;
    int Weight;
    int HeightPoints;
    int WidthPoints;
};

constexpr FontEntry kFonts[] = {
    {&SharedFonts::FontArial11Bold, kArial, kBold, 11, 0},
    {&SharedFonts::FontArial9Bold, kArial, kBold, 9, 0},
    {&SharedFonts::FontArial10Bold, kArial, kBold, 10, 0},
    {&SharedFonts::FontArial10, kArial, kNormal, 10, 0},
    {&SharedFonts::FontArial7, kArial, kNormal, 7, 0},
    {&SharedFonts::FontComic13Bold, kComicSans, kBold, 13, 0},
    {&SharedFonts::FontComicHuge, kComicSans, kBold, 100, 25},
    {&SharedFonts::FontComic20, kComicSans, kBold, 20, 20},
};

} // namespace

SharedFonts::SharedFonts(IDrawing& drawing) : Drawing(drawing) {
    const int dotsPerInch = drawing.LogicalPixelsPerInch();
    for (const FontEntry& entry : kFonts) {
        LogFont font;
        font.FaceName = entry.Face;
        font.Weight = entry.Weight;
        font.Height = -(entry.HeightPoints * dotsPerInch) / 72;
        font.Width = -(entry.WidthPoints * dotsPerInch) / 72;
        this->*entry.Font = drawing.CreateFontIndirectW(font);
    }
}

SharedFonts::~SharedFonts() {
    for (const FontEntry& entry : kFonts) {
        Drawing.DeleteObject(this->*entry.Font);
    }
}

} // namespace tavo
