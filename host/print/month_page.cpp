// From the title down: the names of the weekdays, the grid, and in each cell its number and its entries.
#include "host/print/month_page.h"

#include "host/print/page_words.h"

#include <algorithm>
#include <string>

namespace tavo::print {
namespace {

constexpr int kDaysOfWeek = 7;
constexpr double kTitleHeight = 34;
constexpr int kTitleSize = 20;
constexpr double kNamesHeight = 18;
constexpr int kNamesSize = 10;
constexpr double kLegendHeight = 16;
constexpr int kLegendSize = 8;
constexpr double kNumberHeight = 15;
constexpr int kNumberSize = 11;
constexpr double kLineHeight = 10.5;
constexpr int kLineSize = 8;
constexpr double kInset = 3;
constexpr double kRule = 0.5;
constexpr Color kInk = Color::FromRgb(0, 0, 0);
constexpr Color kRuleInk = Color::FromRgb(128, 128, 128);
constexpr Color kOtherInk = Color::FromRgb(110, 110, 110); // of days of the months beside it
constexpr Color kHolidayInk = Color::FromRgb(176, 0, 0);

class MonthPage {
  public:
    MonthPage(const PrintRequest& request, std::pair<DayNumber, DayNumber> shown, const PrintedDays& days)
        : Month(rules::CivilFromDay(request.First).Month), First(shown.first), Days(days) {
        const double left = request.Margin;
        const double width = request.Sheet.Height - 2 * request.Margin; // it lies across
        const double bottom = request.Sheet.Width - request.Margin - kLegendHeight;
        Weeks = static_cast<int>((shown.second - shown.first + 1) / kDaysOfWeek);
        Grid = {left, request.Margin + kTitleHeight + kNamesHeight, width,
                bottom - request.Margin - kTitleHeight - kNamesHeight};
        Write({left, request.Margin, width, kTitleHeight}, WriteDate(request.First, u"MMMM yyyy"), kTitleSize).IsBold =
            true;
        Write({left, bottom, width, kLegendHeight}, std::u16string(kLegend), kLegendSize).Ink = kOtherInk;
    }

    PrintedPage LayOut() {
        for (int column = 0; column < kDaysOfWeek; ++column) {
            PrintedText& name =
                Write({Grid.Left + column * CellWidth(), Grid.Top - kNamesHeight, CellWidth(), kNamesHeight},
                      WriteDate(First + column, u"dddd"), kNamesSize);
            name.Align = Alignment::Center;
        }
        for (int week = 0; week < Weeks; ++week) {
            for (int column = 0; column < kDaysOfWeek; ++column) {
                LayOutCell(First + DayNumber{week} * kDaysOfWeek + column, CellAt(week, column));
            }
        }
        for (int line = 0; line <= Weeks; ++line) {
            Page.Areas.push_back({{Grid.Left, Grid.Top + line * CellHeight(), Grid.Width, kRule}, kRuleInk});
        }
        for (int line = 0; line <= kDaysOfWeek; ++line) {
            Page.Areas.push_back({{Grid.Left + line * CellWidth(), Grid.Top, kRule, Grid.Height + kRule}, kRuleInk});
        }
        return std::move(Page);
    }

  private:
    double CellWidth() const { return Grid.Width / kDaysOfWeek; }

    double CellHeight() const { return Grid.Height / Weeks; }

    Box CellAt(int week, int column) const {
        return {Grid.Left + column * CellWidth() + kInset, Grid.Top + week * CellHeight() + 1, CellWidth() - 2 * kInset,
                CellHeight() - 2};
    }

    PrintedText& Write(const Box& place, std::u16string text, int size) {
        return Page.Texts.emplace_back(PrintedText{place, std::move(text), size, false, kInk, Alignment::Left});
    }

    void LayOutCell(DayNumber day, const Box& cell) {
        const auto found = Days.find(day);
        const bool isOfMonth = rules::CivilFromDay(day).Month == Month;
        const std::vector<PrintedEntry> none;
        const std::vector<PrintedEntry>& entries = found == Days.end() ? none : found->second;
        const bool isHoliday = std::any_of(entries.begin(), entries.end(), [](const PrintedEntry& entry) {
            return entry.Kind == outlook::MirroredKind::Holiday;
        });
        PrintedText& number = Write({cell.Left, cell.Top, cell.Width, kNumberHeight}, WriteNumber(day), kNumberSize);
        number.IsBold = isOfMonth;
        number.Ink = !isOfMonth ? kOtherInk : isHoliday ? kHolidayInk : kInk;
        const auto room = static_cast<std::size_t>(std::max(0.0, (cell.Height - kNumberHeight) / kLineHeight));
        const std::size_t shown = entries.size() <= room ? entries.size() : room - std::min<std::size_t>(room, 1);
        Box line{cell.Left, cell.Top + kNumberHeight, cell.Width, kLineHeight};
        for (std::size_t index = 0; index < shown; ++index) {
            const PrintedEntry& entry = entries[index];
            std::u16string text(SignOf(entry.Kind));
            text += entry.Start.empty() ? entry.Subject : entry.Start + u" " + entry.Subject;
            Write(line, std::move(text), kLineSize).Ink = !isOfMonth                                     ? kOtherInk
                                                          : entry.Kind == outlook::MirroredKind::Holiday ? kHolidayInk
                                                                                                         : kInk;
            line.Top += kLineHeight;
        }
        if (shown < entries.size() && room > 0) {
            const std::string more = "+" + std::to_string(entries.size() - shown) + " more";
            Write(line, std::u16string(more.begin(), more.end()), kLineSize).Ink = kOtherInk;
        }
    }

    static std::u16string WriteNumber(DayNumber day) {
        const std::string digits = std::to_string(rules::CivilFromDay(day).Day);
        return {digits.begin(), digits.end()};
    }

    int Month;
    DayNumber First;
    const PrintedDays& Days;
    int Weeks = 0;
    Box Grid;
    PrintedPage Page;
};

} // namespace

PrintedPage LayOutMonth(const PrintRequest& request, std::pair<DayNumber, DayNumber> shown, const PrintedDays& days) {
    return MonthPage(request, shown, days).LayOut();
}

} // namespace tavo::print
