// Properties of a recurrence pattern.
#include "host/outlook/recurrence_pattern.h"

namespace tavo::outlook {

namespace {

ComPtr<Appointment> Share(Appointment& item) {
    item.AddRef();
    return ComPtr<Appointment>::Adopt(&item);
}

DATE TimeAlone(Seconds time) {
    return DateFromSeconds(TimeOfDay(time));
}

} // namespace

RecurrencePattern::RecurrencePattern(Appointment& item) : Owner(Share(item)) {}

template <class Work> Status RecurrencePattern::With(Work&& work) {
    ItemDraft* draft = nullptr;
    const Status status = Owner->Load(draft);
    if (Succeeded(status)) {
        work(*draft);
    }
    return status;
}

template <class Work> Status RecurrencePattern::Putting(PutSet flag, Work&& work) {
    return With([&](ItemDraft& draft) {
        draft.BeginPattern();
        work(draft);
        draft.Put |= flag;
    });
}

Status RecurrencePattern::get_RecurrenceType(std::int32_t& type) {
    return With([&](ItemDraft& draft) { type = draft.ShownPattern().Type; });
}

Status RecurrencePattern::put_RecurrenceType(std::int32_t type) {
    return Putting(kPutType, [&](ItemDraft& draft) { draft.Item.Pattern.Type = type; });
}

Status RecurrencePattern::get_PatternStartDate(DATE& date) {
    return With([&](ItemDraft& draft) { date = static_cast<DATE>(DayOf(draft.Item.Start)); });
}

Status RecurrencePattern::put_PatternStartDate(DATE date) {
    return Putting(0, [&](ItemDraft& draft) { draft.PutStartDay(DayOf(SecondsFromDate(date))); });
}

Status RecurrencePattern::get_PatternEndDate(DATE& date) {
    return With(
        [&](ItemDraft& draft) { date = draft.NoEnd() ? kNoDate : static_cast<DATE>(draft.ShownPattern().LastDay); });
}

Status RecurrencePattern::put_PatternEndDate(DATE date) {
    return Putting(0, [&](ItemDraft& draft) { draft.PutLastDay(DayOf(SecondsFromDate(date))); });
}

Status RecurrencePattern::get_NoEndDate(bool& noEnd) {
    return With([&](ItemDraft& draft) { noEnd = draft.NoEnd(); });
}

Status RecurrencePattern::put_NoEndDate(bool noEnd) {
    return Putting(0, [&](ItemDraft& draft) { draft.PutNoEnd(noEnd); });
}

Status RecurrencePattern::get_Occurrences(std::int32_t& count) {
    return With([&](ItemDraft& draft) { count = draft.ShownPattern().Occurrences; });
}

Status RecurrencePattern::put_Occurrences(std::int32_t count) {
    return Putting(0, [&](ItemDraft& draft) { draft.PutOccurrences(count); });
}

Status RecurrencePattern::get_Interval(std::int32_t& interval) {
    return With([&](ItemDraft& draft) { interval = draft.ShownPattern().Interval; });
}

Status RecurrencePattern::put_Interval(std::int32_t interval) {
    return Putting(kPutInterval, [&](ItemDraft& draft) { draft.Item.Pattern.Interval = interval; });
}

Status RecurrencePattern::get_DayOfWeekMask(std::int32_t& mask) {
    return With([&](ItemDraft& draft) { mask = draft.ShownPattern().DayOfWeekMask; });
}

Status RecurrencePattern::put_DayOfWeekMask(std::int32_t mask) {
    return Putting(kPutMask, [&](ItemDraft& draft) { draft.Item.Pattern.DayOfWeekMask = mask; });
}

Status RecurrencePattern::get_DayOfMonth(std::int32_t& day) {
    return With([&](ItemDraft& draft) { day = draft.ShownPattern().DayOfMonth; });
}

Status RecurrencePattern::put_DayOfMonth(std::int32_t day) {
    return Putting(kPutDayOfMonth, [&](ItemDraft& draft) { draft.Item.Pattern.DayOfMonth = day; });
}

Status RecurrencePattern::get_Instance(std::int32_t& instance) {
    return With([&](ItemDraft& draft) { instance = draft.ShownPattern().Instance; });
}

Status RecurrencePattern::put_Instance(std::int32_t instance) {
    return Putting(kPutInstance, [&](ItemDraft& draft) { draft.Item.Pattern.Instance = instance; });
}

Status RecurrencePattern::get_MonthOfYear(std::int32_t& month) {
    return With([&](ItemDraft& draft) { month = draft.ShownPattern().MonthOfYear; });
}

Status RecurrencePattern::put_MonthOfYear(std::int32_t month) {
    return Putting(kPutMonth, [&](ItemDraft& draft) { draft.Item.Pattern.MonthOfYear = month; });
}

Status RecurrencePattern::get_StartTime(DATE& time) {
    return With([&](ItemDraft& draft) { time = TimeAlone(draft.Item.Start); });
}

Status RecurrencePattern::put_StartTime(DATE time) {
    return Putting(0, [&](ItemDraft& draft) { draft.PutStartTime(TimeOfDay(SecondsFromDate(time))); });
}

Status RecurrencePattern::get_EndTime(DATE& time) {
    return With([&](ItemDraft& draft) { time = TimeAlone(draft.Item.End); });
}

Status RecurrencePattern::put_EndTime(DATE time) {
    return Putting(0, [&](ItemDraft& draft) { draft.PutEndTime(TimeOfDay(SecondsFromDate(time))); });
}

Status RecurrencePattern::get_Duration(std::int32_t& minutes) {
    return With([&](ItemDraft& draft) { minutes = draft.DurationMinutes(); });
}

Status RecurrencePattern::put_Duration(std::int32_t minutes) {
    return Putting(0, [&](ItemDraft& draft) { draft.PutDuration(minutes); });
}

} // namespace tavo::outlook
