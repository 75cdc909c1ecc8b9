// The arguments of a notification.
#include "companion/notification_card.h"

#include <algorithm>
#include <array>
#include <string>
#include <systemd/sd-bus.h>

namespace tavo::companion {

namespace {

constexpr std::uint8_t kUrgent = 2; // stays until it is answered

// Desktops with little room show the first few: one of each kind comes first.
constexpr std::array<CardAction, 7> kActions{{
    {"default", "Open", reminders::Answer::Open, 0},
    {"dismiss", "Dismiss", reminders::Answer::Dismiss, 0},
    {"snooze-5", "Snooze 5 min", reminders::Answer::Snooze, 5},
    {"open", "Open", reminders::Answer::Open, 0},
    {"snooze-10", "Snooze 10 min", reminders::Answer::Snooze, 10},
    {"snooze-30", "Snooze 30 min", reminders::Answer::Snooze, 30},
    {"snooze-60", "Snooze 1 hour", reminders::Answer::Snooze, 60},
}};

std::string EscapeMarkup(const std::string& text) {
    std::string escaped;
    for (const char letter : text) {
        switch (letter) {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        default:
            escaped += letter;
        }
    }
    return escaped;
}

} // namespace

const CardAction* FindAction(std::string_view key) {
    const auto* found =
        std::find_if(kActions.begin(), kActions.end(), [key](const CardAction& action) { return key == action.Key; });
    return found != kActions.end() ? found : nullptr;
}

int AppendCard(sd_bus_message* message, const CardText& text, std::uint32_t replaced, bool takesMarkup) {
    const std::string body = takesMarkup ? EscapeMarkup(text.Body) : text.Body;
    int result = sd_bus_message_append(message, "susss", "Tavo Calendar", replaced, "tavocalendar",
                                       text.Summary.c_str(), body.c_str());
    if (result >= 0) {
        result = sd_bus_message_open_container(message, 'a', "s");
    }
    for (const CardAction& action : kActions) {
        if (result >= 0 && text.HasAnswers) {
            result = sd_bus_message_append(message, "ss", action.Key, action.Label);
        }
    }
    if (result >= 0) {
        result = sd_bus_message_close_container(message);
    }
    if (result >= 0) {
        // The sound is our own.
        result = sd_bus_message_append(message, "a{sv}i", 3, "urgency", "y", kUrgent, "suppress-sound", "b", 1,
                                       "desktop-entry", "s", "tavocalendar", 0);
    }
    return result;
}

} // namespace tavo::companion
