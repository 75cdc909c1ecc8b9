// The desktop's own notifications, over the session bus.
#pragma once

#include "companion/card_text.h"
#include "host/reminders/desk.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

struct sd_bus;
struct sd_bus_message;

namespace tavo::companion {

class Notifications {
  public:
    struct Events {
        std::function<void(std::uint32_t card, reminders::Answer answer, int snooze)> Answered;
        std::function<void()> ServiceChanged; // the one that held the cards went, or another came
    };

    explicit Notifications(Events events) : Told(std::move(events)) {}

    ~Notifications();
    Notifications(const Notifications&) = delete;
    Notifications& operator=(const Notifications&) = delete;

    // False without a session bus; may be tried again.
    bool Connect();
    // For the loop: the descriptor and the events to wait for; -1 without a bus.
    int Descriptor() const;
    int PollEvents() const;
    // Handles what has come. False when the bus is gone.
    bool Process();

    // The bus and the service on it; "" while there is none.
    const std::string& Service() const { return ServiceName; }

    // Nothing when nobody took it. May start the service.
    std::optional<std::uint32_t> Show(const CardText& text, std::uint32_t replaced);
    void TakeBack(std::uint32_t card);

  private:
    static int OnAction(sd_bus_message* message, void* self, void* error);
    static int OnClosed(sd_bus_message* message, void* self, void* error);
    static int OnOwnerChanged(sd_bus_message* message, void* self, void* error);

    void Disconnect();
    void FindService();
    void ReadCapabilities();

    Events Told;
    sd_bus* Bus = nullptr;
    std::string ServiceName;
    bool TakesMarkup = false;
};

} // namespace tavo::companion
