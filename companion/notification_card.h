// A card as the notification service takes it: its words, its buttons and its hints.
#pragma once

#include "companion/card_text.h"
#include "host/reminders/desk.h"

#include <cstdint>
#include <string_view>

struct sd_bus_message;

namespace tavo::companion {

// A button of a card, or a tap on it.
struct CardAction {
    const char* Key;
    const char* Label;
    reminders::Answer Meaning;
    int Snooze; // minutes
};

// None of ours: nullptr.
const CardAction* FindAction(std::string_view key);

// Appends the arguments of Notify; `replaced` is the card whose place it takes, or 0. Negative is the bus's error.
int AppendCard(sd_bus_message* message, const CardText& text, std::uint32_t replaced, bool takesMarkup);

} // namespace tavo::companion
