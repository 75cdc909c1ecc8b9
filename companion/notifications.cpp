// Calls and signals of org.freedesktop.Notifications.
#include "companion/notifications.h"

#include <array>
#include <string_view>
#include <systemd/sd-bus.h>

namespace tavo::companion {

namespace {

constexpr const char* kName = "org.freedesktop.Notifications";
constexpr const char* kPath = "/org/freedesktop/Notifications";
constexpr std::uint64_t kCallPatience = 5'000'000; // microseconds; starting the service is part of it
constexpr std::uint32_t kClosedByPerson = 2;
constexpr std::uint8_t kUrgent = 2; // stays until it is answered

struct Action {
    const char* Key;
    const char* Label;
    reminders::Answer Meaning;
    int Snooze; // minutes
};

// Desktops with little room show the first few: one of each kind comes first.
constexpr std::array<Action, 7> kActions{{
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

// The library's handlers have its own type for the error; ours are not to know its header.
template <int (*Function)(sd_bus_message*, void*, void*)>
int Forward(sd_bus_message* message, void* self, sd_bus_error* error) {
    return Function(message, self, error);
}

int AppendCard(sd_bus_message* message, const CardText& text, std::uint32_t replaced, bool takesMarkup) {
    const std::string body = takesMarkup ? EscapeMarkup(text.Body) : text.Body;
    int result = sd_bus_message_append(message, "susss", "Tavo Calendar", replaced, "tavocalendar",
                                       text.Summary.c_str(), body.c_str());
    if (result >= 0) {
        result = sd_bus_message_open_container(message, 'a', "s");
    }
    for (const Action& action : kActions) {
        if (result >= 0) {
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

} // namespace

Notifications::~Notifications() {
    Disconnect();
}

void Notifications::Disconnect() {
    if (Bus != nullptr) {
        sd_bus_flush_close_unref(Bus);
        Bus = nullptr;
    }
    ServiceName.clear();
}

bool Notifications::Connect() {
    if (Bus != nullptr) {
        return true;
    }
    if (sd_bus_open_user(&Bus) < 0) {
        Bus = nullptr;
        return false;
    }
    constexpr const char* ownerRule = "type='signal',sender='org.freedesktop.DBus',member='NameOwnerChanged',"
                                      "arg0='org.freedesktop.Notifications'";
    if (sd_bus_match_signal(Bus, nullptr, kName, kPath, kName, "ActionInvoked", Forward<OnAction>, this) < 0 ||
        sd_bus_match_signal(Bus, nullptr, kName, kPath, kName, "NotificationClosed", Forward<OnClosed>, this) < 0 ||
        sd_bus_add_match(Bus, nullptr, ownerRule, Forward<OnOwnerChanged>, this) < 0) {
        Disconnect();
        return false;
    }
    FindService();
    return true;
}

int Notifications::Descriptor() const {
    return Bus == nullptr ? -1 : sd_bus_get_fd(Bus);
}

int Notifications::PollEvents() const {
    return Bus == nullptr ? 0 : sd_bus_get_events(Bus);
}

bool Notifications::Process() {
    int result = 1;
    while (Bus != nullptr && result > 0) {
        result = sd_bus_process(Bus, nullptr);
    }
    if (result < 0) {
        Disconnect();
        Told.ServiceChanged();
    }
    return Bus != nullptr;
}

void Notifications::FindService() {
    const std::string before = std::move(ServiceName);
    ServiceName.clear();
    sd_id128_t bus{};
    sd_bus_creds* owner = nullptr;
    const char* unique = nullptr;
    if (sd_bus_get_bus_id(Bus, &bus) >= 0 && sd_bus_get_name_creds(Bus, kName, SD_BUS_CREDS_UNIQUE_NAME, &owner) >= 0 &&
        sd_bus_creds_get_unique_name(owner, &unique) >= 0) {
        std::array<char, SD_ID128_STRING_MAX> text{};
        ServiceName = std::string(sd_id128_to_string(bus, text.data())) + ' ' + unique;
    }
    sd_bus_creds_unref(owner);
    if (!ServiceName.empty() && ServiceName != before) {
        ReadCapabilities();
    }
}

void Notifications::ReadCapabilities() {
    TakesMarkup = false;
    sd_bus_message* reply = nullptr;
    if (sd_bus_call_method(Bus, kName, kPath, kName, "GetCapabilities", nullptr, &reply, "") >= 0 &&
        sd_bus_message_enter_container(reply, 'a', "s") > 0) {
        const char* word = nullptr;
        while (sd_bus_message_read(reply, "s", &word) > 0) {
            TakesMarkup = TakesMarkup || std::string_view(word) == "body-markup";
        }
    }
    sd_bus_message_unref(reply);
}

std::optional<std::uint32_t> Notifications::Show(const CardText& text, std::uint32_t replaced) {
    if (!Connect()) {
        return std::nullopt;
    }
    sd_bus_message* call = nullptr;
    sd_bus_message* reply = nullptr;
    std::uint32_t number = 0;
    int result = sd_bus_message_new_method_call(Bus, &call, kName, kPath, kName, "Notify");
    if (result >= 0) {
        result = AppendCard(call, text, replaced, TakesMarkup);
    }
    if (result >= 0) {
        result = sd_bus_call(Bus, call, kCallPatience, nullptr, &reply);
    }
    if (result >= 0) {
        result = sd_bus_message_read(reply, "u", &number);
    }
    sd_bus_message_unref(call);
    sd_bus_message_unref(reply);
    if (result < 0) {
        return std::nullopt;
    }
    FindService(); // our call may have started it
    return number;
}

void Notifications::TakeBack(std::uint32_t card) {
    if (Bus != nullptr && !ServiceName.empty()) {
        // Nobody waits for the answer: one that is gone already cannot be closed.
        static_cast<void>(sd_bus_call_method_async(Bus, nullptr, kName, kPath, kName, "CloseNotification", nullptr,
                                                   nullptr, "u", card));
    }
}

int Notifications::OnAction(sd_bus_message* message, void* self, void*) {
    std::uint32_t card = 0;
    const char* key = nullptr;
    if (sd_bus_message_read(message, "us", &card, &key) >= 0) {
        for (const Action& action : kActions) {
            if (std::string_view(key) == action.Key) {
                static_cast<Notifications*>(self)->Told.Answered(card, action.Meaning, action.Snooze);
            }
        }
    }
    return 0;
}

int Notifications::OnClosed(sd_bus_message* message, void* self, void*) {
    std::uint32_t card = 0;
    std::uint32_t reason = 0;
    if (sd_bus_message_read(message, "uu", &card, &reason) >= 0 && reason == kClosedByPerson) {
        static_cast<Notifications*>(self)->Told.Answered(card, reminders::Answer::Dismiss, 0);
    }
    return 0;
}

int Notifications::OnOwnerChanged(sd_bus_message* message, void* self, void*) {
    static_cast<void>(message); // who it is now is asked for
    auto* notifications = static_cast<Notifications*>(self);
    const std::string before = notifications->ServiceName;
    notifications->FindService();
    if (notifications->ServiceName.empty()) {
        // At the session's end the service goes first: nothing is put up elsewhere until something is due.
        notifications->ServiceName = before;
    } else if (notifications->ServiceName != before) {
        notifications->Told.ServiceChanged();
    }
    return 0;
}

} // namespace tavo::companion
