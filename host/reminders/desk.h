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

enum class Answer {
    Dismiss,
    Snooze,
    Open,
    Closed, // as Dismiss, and its card is gone already
};

// A card that somebody took: who, and the number that they gave it.
struct PlacedCard {
    std::uint32_t Number = 0;
    std::string Service;
};

// What became of a card that was to be shown. With neither, nobody took it.
struct Placement {
    std::optional<PlacedCard> Card;
    std::uint32_t Question = 0; // not 0: it is not known yet, and told with this number
};

class IDesk {
  public:
    virtual ~IDesk() = default;

    // Whether the cards that this service took can still be there.
    virtual bool Holds(const std::string& service) = 0;
    // Waits for nobody. `replaced` is a card that this one stands in for, or 0.
    virtual Placement Show(const Card& card, std::uint32_t replaced) = 0;
    virtual void TakeBack(std::uint32_t card) = 0;
    // One of its lines rings at least. What rang before becomes silent.
    virtual void Ring(const Card& card) = 0;
    virtual void StopRinging() = 0;
    // Brings the program forward, on this item; on none with 0.
    virtual void OpenItem(std::int32_t item) = 0;
};

} // namespace tavo::reminders
