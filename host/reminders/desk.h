// Where reminders are shown and rung.
#pragma once

#include "host/reminders/reminder.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tavo::reminders {

enum class CardKind {
    Single, // one reminder
    Many,   // several that came at once
    Missed, // the one list of what was missed
};

struct CardLine {
    ReminderKey Key;
    ReminderText Text;
    bool Again = false; // it may have been shown before
};

struct Card {
    CardKind Kind = CardKind::Single;
    std::vector<CardLine> Lines;
};

enum class Answer { Dismiss, Snooze, Open };

class IDesk {
  public:
    virtual ~IDesk() = default;

    // Who shows cards now; another text when its cards are gone. "" when nobody is known yet.
    virtual std::string Service() = 0;
    // The card's number; nothing when nobody took it. `replaced` is a card that this one stands in for, or 0.
    virtual std::optional<std::uint32_t> Show(const Card& card, std::uint32_t replaced) = 0;
    virtual void TakeBack(std::uint32_t card) = 0;
    // One of its lines rings at least. What rang before becomes silent.
    virtual void Ring(const Card& card) = 0;
    virtual void StopRinging() = 0;
    // Brings the program forward, on this item; on none with 0.
    virtual void OpenItem(std::int32_t item) = 0;
};

} // namespace tavo::reminders
