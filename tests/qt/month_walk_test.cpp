// Twenty years of the month page, walked by keys: every mark against a walk through a paper calendar.
#include "calendar/calendar_page_look.h"
#include "calendar/month_grid.h"
#include "host/outlook/import_writer.h"
#include "host/outlook/store.h"
#include "host/posix/store_machine.h"
#include "tests/qt/desktop_program.h"
#include "tests/rules/naive_expansion.h"

#include <QImage>
#include <QPixmap>
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <string>

namespace tavo::qt {
namespace {

using rules::test::FindPaperDate;
using rules::test::PaperDate;
using rules::test::PaperRule;
using rules::test::WalkRule;

constexpr int kCalendarTab = 150; // x in the page bar
constexpr int kFirstYear = 2006;
constexpr int kYears = 20;
constexpr int kMonthsPerYear = 12;
constexpr int kItems = 700;
constexpr long kMinutesPerDay = 1440;
constexpr int kMarkMiddle = 2; // of a mark, from its left and its bottom
constexpr long kNoLimit = 1'000'000;

struct KindMark {
    std::optional<TagList> Tag;
    int Offset; // from the first mark
    Color Ink;
};

constexpr std::array<KindMark, 4> kKinds{{{TagList::Alarm, 0, kAlarmMark},
                                          {TagList::Holiday, 6, kHolidayMark},
                                          {TagList::Anniversary, 12, kAnniversaryMark},
                                          {std::nullopt, 18, kAppointmentMark}}};

class MonthWalk : public testing::Test {
  protected:
    MonthWalk() {
        for (PaperDate date = FindPaperDate(kFirstYear, 1, 1); date.Year < kFirstYear + kYears; date.GoToNextDay()) {
            Days.push_back(date);
        }
    }

    // Plain remainders, so that the items are the same with every library.
    long Draw(long from, long to) {
        return from + static_cast<long>(Source() % static_cast<unsigned long>(to - from + 1));
    }

    void FillStore() {
        outlook::StorePtr store;
        ASSERT_EQ(outlook::OpenStore(posix::SystemMachine(), Root->Open().StorePath(), {}, store), Status::Ok);
        outlook::ImportWriter writer(store);
        ASSERT_EQ(writer.Begin(u"given"), Status::Ok);
        for (int number = 0; number < kItems; ++number) {
            const auto kind = static_cast<std::size_t>(number) % kKinds.size();
            number % 3 == 0 ? WriteSeries(writer, kind) : WriteItem(writer, kind);
        }
        ASSERT_EQ(writer.Commit(), Status::Ok);
    }

    // An item of these times, which are minutes; false when the store does not take it.
    bool Write(outlook::ImportWriter& writer, rules::StoredItem& item, const PaperDate& day, long start, long length,
               std::size_t kind) {
        item.Subject = u"Item";
        item.Start = rules::MidnightOf(day.Number) + start * 60;
        item.End = item.Start + length * 60;
        outlook::ImportOutcome outcome;
        EXPECT_EQ(writer.Write(item, outcome), Status::Ok);
        if (outcome.Result == outlook::ImportResult::Refused) {
            return false;
        }
        if (const std::optional<TagList> tag = kKinds[kind].Tag) {
            EXPECT_EQ(writer.RequestTag(*tag, outcome.Item), Status::Ok);
        }
        return true;
    }

    void WriteItem(outlook::ImportWriter& writer, std::size_t kind) {
        constexpr std::array<long, 8> kLengths{0, 30, 90, kMinutesPerDay, 1500, 3 * kMinutesPerDay, 5000, 28000};
        const PaperDate& day = DrawDay();
        rules::StoredItem item;
        item.AllDay = Draw(1, 4) == 1;
        const long start = item.AllDay ? 0 : Draw(0, kMinutesPerDay - 1);
        const long length =
            item.AllDay ? (Draw(1, 2) == 1 ? 0 : Draw(2, 20) * kMinutesPerDay) : kLengths[DrawBelow(kLengths.size())];
        if (Write(writer, item, day, start, length, kind)) {
            Expect(day.Number, start, length, kind);
        }
    }

