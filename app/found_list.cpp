// Two lines for each item: what it is, and when and where.
#include "app/found_list.h"

#include "store/date_pictures.h"
#include "store/fit_text.h"

#include <algorithm>

namespace tavo {

namespace {

constexpr int kRowHeight = 41;
constexpr int kLineHeight = 17;
constexpr int kLineTop = 4;
constexpr int kLineLeft = 5;
constexpr int kLineRight = 220;
constexpr int kDotsWidth = 16; // with the character before them
constexpr std::uint32_t kLineFormat = DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX;
constexpr Color kWhite = Color::FromRgb(255, 255, 255);
constexpr Color kBlack = Color::FromRgb(0, 0, 0);
constexpr Color kSelection{0xBF6000};
constexpr Color kEmptyTextColor = Color::FromRgb(118, 118, 118); // can be read on white
constexpr std::u16string_view kNoSubject = u"No Subject";

} // namespace

CFoundList::CFoundList(CMessagePump& pump, CProgramState& state, IFoundListOwner& owner)
    : CRowList(pump, state, {kExtent, kRowHeight, kVisibleRows, u"", kEmptyTextColor}), Owner(owner) {}

const MessageMap& CFoundList::Messages() {
    static constexpr MessageEntry entries[] = {
        On<&CFoundList::TakeStylusDown>(WM_LBUTTONDOWN),
        On<&CFoundList::TakeWheel>(WM_MOUSEWHEEL),
    };
    static const MessageMap map{entries, &CRowList::Messages()};
    return map;
}

void CFoundList::Clear() {
    Records.clear();
    Starts.clear();
    SelectedRow = 0;
    TopRow = 0;
    IsMoved = false;
    Invalidate();
}

void CFoundList::Add(const FoundItem& item, DATE today) {
    AppointmentData record;
    if (Count() >= kMostRows || !Host().Locale().VariantTimeToSystemTime(item.Start, record.Start)) {
        return;
    }
    record.Oid = item.Item;
    record.Subject = item.Subject;
    record.Location = item.Location;
    record.AllDay = item.AllDay;
    record.IsRecurring = item.IsRecurring;
    const auto place = std::upper_bound(Starts.begin(), Starts.end(), item.Start) - Starts.begin();
    Starts.insert(Starts.begin() + place, item.Start);
    Records.insert(Records.begin() + place, std::move(record));
    if (!IsMoved) {
        const auto next = std::lower_bound(Starts.begin(), Starts.end(), today) - Starts.begin();
        SelectedRow = std::min(static_cast<int>(next), Count() - 1);
    } else if (place <= SelectedRow) {
        ++SelectedRow;
    }
    ShowSelected();
    Invalidate();
}

bool CFoundList::MoveSelection(int key) {
    int step = 0;
    switch (key) {
    case VK_UP:
        step = -1;
        break;
    case VK_DOWN:
        step = 1;
        break;
    case VK_PRIOR:
        step = -kVisibleRows;
        break;
    case VK_NEXT:
        step = kVisibleRows;
        break;
    default:
        return false;
    }
    IsMoved = true;
    SelectedRow = std::clamp(SelectedRow + step, 0, std::max(Count() - 1, 0));
    ShowSelected();
    Invalidate();
    return true;
}

void CFoundList::ShowSelected() {
    TopRow = std::clamp(TopRow, std::max(SelectedRow - kVisibleRows + 1, 0), SelectedRow);
}

void CFoundList::SetTop(int row) {
    TopRow = std::clamp(row, 0, MaximumTop());
    Invalidate();
}

const AppointmentData* CFoundList::GetSelected() const {
    return SelectedRow < Count() ? &Records[static_cast<std::size_t>(SelectedRow)] : nullptr;
}

void CFoundList::TakeStylusDown(Point point) {
    const int row = TopRow + point.Y / kRowHeight;
    if (row < Count()) {
        SelectedRow = row;
        IsMoved = true;
        Invalidate();
        Owner.OnRowTapped();
    }
}

void CFoundList::TakeWheel(const Message& wheel) {
    SetTop(TopRow - wheel.Code);
    Owner.OnListScrolled();
}

std::u16string CFoundList::DescribeWhen(const AppointmentData& record) {
    ILocale& locale = Host().Locale();
    std::u16string text =
        locale.GetDateFormatW(LocaleId::System, record.Start, kPictureListDate, kDateTimeBuffer).value_or(u"");
    if (!record.AllDay) {
        text += u" " +
                locale.GetTimeFormatW(LocaleId::System, record.Start, kPictureListTime, kDateTimeBuffer).value_or(u"");
    }
    text += record.IsRecurring ? u" ..." : u"";
    return record.Location.empty() ? text : text + u", " + record.Location;
}

void CFoundList::PaintRow(int row, const Rect& area) {
    const AppointmentData& record = Records[static_cast<std::size_t>(row)];
    const bool selected = row == SelectedRow;
    const Color ink = selected ? kWhite : kBlack;
    Surface().FillRect(area, selected ? kSelection : kWhite);
    DrawSeparators(area);
    const std::u16string heading = MakeOneLine(record.Subject.empty() ? std::u16string(kNoSubject) : record.Subject);
    const std::u16string when = MakeOneLine(DescribeWhen(record));
    Rect line{kLineLeft, area.Top + kLineTop, kLineRight, area.Top + kLineTop + kLineHeight};
    const auto draw = [&](FontHandle font, const std::u16string& text) {
        IDrawing& drawing = Host().Drawing();
        const bool isWide = IsWiderThan(drawing, font, text, line.Width());
        Surface().DrawTextW(isWide ? FitText(drawing, font, text, line.Width() - kDotsWidth) : text, line,
                            {font, ink, kLineFormat});
        line.Top += kLineHeight;
        line.Bottom += kLineHeight;
    };
    draw(State.Fonts.FontArial10Bold, heading);
    draw(State.Fonts.FontArial10, when);
    PaintedItem item{area, PaintedRole::Row, heading + u", " + when, row};
    item.Selected = selected;
    Declare(std::move(item));
}

} // namespace tavo
