// The service's three methods and two signals.
#include "tests/companion/notification_service.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>

namespace tavo::companion::test {

namespace {

constexpr const char* kName = "org.freedesktop.Notifications";
constexpr const char* kPath = "/org/freedesktop/Notifications";

} // namespace

double TimeNow() {
    struct timespec now {};

    clock_gettime(CLOCK_REALTIME, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

const sd_bus_vtable NotificationService::kMethods[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("Notify", "susssasa{sv}i", "u", OnNotify, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("CloseNotification", "u", "", OnClose, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("GetCapabilities", "", "as", OnCapabilities, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_SIGNAL("ActivationToken", "us", 0),
    SD_BUS_SIGNAL("ActionInvoked", "us", 0),
    SD_BUS_SIGNAL("NotificationClosed", "uu", 0),
    SD_BUS_VTABLE_END,
};

NotificationService::NotificationService(const SessionBus& session) {
    EXPECT_GE(sd_bus_new(&Bus), 0);
    EXPECT_GE(sd_bus_set_address(Bus, session.Address().c_str()), 0);
    EXPECT_GE(sd_bus_set_bus_client(Bus, 1), 0);
    EXPECT_GE(sd_bus_start(Bus), 0);
    EXPECT_GE(sd_bus_add_object_vtable(Bus, nullptr, kPath, kName, kMethods, this), 0);
    EXPECT_GE(sd_bus_request_name(Bus, kName, 0), 0);
}

NotificationService::~NotificationService() {
    for (const HeldCard& held : Held) {
        sd_bus_message_unref(held.Call);
    }
    sd_bus_flush_close_unref(Bus);
}

int NotificationService::OnNotify(sd_bus_message* call, void* self, sd_bus_error*) {
    auto* service = static_cast<NotificationService*>(self);
    Notification came;
    const char* words[4] = {};
    int result = sd_bus_message_read(call, "susss", &words[0], &came.Replaced, &words[1], &words[2], &words[3]);
    if (result < 0) {
        return result;
    }
    came.Summary = words[2];
    came.Body = words[3];
    result = sd_bus_message_enter_container(call, 'a', "s");
    const char* key = nullptr;
    const char* label = nullptr;
    while (result >= 0 && sd_bus_message_read(call, "ss", &key, &label) > 0) {
        came.Actions.emplace_back(key);
    }
    if (sd_bus_message_exit_container(call) < 0 || sd_bus_message_skip(call, "a{sv}") < 0 ||
        sd_bus_message_read(call, "i", &came.Timeout) < 0) {
        return -1;
    }
    came.Number = came.Replaced != 0 ? came.Replaced : ++service->LastNumber;
    came.Time = TimeNow();
    if (service->RefusesCards) {
        return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_INVALID_ARGS, "not this one");
    }
    service->Came.push_back(came);
    if (!service->AnswersCards) {
        service->Held.push_back({sd_bus_message_ref(call), came.Number});
        return 1;
    }
    return sd_bus_reply_method_return(call, "u", came.Number);
}

int NotificationService::OnClose(sd_bus_message* call, void* self, sd_bus_error*) {
    std::uint32_t number = 0;
    sd_bus_message_read(call, "u", &number);
    auto* service = static_cast<NotificationService*>(self);
    service->TakenBack.push_back(number);
    sd_bus_emit_signal(service->Bus, kPath, kName, "NotificationClosed", "uu", number, 3U);
    return sd_bus_reply_method_return(call, "");
}

int NotificationService::OnCapabilities(sd_bus_message* call, void* self, sd_bus_error*) {
    if (!static_cast<NotificationService*>(self)->AnswersCapabilities) {
        return 1;
    }
    return sd_bus_reply_method_return(call, "as", 3, "actions", "body", "body-markup");
}

template <class Done> bool NotificationService::ServeUntil(const Done& done, double seconds) {
    const double end = TimeNow() + seconds;
    while (!done()) {
        if (sd_bus_process(Bus, nullptr) > 0) {
            continue;
        }
        const double left = end - TimeNow();
        if (left <= 0) {
            return false;
        }
        sd_bus_wait(Bus, static_cast<std::uint64_t>(left * 1e6));
    }
    return true;
}

bool NotificationService::WaitFor(std::size_t count, double seconds) {
    return ServeUntil([&] { return Came.size() >= count; }, seconds);
}

void NotificationService::Serve(double seconds) {
    static_cast<void>(ServeUntil([] { return false; }, seconds));
}

bool NotificationService::WaitForTakenBack(std::uint32_t number, double seconds) {
    return ServeUntil([&] { return std::find(TakenBack.begin(), TakenBack.end(), number) != TakenBack.end(); },
                      seconds);
}

void NotificationService::AnswerHeld() {
    for (const HeldCard& held : Held) {
        EXPECT_GE(sd_bus_reply_method_return(held.Call, "u", held.Number), 0);
        sd_bus_message_unref(held.Call);
    }
    Held.clear();
    sd_bus_flush(Bus);
}

void NotificationService::GiveToken(std::uint32_t number, const char* token) {
    sd_bus_emit_signal(Bus, kPath, kName, "ActivationToken", "us", number, token);
}

void NotificationService::Choose(std::uint32_t number, const char* action) {
    sd_bus_emit_signal(Bus, kPath, kName, "ActionInvoked", "us", number, action);
    sd_bus_emit_signal(Bus, kPath, kName, "NotificationClosed", "uu", number, 3U);
    sd_bus_flush(Bus);
}

void NotificationService::CloseByHand(std::uint32_t number) {
    sd_bus_emit_signal(Bus, kPath, kName, "NotificationClosed", "uu", number, 2U);
    sd_bus_flush(Bus);
}

} // namespace tavo::companion::test
