// The store's item behind the edit dialog: everything that is put on it before it is saved.
#pragma once

#include "edit/appointment_draft.h"
#include "edit/item_times.h"
#include "edit/pattern_rule.h"
#include "store/outlook_session.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tavo {

// What the form says about an item.
struct AppointmentInput {
    std::u16string Subject;
    ItemTimes Times;
    bool AllDay = false;
    bool HasReminder = false;
    std::u16string ReminderSound; // file name; empty for no sound
    std::int32_t ReminderMinutes = 0;
    std::int32_t RecurChoice = 0;
    std::int32_t StoredChoice = 0; // the one that stands for the rule as it is stored
    bool SoundChosen = true;       // false: nobody touched the sound of an existing item
    bool HasEnd = true;            // false: of a kind without an end of its own
};

// Holds the item and its recurrence pattern. Nothing reaches the store before Save.
class EditedAppointment {
  public:
    explicit EditedAppointment(OutlookSession& store) : Store(store) {}

    EditedAppointment(const EditedAppointment&) = delete;
    EditedAppointment& operator=(const EditedAppointment&) = delete;

    // An item that the store does not know yet.
    void Create();
    // An existing item. When it cannot be had there is none, and every later Save fails.
    void Open(Oid oid);
    // One day of a series. Of the form only subject, start and end are put, where they differ.
    void OpenOccurrence(const ComPtr<IAppointment>& occurrence);
    // Takes the item anew from the store, with its recurrence as it is stored; an ink note put meanwhile stays put. An
    // item that cannot be had any more is kept as it is.
    void Reopen(Oid oid);
    void Release();

    // Null when there is no item.
    IRecurrencePattern* Pattern() const { return OwnPattern.Get(); }

    // Everything but the recurrence. What an existing item has and the form cannot show is put back after it, as the
    // store has it now.
    void PutProperties(const AppointmentInput& input);
    // Start, end and all-day flag alone.
    void PutTimes(const ItemTimes& times, bool allDay);
    // What the wizard opens with: weekly on the start's weekday, no end.
    void PresetPattern(const ItemTimes& times);
    // The pattern's rule, which ends like that; nothing when it cannot be read.
    std::optional<DraftRule> ReadDraftRule(RuleEnd end) const;
    // The same of the item as it was opened, with the end that it has; nothing when a draft cannot say the rule.
    std::optional<DraftRule> ReadStoredRule() const;
    void PutDraftRule(const DraftRule& rule);
    // By the recurrence choice: none, one of the fixed rules, or the pattern as it is. The stored choice with the
    // stored first day leaves the rule as it is stored, also where the choice does not say all of it.
    void PutRecurrence(const AppointmentInput& input);

    // False when something could not be put or the store refuses the item; it can be changed and saved again.
    bool Save();
    // Why an item with this choice may have been refused: the wizard left its rule without an interval.
    bool LacksInterval(const AppointmentInput& input) const;
    // What was saved, as a record.
    AppointmentData MakeRecord(const AppointmentInput& input) const;

    // Nothing when it cannot be read: nobody may put another one in its place then.
    std::optional<std::vector<std::uint8_t>> InkNote() const;
    // False when the item takes no such note.
    bool PutInkNote(std::span<const std::uint8_t> ink);

    // Put, and not saved yet.
    bool HasNewInk() const { return InkChanged; }

  private:
    void TakePattern();
    void PutRule(std::int32_t type, std::int32_t mask, const ItemTimes& times);
    void PutReminder(const AppointmentInput& input);
    void Note(Status status);
    void PutOfOccurrence(const AppointmentInput& input);

    // edited_appointment_hidden.cpp
    void TakeStoredRule();
    void PutBackHidden(const AppointmentInput& input);
    void PutBackReminder(IAppointment& stored, const AppointmentInput& input);
    void PutBackRule(const ItemTimes& times);
    template <class Value, class Given>
    void Copy(IAppointment& stored, Status (IAppointment::*get)(Value&), Status (IAppointment::*put)(Given));

    OutlookSession& Store;
    ComPtr<IAppointment> Item;
    ComPtr<IRecurrencePattern> OwnPattern;
    std::optional<PatternRule> StoredRule; // of an existing item
    DATE StoredFirstDay = kNoDate;
    bool IsOccurrence = false;
    bool AllPut = true; // since the last save
    bool InkChanged = false;
};

// The days on which an item of this choice recurs, as its record says it.
std::int32_t DayMaskOfChoice(std::int32_t choice, const ItemTimes& times);

} // namespace tavo
