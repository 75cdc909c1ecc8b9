// The question to the store, and what becomes of its answer.
#include "schedule/appointment_item_list.h"

#include "framework/format.h"
#include "res/menus.h"
#include "res/resource_ids.h"
#include "schedule/item_days.h"
#include "store/date_pictures.h"
#include "store/item_deletion.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace tavo {

namespace {

constexpr ItemListLook kLook{34, 5, 1, 96};
constexpr int kLongestItem = 31; // days; one that began so long ago may reach into the period
constexpr std::u16string_view kRestriction = u"[Start] >= %s and [Start] <= %s and [End] >= %s";

// What the occurrence has of its own; false when its times cannot be read.
bool TakeOwn(IAppointment& item, ILocale& locale, AppointmentData& record) {
    DATE start = kNoDate;
    DATE end = kNoDate;
    std::u16string subject;
    if (Succeeded(item.get_Subject(subject))) {
        record.Subject = std::move(subject);
    }
    return Succeeded(item.get_Start(start)) && Succeeded(item.get_End(end)) &&
           locale.VariantTimeToSystemTime(start, record.Start) && locale.VariantTimeToSystemTime(end, record.End);
}

} // namespace

CAppointmentItemList::CAppointmentItemList(CMessagePump& pump, CProgramState& state, IItemListOwner& owner)
    : CItemList(pump, state, owner, ItemKind::Appointment, kLook) {}

std::u16string CAppointmentItemList::ShortDate(const SYSTEMTIME& date) const {
    return Host()
        .Locale()
        .GetDateFormatW(LocaleId::System, date, kPictureShortDate, kShortDateBuffer)
        .value_or(std::u16string());
}

ComPtr<IPOutlookItemCollection> CAppointmentItemList::QueryPeriod() {
    const std::u16string first = ShortDate(DayAfter(PeriodStart, -kLongestItem, Host().Locale()));
    return State.Store.QueryAppointments(FormatText(kRestriction, first, ShortDate(PeriodEnd), ShortDate(PeriodStart)));
}

bool CAppointmentItemList::OccursInPeriod(const AppointmentData& record) const {
    ILocale& locale = Host().Locale();
    return DaysBetween(record.Start, PeriodEnd, locale) >= 0 &&
           DaysBetween(PeriodStart, LastDayOf(record, locale), locale) >= 0;
}

bool CAppointmentItemList::Fill(const SYSTEMTIME& periodStart, const SYSTEMTIME& periodEnd) {
    PeriodStart = periodStart;
    PeriodEnd = periodEnd;
    std::vector<AppointmentData> rows;
    std::unordered_map<Oid, AppointmentData> stored; // a series is loaded once for all its occurrences
    const ComPtr<IPOutlookItemCollection> items = QueryPeriod();
    bool isWhole = items || Succeeded(State.Store.LastStoreResult);
    Status status = Status::InvalidArgument; // what the place after the last item gives
    ComPtr<IAppointment> item;
    for (std::int32_t index = 1; items && Succeeded(status = items->Item(index, item)) && item; ++index) {
        Oid oid = 0;
        static_cast<void>(item->get_Oid(oid)); // without an OID the load fails, and the item is passed over
        const auto [place, isFirst] = stored.try_emplace(oid);
        if (isFirst && State.Store.LoadAppointment(oid, place->second) == 0) {
            place->second.Oid = 0;
            isWhole = isWhole && State.Store.LastStoreResult == Status::NotFound;
        }
        AppointmentData record = place->second;
        if (record.Oid != 0 && TakeOwn(*item, Host().Locale(), record) && OccursInPeriod(record)) {
            rows.push_back(std::move(record)); // the store gives them in order of start, then OID
        }
        item.Reset();
    }
    SetRows(std::move(rows));
    return isWhole && status == Status::InvalidArgument;
}

bool CAppointmentItemList::DeleteSelected() {
    const AppointmentData* selected = GetSelected();
    if (selected == nullptr) {
        return false;
    }
    const bool deleted = DeleteItem(State, Kind(), *selected);
    static_cast<void>(Fill(PeriodStart, PeriodEnd)); // when the store refuses, with what is there still
    return deleted;
}

ItemRowText CAppointmentItemList::Describe(const AppointmentData& record) {
    ILocale& locale = Host().Locale();
    const int daysBefore = std::max(DaysBetween(record.Start, PeriodStart, locale), 0);
    return DescribeAppointmentRow(record, DayAfter(record.Start, daysBefore, locale), locale);
}

// Entries that would do nothing are greyed.
std::vector<MenuItem> CAppointmentItemList::MakeMenu(const AppointmentData& record) {
    std::vector<MenuItem> menu = LoadMenuW(kMenuPopups).at(kPopupSchedule).Children;
    std::erase_if(menu, [](const MenuItem& item) { return item.Id == kCommandPause; });
    AppointmentData stored;
    const bool isGone =
        State.Store.LoadAppointment(record.Oid, stored) == 0 && State.Store.LastStoreResult == Status::NotFound;
    const CategoryLists& categories = State.Categories;
    for (MenuItem& item : menu) {
        const bool isIn = (item.Id == kCommandCopyToAlarm && categories.IsAlarm(record.Oid)) ||
                          (item.Id == kCommandCopyToHoliday && categories.IsHoliday(record.Oid)) ||
                          (item.Id == kCommandCopyToAnniversary && categories.IsAnniversary(record.Oid));
        item.Enabled = item.IsSeparator || (!isGone && !isIn);
    }
    return menu;
}

} // namespace tavo
