// What the reminder service knows of one reminder, and the row that the ledger keeps of it.
#pragma once

#include "platform/outlook.h"

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace tavo::reminders {

// Seconds of universal time since 1899-12-30.
using Moment = std::int64_t;

constexpr Moment kMinute = 60;
constexpr Moment kHour = 60 * kMinute;
constexpr Moment kDay = 24 * kHour;

// One occurrence and one due time. Both times are on the item's own clock, so that a change of the device's time zone
// makes no other reminder of it.
struct ReminderKey {
    std::int32_t Item = 0;
    std::int64_t Original = 0; // recurrence id of an occurrence; 0 for an item that does not recur
    std::int64_t Due = 0;      // start minus lead
    friend auto operator<=>(const ReminderKey&, const ReminderKey&) = default;
};

struct DueReminder {
    ReminderKey Key;
    Moment At = 0;      // when it is due
    Moment Start = 0;   // of the occurrence
    bool Again = false; // it may have been shown before
};

// As the editor's list of sounds calls none; an item that holds it for a sound's name is silent too.
constexpr std::string_view kSoundOff = "Sound off";

// What people read and hear.
struct ReminderText {
    std::string Title; // UTF-8
    std::string Location;
    std::int64_t StartWall = 0; // seconds on the device's clock since 1899-12-30
    bool AllDay = false;
    std::int32_t Options = 0; // of the item's reminder
    std::string Sound;        // a path of the device, or a bare name

    bool Rings() const { return (Options & kReminderSound) != 0 && Sound != kSoundOff; }
};

enum class LedgerState {
    Due = 0,       // its time came, and nothing was done yet
    Offering = 1,  // the desktop is being asked; when a new process finds this, it may have been shown
    Shown = 2,     // the desktop took it, nobody has answered
    Snoozed = 3,   // comes again at Until
    Listed = 4,    // stands in the list of missed ones, nobody has answered
    Dismissed = 5, // answered
    Withdrawn = 6, // its item was moved or deleted after it was shown
    ToReturn = 7,  // the clock was set back to before its time, and a kill left open whether it was shown
};

// Whether it was shown by itself, as one of a list of missed ones is not.
enum class Showing {
    Never = 0,
    Perhaps = 1, // a process that died in between has left that open
    Surely = 2,
};

constexpr bool IsFinal(LedgerState state) {
    return state == LedgerState::Dismissed || state == LedgerState::Withdrawn || state == LedgerState::ToReturn;
}

struct LedgerRow {
    ReminderKey Key;
    Moment At = 0;    // when it is due, or when it came to be owed where that was later
    Moment Start = 0; // of the occurrence
    LedgerState State = LedgerState::Due;
    Moment Until = 0; // of a snoozed one; stays while it is shown again
    Showing ByItself = Showing::Never;
    std::uint32_t Card = 0; // the desktop's number for what shows it
    std::string Service;    // who gave that number
    std::string Title;      // for the log, when the item is gone
    friend bool operator==(const LedgerRow&, const LedgerRow&) = default;

    bool IsOnDesk() const { return State == LedgerState::Shown || State == LedgerState::Listed; }

    bool Waits() const { return !IsOnDesk() && !IsFinal(State); }

    // When it has to be shown.
    Moment OwedAt() const { return Until != 0 ? Until : At; }
};

} // namespace tavo::reminders
