// A service of notifications that takes every one, for measuring.
#include <cstdint>
#include <cstdio>
#include <systemd/sd-bus.h>

namespace {

constexpr const char* kName = "org.freedesktop.Notifications";
constexpr const char* kPath = "/org/freedesktop/Notifications";

int OnNotify(sd_bus_message* call, void*, sd_bus_error*) {
    static std::uint32_t number = 0;
    return sd_bus_reply_method_return(call, "u", ++number);
}

int OnClose(sd_bus_message* call, void*, sd_bus_error*) {
    return sd_bus_reply_method_return(call, "");
}

int OnCapabilities(sd_bus_message* call, void*, sd_bus_error*) {
    return sd_bus_reply_method_return(call, "as", 1, "actions");
}

const sd_bus_vtable kMethods[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("Notify", "susssasa{sv}i", "u", OnNotify, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("CloseNotification", "u", "", OnClose, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("GetCapabilities", "", "as", OnCapabilities, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END,
};

} // namespace

int main(int count, char** arguments) {
    sd_bus* bus = nullptr;
    if (count != 2 || sd_bus_new(&bus) < 0 || sd_bus_set_address(bus, arguments[1]) < 0 ||
        sd_bus_set_bus_client(bus, 1) < 0 || sd_bus_start(bus) < 0 ||
        sd_bus_add_object_vtable(bus, nullptr, kPath, kName, kMethods, nullptr) < 0 ||
        sd_bus_request_name(bus, kName, 0) < 0) {
        std::fprintf(stderr, "usage: tavo-notification-service ADDRESS\n");
        return 1;
    }
    while (sd_bus_wait(bus, UINT64_MAX) >= 0) {
        while (sd_bus_process(bus, nullptr) > 0) {
        }
    }
    return 0;
}
