// Filling and painting the day's rows.
#include "calendar/day_list.h"

#include "calendar/day_row_text.h"
#include "framework/format.h"
#include "store/date_pictures.h"
#include "store/fit_text.h"
#include "store/item_kind.h"
#include "store/midnight.h"
#include "store/text_tables.h"

#include <algorithm>
#include <utility>

namespace tavo {

namespace {

constexpr Size kListSize{240, 210};
constexpr int kRowHeight = 51;
constexpr int kLineHeight = 17;
constexpr int kVisibleRows = 4;
constexpr int kLineLeft = 5;
constexpr int kLineRight = 220;
constexpr std::uint32_t kLineFormat = DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX;

constexpr Color kTextColor = Color::FromRgb(0, 0, 0);
constexpr Color kEmptyTextColor = Color::FromRgb(118, 118, 118); // can be read on white

Rect LineRect(int rowTop, int line) {
    return {kLineLeft, rowTop + line * kLineHeight, kLineRight, rowTop + (line + 1) * kLineHeight};
}

} // namespace

CDayList::CDayList(CMessagePump& pump, CProgramState& state)
    : CRowList(
          pump, state,
          {kListSize, kRowHeight, kVisibleRows, kEmptyListTexts[IndexOf(ItemKind::Appointment)], kEmptyTextColor}) {}

void CDayList::SetDate(int year, int month, int day) {
    Date = MidnightOf(year, month, day);
    TopRow = 0;
}

void CDayList::Load(IDayListOwner* owner) {
    Fill();
    if (owner != nullptr) {
        owner->OnDayListLoaded();
    }
    if (Handle() == WindowHandle::None) {
        return;
    }
    Invalidate();
    if (Host().Windows().IsWindowVisible(Handle())) {
        Paint();
    }
}

void CDayList::Fill() {
    Records.clear();
    // A date that does not exist has no text, and the store finds nothing for it.
    const std::u16string date = Host()
                                    .Locale()
                                    .GetDateFormatW(LocaleId::System, Date, kPictureShortDate, kShortDateBuffer)
                                    .value_or(std::u16string());
    const StoreReading reading(State.Store);
    const ComPtr<IPOutlookItemCollection> items =
        State.Store.QueryAppointments(FormatText(u"[Start] <= %s and [End] >= %s", date, date));
    if (!items) {
        return;
    }
    ComPtr<IAppointment> item;
    for (std::int32_t index = 1; Succeeded(items->Item(index, item)) && item; ++index) {
        AppointmentData record;
        static_cast<void>(item->get_Oid(record.Oid)); // without an OID the load fails, and that is all right
        static_cast<void>(State.Store.LoadAppointment(record.Oid, record)); // a record that is gone stays as it is
        record.Mark = index - 1;
        Records.push_back(std::move(record));
        item.Reset();
    }
}

void CDayList::SetTop(int row) {
    TopRow = std::clamp(row, 0, MaximumTop());
}

bool CDayList::TakeKey(int key) {
    if (key != VK_UP && key != VK_DOWN) {
        return false;
    }
    SetTop(key == VK_UP ? TopRow - 1 : TopRow + 1);
    Invalidate();
    return true;
}

void CDayList::PaintRow(int row, const Rect& area) {
    const AppointmentData& record = Records[static_cast<std::size_t>(row)];
    const SharedFonts& fonts = State.Fonts;
    const DayRowText text = DescribeDayRow(record, Host().Locale());
    const auto drawLine = [&](int line, FontHandle font, const std::u16string& words) {
        Surface().DrawTextW(FitText(Host().Drawing(), font, words, kLineRight - kLineLeft), LineRect(area.Top, line),
                            {font, kTextColor, kLineFormat});
    };
    DrawSeparators(area);
    drawLine(0, fonts.FontArial10Bold, text.Heading);
    drawLine(1, fonts.FontArial10, text.Times);
    drawLine(2, fonts.FontArial10, text.Recurrence);
    Declare({area, PaintedRole::Row, text.Heading, row});
}

} // namespace tavo
