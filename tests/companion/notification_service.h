// A session bus of the tests' own with a service of notifications that writes down what it is asked.
#pragma once

#include "tests/companion/session_bus.h"

#include <cstdint>
#include <map>
#include <string>
#include <systemd/sd-bus.h>
#include <vector>

namespace tavo::companion::test {

struct Notification {
    std::uint32_t Number = 0;
    std::string Summary;
    std::string Body;
    std::vector<std::string> Actions; // keys
    std::uint32_t Replaced = 0;
    std::int32_t Timeout = -1;
    double Time = 0; // seconds since 1970
};

class NotificationService {
  public:
    explicit NotificationService(const SessionBus& session);
    ~NotificationService();
    NotificationService(const NotificationService&) = delete;
    NotificationService& operator=(const NotificationService&) = delete;

    // Serves until so many notifications came in all, or so many seconds have passed.
    bool WaitFor(std::size_t count, double seconds);
    // Serves for so long.
    void Serve(double seconds);
    // Serves until a notification was taken back.
    bool WaitForTakenBack(std::uint32_t number, double seconds);

    // What a desktop does before it tells of a choice.
    void GiveToken(std::uint32_t number, const char* token);
    // Answers what it was asked while AnswersCards was false.
    void AnswerHeld();

    // What a person does.
    void Choose(std::uint32_t number, const char* action);
    void CloseByHand(std::uint32_t number);

    bool AnswersCapabilities = true;
    bool AnswersCards = true;
    bool RefusesCards = false;

    std::vector<Notification> Came;
    std::vector<std::uint32_t> TakenBack;

  private:
    static int OnNotify(sd_bus_message* call, void* self, sd_bus_error* error);
    static int OnClose(sd_bus_message* call, void* self, sd_bus_error* error);
    static int OnCapabilities(sd_bus_message* call, void* self, sd_bus_error* error);
    static const sd_bus_vtable kMethods[];

    template <class Done> bool ServeUntil(const Done& done, double seconds);

    struct HeldCard {
        sd_bus_message* Call;
        std::uint32_t Number;
    };

    sd_bus* Bus = nullptr;
    std::vector<HeldCard> Held;
    std::uint32_t LastNumber = 0;
};

// Seconds since 1970 with their fraction.
double TimeNow();

} // namespace tavo::companion::test
