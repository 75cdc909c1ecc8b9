// Where each line goes, and when a page is full.
#include "host/print/list_pages.h"

#include "host/ink/paper_view.h"
#include "host/print/page_words.h"

#include <algorithm>
#include <string>
#include <utility>

namespace tavo::print {
namespace {

constexpr double kTitleHeight = 34;
constexpr int kTitleSize = 18;
constexpr double kDayHeight = 32;
constexpr int kDaySize = 12;
constexpr double kDayGap = 9;   // of that height, above it
constexpr double kDayLine = 18; // above its rule
constexpr double kEntryHeight = 16;
constexpr int kEntrySize = 10;
constexpr double kTimeWidth = 80;
constexpr double kPlaceShare = 0.35; // of what is right of the times
constexpr double kGap = 8;
constexpr double kNumberHeight = 20;
constexpr int kNumberSize = 8;
constexpr double kRule = 0.5;
constexpr double kInkGap = 12;
constexpr Color kInk = Color::FromRgb(0, 0, 0);
constexpr Color kRuleInk = Color::FromRgb(128, 128, 128);
constexpr Color kQuietInk = Color::FromRgb(90, 90, 90);
constexpr std::u16string_view kLongDate = u"dddd, MMMM d, yyyy";
constexpr std::u16string_view kDate = u"MMMM d, yyyy";
constexpr std::u16string_view kNothing = u"No entries";

std::u16string WriteTitle(PrintKind kind, DayNumber first, DayNumber last) {
    return kind == PrintKind::Day || first == last ? WriteDate(first, kLongDate)
                                                   : WriteDate(first, kDate) + u" - " + WriteDate(last, kDate);
}

} // namespace

ListPages::ListPages(const PrintRequest& request)
    : Wanted(request), Area{request.Margin, request.Margin, request.Sheet.Width - 2 * request.Margin,
                            request.Sheet.Height - 2 * request.Margin - kNumberHeight} {
    Begin();
}

void ListPages::Begin() {
    Pages.emplace_back();
    Used = 0;
}

Box ListPages::Take(double height) {
    if (Used > 0 && Used + height > Area.Height) {
        Begin();
    }
    const Box place{Area.Left, Area.Top + Used, Area.Width, height};
    Used += height;
    return place;
}

PrintedText& ListPages::Write(const Box& place, std::u16string text, int size) {
    return Pages.back().Texts.emplace_back(PrintedText{place, std::move(text), size, false, kInk, Alignment::Left});
}

void ListPages::AddTitle(PrintKind kind, DayNumber first, DayNumber last) {
    Write(Take(kTitleHeight), WriteTitle(kind, first, last), kTitleSize).IsBold = true;
}

// Not as the last line of a page.
void ListPages::AddDay(DayNumber day) {
    if (Used + kDayHeight + kEntryHeight > Area.Height) {
        Begin();
    }
    Box place = Take(kDayHeight);
    place.Top += kDayGap;
    place.Height = kDayLine;
    Write(place, WriteDate(day, kLongDate), kDaySize).IsBold = true;
    Pages.back().Areas.push_back({{place.Left, place.Bottom(), place.Width, kRule}, kRuleInk});
}

void ListPages::AddEntry(const PrintedEntry& entry) {
    const Box line = Take(kEntryHeight);
    if (!entry.Time.empty()) {
        Write({line.Left, line.Top, kTimeWidth, line.Height}, entry.Time, kEntrySize);
    }
    const double width = line.Width - kTimeWidth;
    const double placeWidth = entry.Location.empty() ? 0 : width * kPlaceShare;
    Write({line.Left + kTimeWidth, line.Top, width - placeWidth - (placeWidth > 0 ? kGap : 0), line.Height},
          std::u16string(SignOf(entry.Kind)) + entry.Subject, kEntrySize);
    if (placeWidth > 0) {
        PrintedText& place =
            Write({line.Right() - placeWidth, line.Top, placeWidth, line.Height}, entry.Location, kEntrySize);
        place.Ink = kQuietInk;
    }
}

void ListPages::AddNothing() {
    const Box line = Take(kEntryHeight);
    Write({line.Left + kTimeWidth, line.Top, line.Width - kTimeWidth, line.Height}, std::u16string(kNothing),
          kEntrySize)
        .Ink = kQuietInk;
}

void ListPages::AddInk(const std::vector<ink::PlacedStroke>& strokes) {
    ink::Box bounds;
    for (const ink::PlacedStroke& stroke : strokes) {
        bounds = bounds.United(stroke.Bounds);
    }
    if (strokes.empty() || bounds.Right <= 0) {
        return;
    }
    const double scale = Area.Width / std::max<double>(bounds.Right, ink::kPaperWidth);
    const double height = std::min(bounds.Bottom * scale, Area.Height - kInkGap);
    Box place = Take(height + kInkGap);
    place.Top += kInkGap;
    place.Height = height;
    Pages.back().Inks.push_back({place, strokes});
}

std::vector<PrintedPage> ListPages::Finish() {
    const std::size_t all = Pages.size();
    for (std::size_t page = 0; page < all; ++page) {
        const Box foot{Area.Left, Area.Bottom(), Area.Width, kNumberHeight};
        const std::string number = std::to_string(page + 1) + " / " + std::to_string(all);
        Pages[page].Texts.push_back({foot, std::u16string(kLegend), kNumberSize, false, kQuietInk, Alignment::Left});
        if (all > 1) {
            Pages[page].Texts.push_back(
                {foot, std::u16string(number.begin(), number.end()), kNumberSize, false, kQuietInk, Alignment::Right});
        }
    }
    return std::move(Pages);
}

} // namespace tavo::print
