// An item with what was put into it since it was read: Save writes only that.
#pragma once

#include "host/rules/stored_item.h"
#include "host/rules/zones.h"

#include <cstdint>

namespace tavo::rules {

// The properties that can be put, as a set.
using PutSet = std::uint32_t;
constexpr PutSet kPutSubject = 1 << 0;
constexpr PutSet kPutLocation = 1 << 1;
constexpr PutSet kPutCategories = 1 << 2;
constexpr PutSet kPutBody = 1 << 3;
constexpr PutSet kPutInk = 1 << 4;
constexpr PutSet kPutStart = 1 << 5;
constexpr PutSet kPutEnd = 1 << 6;
constexpr PutSet kPutAllDay = 1 << 7;
constexpr PutSet kPutBusy = 1 << 8;
constexpr PutSet kPutSensitivity = 1 << 9;
constexpr PutSet kPutReminderSet = 1 << 10;
constexpr PutSet kPutReminderMinutes = 1 << 11;
constexpr PutSet kPutReminderOptions = 1 << 12;
constexpr PutSet kPutReminderSound = 1 << 13;
constexpr PutSet kPutCleared = 1 << 14; // the recurrence was cleared, before any of the following
constexpr PutSet kPutType = 1 << 15;
constexpr PutSet kPutInterval = 1 << 16;
constexpr PutSet kPutMask = 1 << 17;
constexpr PutSet kPutDayOfMonth = 1 << 18;
constexpr PutSet kPutInstance = 1 << 19;
constexpr PutSet kPutMonth = 1 << 20;
constexpr PutSet kPutPatternEnd = 1 << 21; // one of no end, last day, count

constexpr PutSet kPutPattern =
    kPutType | kPutInterval | kPutMask | kPutDayOfMonth | kPutInstance | kPutMonth | kPutPatternEnd;

class ItemDraft {
  public:
    ItemDraft();
    explicit ItemDraft(StoredItem item);

    // Times move together: the start keeps the duration, the end and the duration make a new one.
    void PutStart(Seconds start);
    void PutEnd(Seconds end);
    void PutDuration(std::int32_t minutes);
    std::int32_t DurationMinutes() const;

    // The pattern's own times are those of the item.
    void PutStartDay(DayNumber day);
    void PutStartTime(Seconds timeOfDay);
    void PutEndTime(Seconds timeOfDay);

    // What the pattern's properties show: of an item that does not recur, a fresh weekly pattern on its start.
    StoredPattern ShownPattern() const;
    // Before any property of the pattern is put: an item that does not recur begins to, by the fresh pattern.
    void BeginPattern();
    void ClearRecurrence();
    void PutNoEnd(bool noEnd);
    void PutLastDay(DayNumber day);
    void PutOccurrences(std::int32_t count);

    bool NoEnd() const { return PatternHasNoEnd; }

    // Puts what was put here into an item as it is stored now. The result still has to pass CheckAndDerive, and then
    // FinishMerge.
    void MergeInto(StoredItem& item, Zones& zones) const;

    StoredItem Item;
    PutSet Put = 0;

  private:
    // A value that was put; all others stay.
    template <class Value> void Take(PutSet flag, Value& target, const Value& value) const {
        if ((Put & flag) != 0) {
            target = value;
        }
    }

    void MergeTimes(StoredItem& item, Zones& zones) const;
    void MergePattern(StoredItem& item) const;

    bool PatternHasNoEnd = true;
    PatternEnd EndWrittenLast = PatternEnd::Never; // which of last day and count rules
};

// Keeps or drops what belongs to the rule as it was: `before` is the stored item, `item` the merged and checked one.
// True when the item changed and has to pass CheckAndDerive once more.
bool FinishMerge(const StoredItem& before, StoredItem& item, Zones& zones);

} // namespace tavo::rules