    void WriteSeries(outlook::ImportWriter& writer, std::size_t kind) {
        constexpr std::array<int, 6> kTypes{kRecursDaily,    kRecursWeekly, kRecursMonthly,
                                            kRecursMonthNth, kRecursYearly, kRecursYearNth};
        const PaperDate& day = DrawDay();
        PaperRule rule;
        rule.Type = kTypes[DrawBelow(kTypes.size())];
        rule.Interval = static_cast<int>(rule.Type == kRecursDaily ? Draw(5, 60) : Draw(1, 6));
        rule.Mask = 1 << Draw(0, 6);
        rule.DayOfMonth = static_cast<int>(Draw(1, 28));
        rule.Instance = static_cast<int>(Draw(1, 5));
        rule.MonthOfYear = static_cast<int>(Draw(1, 12));
        rules::StoredItem item;
        item.Pattern = {rule.Type, rule.Interval, rule.Mask, rule.DayOfMonth, rule.Instance, rule.MonthOfYear};
        long limit = kNoLimit;
        long last = Days.back().Number + kGridCells;
        if (Draw(1, 2) == 1) {
            limit = Draw(1, 20);
            item.Pattern.End = rules::PatternEnd::AfterCount;
            item.Pattern.Occurrences = static_cast<std::int32_t>(limit);
        } else if (Draw(1, 2) == 1) {
            last = day.Number + Draw(0, 2000);
            item.Pattern.End = rules::PatternEnd::OnDate;
            item.Pattern.LastDay = last;
        }
        const long start = Draw(0, kMinutesPerDay - 1);
        const long length = Draw(0, 2 * kMinutesPerDay);
        if (Write(writer, item, day, start, length, kind)) {
            for (const long occurrence : WalkRule(rule, day, last, limit)) {
                Expect(occurrence, start, length, kind);
            }
        }
    }

    const PaperDate& DrawDay() { return Days[DrawBelow(Days.size())]; }

    std::size_t DrawBelow(std::size_t count) { return static_cast<std::size_t>(Draw(0, static_cast<long>(count) - 1)); }

    void Expect(long day, long start, long length, std::size_t kind) {
        const long end = start + length;
        long more = end / kMinutesPerDay;
        if (more > 0 && end % kMinutesPerDay == start) {
            --more; // it ends as the day begins that would be its last
        }
        for (long touched = day; touched <= day + more; ++touched) {
            Marks[touched] = static_cast<std::uint8_t>(Marks[touched] | (1U << kind));
        }
    }

    // A letter for each cell: which of the four marks it has.
    std::string ExpectedMarks(int year, int month) {
        const PaperDate first = FindPaperDate(year, month, 1);
        std::string marks;
        for (long day = first.Number - first.Weekday; marks.size() < kGridCells; ++day) {
            const auto known = Marks.find(day);
            marks += static_cast<char>('a' + (known == Marks.end() ? 0 : known->second));
        }
        return marks;
    }

    static std::string SeenMarks(QtHost& host) {
        const QImage shown = host.Desktop().grab().toImage();
        std::string marks;
        for (int cell = 0; cell < kGridCells; ++cell) {
            const Rect rect = RectOfCell(cell / kGridColumns, cell % kGridColumns);
            char letter = 'a';
            for (std::size_t kind = 0; kind < kKinds.size(); ++kind) {
                const Rect middle = Rect::FromSize(rect.Left + kCellIndent + kKinds[kind].Offset + kMarkMiddle,
                                                   rect.Bottom - kMarkMiddle + kClientArea.Top, 1, 1);
                const QRgb pixel = shown.pixel(host.Parts().Geometry.RealPixels(middle).center());
                if (Color::FromRgb(qRed(pixel), qGreen(pixel), qBlue(pixel)) == kKinds[kind].Ink) {
                    letter = static_cast<char>(letter + (1 << kind));
                }
            }
            marks += letter;
        }
        return marks;
    }

    std::mt19937 Source{20041103};
    std::vector<PaperDate> Days;
    std::map<long, std::uint8_t> Marks; // of each day: a bit for each kind
    std::shared_ptr<TemporaryRoot> Root = std::make_shared<TemporaryRoot>();
};

TEST_F(MonthWalk, TwentyYearsHaveNoWrongMark) {
    FillStore();
    DesktopProgram program(Root);
    program.Tap(kCalendarTab, 250);
    const SYSTEMTIME today = program.Host.Clock().GetLocalTime();
    for (int year = today.Year; year != kFirstYear; year += year < kFirstYear ? 1 : -1) {
        program.Key(year < kFirstYear ? VK_DOWN : VK_UP);
    }
    for (int month = today.Month; month > 1; --month) {
        program.Key(VK_LEFT);
    }
    int checked = 0;
    for (int month = 0; month < kYears * kMonthsPerYear; ++month) {
        program.Do([&, month] {
            const int year = kFirstYear + month / kMonthsPerYear;
            const int monthOfYear = month % kMonthsPerYear + 1;
            const std::string expected = ExpectedMarks(year, monthOfYear);
            EXPECT_EQ(SeenMarks(program.Host), expected) << year << "-" << monthOfYear;
            checked += expected.find_first_not_of('a') == std::string::npos ? 0 : 1;
        });
        program.Key(VK_RIGHT);
    }
    EXPECT_TRUE(program.Settle());
    EXPECT_EQ(checked, kYears * kMonthsPerYear) << "months without any mark show nothing";
}

} // namespace
} // namespace tavo::qt
