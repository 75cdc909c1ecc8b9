// The question to the store, and the look through its answer.
#include "page/series_day.h"

#include "framework/format.h"
#include "store/date_pictures.h"

#include <string>
#include <string_view>

namespace tavo {

namespace {

constexpr std::u16string_view kRestriction = u"[Start] <= %s and [End] >= %s";

bool BeginsAt(IAppointment& occurrence, const SYSTEMTIME& start, ILocale& locale) {
    DATE date = kNoDate;
    SYSTEMTIME begin;
    if (Failed(occurrence.get_Start(date)) || !locale.VariantTimeToSystemTime(date, begin)) {
        return false;
    }
    begin.DayOfWeek = start.DayOfWeek; // follows from the date, and drafts do not have it
    return begin == start;
}

} // namespace

ComPtr<IAppointment> FindSeriesDay(CProgramState& state, const AppointmentData& series, const SYSTEMTIME& day) {
    ILocale& locale = state.Host().Locale();
    const std::u16string date =
        locale.GetDateFormatW(LocaleId::System, day, kPictureShortDate, kShortDateBuffer).value_or(u"");
    const StoreReading reading(state.Store);
    const ComPtr<IPOutlookItemCollection> items = state.Store.QueryAppointments(FormatText(kRestriction, date, date));
    ComPtr<IAppointment> found;
    ComPtr<IAppointment> item;
    for (std::int32_t index = 1; items && Succeeded(items->Item(index, item)) && item; ++index) {
        Oid oid = 0;
        const bool isOfSeries = Succeeded(item->get_Oid(oid)) && oid == series.Oid;
        if (isOfSeries && BeginsAt(*item, series.Start, locale)) {
            return item;
        }
        if (isOfSeries && !found) {
            found = item;
        }
        item.Reset();
    }
    return found;
}

AppointmentData RecordOfDay(const AppointmentData& series, IAppointment& occurrence, ILocale& locale) {
    AppointmentData record = series;
    DATE start = kNoDate;
    DATE end = kNoDate;
    if (Succeeded(occurrence.get_Start(start)) && Succeeded(occurrence.get_End(end))) {
        static_cast<void>(locale.VariantTimeToSystemTime(start, record.Start));
        static_cast<void>(locale.VariantTimeToSystemTime(end, record.End));
    }
    std::u16string text;
    if (Succeeded(occurrence.get_Subject(text))) {
        record.Subject = text;
    }
    if (Succeeded(occurrence.get_Location(text))) {
        record.Location = text;
    }
    return record;
}

} // namespace tavo
