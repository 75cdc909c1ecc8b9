// Putting properties, and merging them into the stored item.
#include "host/rules/item_draft.h"

#include "host/rules/recurrence.h"
#include "host/rules/rule_lines.h"

namespace tavo::rules {

namespace {

constexpr Seconds kSecondsPerMinute = 60;

Seconds OwnStart(const StoredItem& item) {
    return item.Zone.empty() ? item.Start : item.ZoneStart;
}

bool RecursAlike(const StoredItem& before, const StoredItem& item) {
    if (item.Pattern.Type == kRecursForeign || before.Pattern.Type == kRecursForeign) {
        return item.Pattern.Type == before.Pattern.Type && item.ForeignRule == before.ForeignRule;
    }
    return before.IsRecurring() == item.IsRecurring() &&
           (!item.IsRecurring() || IsSameRule(before.Pattern, item.Pattern));
}

} // namespace

ItemDraft::ItemDraft() = default;

ItemDraft::ItemDraft(StoredItem item)
    : Item(std::move(item)), PatternHasNoEnd(Item.Pattern.End == PatternEnd::Never), EndWrittenLast(Item.Pattern.End) {}

void ItemDraft::PutStart(Seconds start) {
    Item.End = start + (Item.End - Item.Start);
    Item.Start = start;
    Put |= kPutStart | kPutEnd;
}

void ItemDraft::PutEnd(Seconds end) {
    Item.End = end;
    Put |= kPutEnd;
}

void ItemDraft::PutDuration(std::int32_t minutes) {
    PutEnd(Item.Start + minutes * kSecondsPerMinute);
}

std::int32_t ItemDraft::DurationMinutes() const {
    return static_cast<std::int32_t>((Item.End - Item.Start) / kSecondsPerMinute);
}

void ItemDraft::PutStartDay(DayNumber day) {
    PutStart(MidnightOf(day) + TimeOfDay(Item.Start));
}

void ItemDraft::PutStartTime(Seconds timeOfDay) {
    PutStart(MidnightOf(DayOf(Item.Start)) + timeOfDay);
}

void ItemDraft::PutEndTime(Seconds timeOfDay) {
    const Seconds end = MidnightOf(DayOf(Item.End)) + timeOfDay;
    // An end earlier in the day than the start is meant for the next morning.
    PutEnd(end < Item.Start && Item.End >= Item.Start ? end + kSecondsPerDay : end);
}

StoredPattern ItemDraft::ShownPattern() const {
    if (Item.IsRecurring()) {
        return Item.Pattern;
    }
    const CivilDate date = CivilFromDay(DayOf(Item.Start));
    StoredPattern fresh;
    fresh.Type = kRecursWeekly;
    fresh.DayOfWeekMask = 1 << WeekdayOf(DayOf(Item.Start));
    fresh.DayOfMonth = date.Day;
    fresh.Instance = (date.Day - 1) / 7 + 1;
    fresh.MonthOfYear = date.Month;
    return fresh;
}

void ItemDraft::BeginPattern() {
    if (!Item.IsRecurring()) {
        Item.Pattern = ShownPattern();
        Put |= kPutPattern;
    }
}

void ItemDraft::ClearRecurrence() {
    Item.Pattern = StoredPattern();
    Item.ForeignRule.clear();
    Item.Exceptions.clear();
    PatternHasNoEnd = true;
    EndWrittenLast = PatternEnd::Never;
    Put = (Put & ~kPutPattern) | kPutCleared;
}

void ItemDraft::PutNoEnd(bool noEnd) {
    PatternHasNoEnd = noEnd;
    Put |= kPutPatternEnd;
}

void ItemDraft::PutLastDay(DayNumber day) {
    Item.Pattern.LastDay = day;
    EndWrittenLast = PatternEnd::OnDate;
    Put |= kPutPatternEnd;
}

void ItemDraft::PutOccurrences(std::int32_t count) {
    Item.Pattern.Occurrences = count;
    EndWrittenLast = PatternEnd::AfterCount;
    Put |= kPutPatternEnd;
}

void ItemDraft::MergeTimes(StoredItem& item, Zones& zones) const {
    const Seconds start = (Put & kPutStart) != 0 ? Item.Start : item.Start;
    const Seconds end = (Put & kPutEnd) != 0 ? Item.End : item.End;
    if (!item.Zone.empty()) {
        const ZoneRules* zone = zones.RulesByName(item.Zone);
        // Times that stay as they are keep what the other calendar wrote, to the letter.
        item.ZoneStart = start != item.Start ? zones.FromWall(zone, start) : item.ZoneStart;
        item.ZoneEnd = end != item.End ? zones.FromWall(zone, end) : item.ZoneEnd;
    }
    item.Start = start;
    item.End = end;
}

void ItemDraft::MergePattern(StoredItem& item) const {
    if ((Put & kPutCleared) != 0) {
        item.Pattern = StoredPattern();
        item.ForeignRule.clear();
        item.Exceptions.clear();
    }
    if ((Put & kPutPattern) == 0) {
        return;
    }
    StoredPattern& pattern = item.Pattern;
    const StoredPattern& put = Item.Pattern;
    Take(kPutType, pattern.Type, put.Type);
    Take(kPutInterval, pattern.Interval, put.Interval);
    Take(kPutMask, pattern.DayOfWeekMask, put.DayOfWeekMask);
    Take(kPutDayOfMonth, pattern.DayOfMonth, put.DayOfMonth);
    Take(kPutInstance, pattern.Instance, put.Instance);
    Take(kPutMonth, pattern.MonthOfYear, put.MonthOfYear);
    if ((Put & kPutPatternEnd) != 0) {
        pattern.Occurrences = put.Occurrences;
        pattern.LastDay = put.LastDay;
        // An end that nobody wrote is a count of none, which Save refuses.
        const PatternEnd written = EndWrittenLast == PatternEnd::Never ? PatternEnd::AfterCount : EndWrittenLast;
        pattern.End = PatternHasNoEnd ? PatternEnd::Never : written;
    }
    if (pattern.Type != kRecursForeign) {
        item.ForeignRule.clear();
    }
    if (pattern.Type == kRecursOnce) {
        pattern = StoredPattern();
        item.Exceptions.clear();
    }
}

void ItemDraft::MergeInto(StoredItem& item, Zones& zones) const {
    Take(kPutSubject, item.Subject, Item.Subject);
    Take(kPutLocation, item.Location, Item.Location);
    Take(kPutCategories, item.Categories, Item.Categories);
    Take(kPutBody, item.Body, Item.Body);
    Take(kPutInk, item.Ink, Item.Ink);
    Take(kPutAllDay, item.AllDay, Item.AllDay);
    Take(kPutBusy, item.BusyStatus, Item.BusyStatus);
    Take(kPutSensitivity, item.Sensitivity, Item.Sensitivity);
    Take(kPutReminderSet, item.ReminderSet, Item.ReminderSet);
    Take(kPutReminderMinutes, item.ReminderMinutes, Item.ReminderMinutes);
    Take(kPutReminderOptions, item.ReminderOptions, Item.ReminderOptions);
    Take(kPutReminderSound, item.ReminderSound, Item.ReminderSound);
    MergeTimes(item, zones);
    MergePattern(item);
}

bool FinishMerge(const StoredItem& before, StoredItem& item, Zones& zones) {
    if (!RecursAlike(before, item)) {
        item.Exceptions.clear();
        if (!item.Zone.empty() && item.IsRecurring()) {
            // A rule that is put on this device is meant on its clock.
            item.Zone = zones.DeviceName();
            item.ZoneStart = item.Start;
            item.ZoneEnd = item.End;
        }
        return true;
    }
    const Seconds shift = OwnStart(item) - OwnStart(before);
    if (shift == 0 || !item.IsRecurring()) {
        return false;
    }
    if (DayOf(OwnStart(item)) != DayOf(OwnStart(before))) {
        item.Exceptions.clear();
        return true;
    }
    // Another time on the same days: what is said of an occurrence stays said of it.
    for (StoredException& exception : item.Exceptions) {
        exception.Original += shift;
    }
    item.ForeignRule = ShiftRuleTimes(item.ForeignRule, shift);
    return true;
}

} // namespace tavo::rules
