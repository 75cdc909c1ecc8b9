// Putting the form's values on the store's item.
#include "edit/edited_appointment.h"

#include <cmath>
#include <utility>

namespace tavo {

namespace {

constexpr std::int32_t kPresetOccurrences = 10;

// Of the choices that are a rule of their own.
std::int32_t TypeOfChoice(std::int32_t choice) {
    switch (choice) {
    case kChoiceEveryday:
        return kRecursDaily;
    case kChoiceMonthly:
        return kRecursMonthly;
    case kChoiceMonthNth:
        return kRecursMonthNth;
    case kChoiceYearly:
        return kRecursYearly;
    case kChoiceYearNth:
        return kRecursYearNth;
    default:
        return kRecursWeekly;
    }
}

// Of one moment; a day's fraction is not exact.
bool IsSameTime(DATE left, DATE right) {
    constexpr double secondsOfDay = 86400;
    return std::llround(left * secondsOfDay) == std::llround(right * secondsOfDay);
}

} // namespace

std::int32_t DayMaskOfChoice(std::int32_t choice, const ItemTimes& times) {
    return choice == kChoiceWeekdays ? kWeekdaysMask : times.StartDayMask();
}

void EditedAppointment::Create() {
    Release();
    if (Store.OutlookApp && Succeeded(Store.OutlookApp->CreateItem(kItemAppointment, Item))) {
        TakePattern();
    }
}

void EditedAppointment::Open(Oid oid) {
    Release();
    if (Store.OutlookApp && Succeeded(Store.OutlookApp->GetItemFromOid(oid, Item))) {
        TakePattern();
        TakeStoredRule();
    }
}

void EditedAppointment::OpenOccurrence(const ComPtr<IAppointment>& occurrence) {
    Release();
    Item = occurrence;
    IsOccurrence = true;
}

void EditedAppointment::Reopen(Oid oid) {
    ComPtr<IAppointment> fresh;
    if (!Store.OutlookApp || Failed(Store.OutlookApp->GetItemFromOid(oid, fresh)) || !fresh) {
        return;
    }
    if (InkChanged) {
        const std::optional<std::vector<std::uint8_t>> ink = InkNote();
        if (!ink) {
            return; // the fresh item would lose it
        }
        Note(fresh->put_BodyInk(*ink));
    }
    Item = std::move(fresh);
    TakePattern();
    TakeStoredRule();
}

void EditedAppointment::Release() {
    OwnPattern.Reset();
    Item.Reset();
    StoredRule.reset();
    IsOccurrence = false;
    InkChanged = false;
}

void EditedAppointment::TakePattern() {
    OwnPattern.Reset();
    if (Item && !IsOccurrence) {
        Note(Item->GetRecurrencePattern(OwnPattern));
    }
}

void EditedAppointment::Note(Status status) {
    AllPut = AllPut && Succeeded(status);
}

void EditedAppointment::PutProperties(const AppointmentInput& input) {
    if (!Item) {
        return;
    }
    if (IsOccurrence) {
        PutOfOccurrence(input);
        return;
    }
    Note(Item->put_Subject(input.Subject));
    Note(Item->put_Location(u""));
    Note(Item->put_Categories(u""));
    PutTimes(input.Times, input.AllDay);
    Note(Item->put_Sensitivity(kSensitivityNormal));
    Note(Item->put_BusyStatus(kBusyBusy));
    PutReminder(input);
    PutBackHidden(input);
}

// What is put makes the day one of its own, so what is the same is not.
void EditedAppointment::PutOfOccurrence(const AppointmentInput& input) {
    std::u16string subject;
    DATE start = kNoDate;
    DATE end = kNoDate;
    Note(Item->get_Subject(subject));
    Note(Item->get_Start(start));
    if (input.Subject != subject) {
        Note(Item->put_Subject(input.Subject));
    }
    if (!IsSameTime(input.Times.StartDate, start)) {
        Note(Item->put_Start(input.Times.StartDate));
    }
    Note(Item->get_End(end));
    if (input.HasEnd && !IsSameTime(input.Times.EndDate, end)) {
        Note(Item->put_End(input.Times.EndDate));
    }
}

void EditedAppointment::PutTimes(const ItemTimes& times, bool allDay) {
    if (!Item) {
        return;
    }
    Note(Item->put_Start(times.StartDate));
    Note(Item->put_End(times.EndDate));
    Note(Item->put_Duration(times.DurationMinutes()));
    Note(Item->put_End(times.EndDate)); // whole minutes would cut off its seconds
    Note(Item->put_AllDayEvent(allDay));
}

void EditedAppointment::PutReminder(const AppointmentInput& input) {
    Note(Item->put_ReminderSet(input.HasReminder));
    if (!input.HasReminder) {
        return;
    }
    Note(Item->put_ReminderOptions(input.ReminderSound.empty() ? kRemindSilently : kRemindAloud));
    Note(Item->put_ReminderSoundFile(input.ReminderSound));
    Note(Item->put_ReminderMinutesBeforeStart(input.ReminderMinutes));
}

void EditedAppointment::PresetPattern(const ItemTimes& times) {
    if (!OwnPattern) {
        return;
    }
    PutRule(kRecursWeekly, times.StartDayMask(), times);
    Note(OwnPattern->put_Occurrences(kPresetOccurrences));
    Note(OwnPattern->put_NoEndDate(true));
}

void EditedAppointment::PutRule(std::int32_t type, std::int32_t mask, const ItemTimes& times) {
    IRecurrencePattern& pattern = *OwnPattern;
    Note(pattern.put_RecurrenceType(type));
    Note(pattern.put_PatternStartDate(times.StartDate));
    Note(pattern.put_NoEndDate(true));
    Note(pattern.put_StartTime(times.StartDate));
    Note(pattern.put_Duration(times.DurationMinutes()));
    Note(pattern.put_EndTime(times.EndDate));
    Note(pattern.put_Interval(1));
    Note(pattern.put_DayOfWeekMask(mask));
    Note(pattern.put_DayOfMonth(times.Start.Day));
    Note(pattern.put_Instance(times.StartInstance()));
    Note(pattern.put_MonthOfYear(times.Start.Month));
}

std::optional<DraftRule> EditedAppointment::ReadDraftRule(RuleEnd end) const {
    const std::optional<PatternRule> rule = OwnPattern ? ReadRule(*OwnPattern) : std::nullopt;
    DATE lastDay = kNoDate;
    DraftRule draft;
    if (!rule || Failed(OwnPattern->get_PatternEndDate(lastDay)) ||
        Failed(OwnPattern->get_Occurrences(draft.Occurrences))) {
        return std::nullopt;
    }
    draft.Rule = *rule;
    draft.End = end;
    draft.LastDay = static_cast<std::int32_t>(lastDay);
    return draft;
}

std::optional<DraftRule> EditedAppointment::ReadStoredRule() const {
    bool isEndless = false;
    if (!StoredRule || StoredRule->Type < kRecursDaily || StoredRule->Type > kRecursYearNth || !OwnPattern ||
        Failed(OwnPattern->get_NoEndDate(isEndless))) {
        return std::nullopt;
    }
    return ReadDraftRule(isEndless ? RuleEnd::Never : RuleEnd::AfterCount);
}

void EditedAppointment::PutDraftRule(const DraftRule& rule) {
    if (!OwnPattern) {
        return;
    }
    Note(tavo::PutRule(*OwnPattern, rule.Rule));
    Note(OwnPattern->put_NoEndDate(rule.End == RuleEnd::Never));
    if (rule.End == RuleEnd::OnDate) {
        Note(OwnPattern->put_PatternEndDate(rule.LastDay));
    } else if (rule.End == RuleEnd::AfterCount) {
        Note(OwnPattern->put_Occurrences(rule.Occurrences));
    }
}

void EditedAppointment::PutRecurrence(const AppointmentInput& input) {
    if (!Item || IsOccurrence) {
        return;
    }
    if (input.RecurChoice == kChoiceOnce) {
        Note(Item->ClearRecurrencePattern());
    } else if (input.RecurChoice != kChoiceCustom && OwnPattern) {
        PutRule(TypeOfChoice(input.RecurChoice), DayMaskOfChoice(input.RecurChoice, input.Times), input.Times);
        if (input.RecurChoice == input.StoredChoice) {
            PutBackRule(input.Times);
        }
    }
}

bool EditedAppointment::Save() {
    const bool saved = std::exchange(AllPut, true) && Item && Succeeded(Item->Save());
    if (!saved) {
        TakePattern(); // a cleared one is no longer the item's
    }
    return saved;
}

bool EditedAppointment::LacksInterval(const AppointmentInput& input) const {
    std::int32_t interval = 1;
    return input.RecurChoice == kChoiceCustom && OwnPattern && Succeeded(OwnPattern->get_Interval(interval)) &&
           interval < 1;
}

AppointmentData EditedAppointment::MakeRecord(const AppointmentInput& input) const {
    AppointmentData record;
    record.Subject = input.Subject;
    record.Start = input.Times.Start;
    record.End = input.Times.End;
    record.HasReminder = input.HasReminder;
    // Kept on purpose: these two say the opposite of their names.
    record.IsRecurring = input.RecurChoice == kChoiceOnce;
    record.IsPrivate = true;
    record.AllDay = input.AllDay;
    record.SpareWord = input.ReminderSound.empty() ? 0 : 1;
    record.RecurChoice = input.RecurChoice;
    record.DayOfMonth = input.Times.Start.Day;
    record.DayOfWeekMask = DayMaskOfChoice(input.RecurChoice, input.Times);
    record.MonthOfYear = input.Times.Start.Month;
    record.Interval = 1;
    record.Instance = input.Times.StartInstance();
    // What cannot be read back keeps the value put here.
    if (Item) {
        static_cast<void>(Item->get_ReminderMinutesBeforeStart(record.ReminderMinutes));
        static_cast<void>(Item->get_Oid(record.Oid));
    }
    if (input.RecurChoice != kChoiceOnce && OwnPattern) {
        static_cast<void>(OwnPattern->get_RecurrenceType(record.RecurType));
        static_cast<void>(OwnPattern->get_Interval(record.Interval));
        static_cast<void>(OwnPattern->get_Instance(record.Instance));
    }
    return record;
}

std::optional<std::vector<std::uint8_t>> EditedAppointment::InkNote() const {
    std::vector<std::uint8_t> ink;
    if (!Item || Failed(Item->get_BodyInk(ink))) {
        return std::nullopt;
    }
    return ink;
}

bool EditedAppointment::PutInkNote(std::span<const std::uint8_t> ink) {
    if (!Item || Failed(Item->put_BodyInk(ink))) {
        return false;
    }
    InkChanged = true;
    return true;
}

} // namespace tavo
