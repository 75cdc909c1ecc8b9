// The desktop's own notifications, over the session bus. Nothing here waits for them or for the bus.
#pragma once

#include "companion/card_text.h"
#include "companion/patience.h"
#include "host/reminders/desk.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

struct sd_bus;
struct sd_bus_message;
struct sd_bus_slot;

namespace tavo::companion {

class Notifications {
  public:
    struct Events {
        // `token` lets the program that is opened take the focus; perhaps empty.
        std::function<void(std::uint32_t card, reminders::Answer answer, int snooze, const std::string& token)>
            Answered;
        std::function<void()> ServiceChanged; // the one that held the cards went, or another came
        // Of a question: who took the card; nothing when nobody did in time. After that it may still be taken, and is
        // told a second time.
        std::function<void(std::uint32_t question, const std::optional<reminders::PlacedCard>& placed)> Replied;
    };

    explicit Notifications(Events events);
    ~Notifications();
    Notifications(const Notifications&) = delete;
    Notifications& operator=(const Notifications&) = delete;

    // Begins to; false without a session bus, which may be tried again.
    bool Connect();

    // Whether it may still turn out who holds cards; not for long. Before that, nobody does.
    bool IsFinding() const { return FindEnd.has_value(); }

    // For the loop: the descriptor and the events to wait for, -1 without a bus; and when to call Process at the
    // latest.
    int Descriptor() const;
    int PollEvents() const;
    std::optional<Instant> Deadline() const;
    // Handles what has come and what did not come in time. False when the bus is gone.
    bool Process();

    // The bus and the service on it; "" while there is none.
    const std::string& Service() const { return ServiceName; }

    // Asks for a card, and may start the service. The outcome is told as an event. False when there is nobody to ask,
    // or the last one asked does not answer.
    bool Ask(std::uint32_t question, const CardText& text, std::uint32_t replaced);

    // Whether it may still be taken, late.
    bool MayReply(std::uint32_t question) const { return Questions.contains(question); }

    void TakeBack(std::uint32_t card);

  private:
    struct Question;

    static int OnAction(sd_bus_message* message, void* self, void* error);
    static int OnToken(sd_bus_message* message, void* self, void* error);
    static int OnClosed(sd_bus_message* message, void* self, void* error);
    static int OnOwnerChanged(sd_bus_message* message, void* self, void* error);
    static int OnCapabilities(sd_bus_message* message, void* self, void* error);
    static int OnOwner(sd_bus_message* message, void* self, void* error);
    static int OnReply(sd_bus_message* message, void* question, void* error);

    bool Listen();
    void Disconnect();
    bool FindService();
    std::string NameService(const char* owner) const;
    void AskCapabilities();
    void ForgetCapabilities();
    void SendHeld();
    bool Send(Question& question);
    void TakeReply(std::uint32_t number, const std::optional<reminders::PlacedCard>& placed);
    void TakeTime();

    Events Told;
    sd_bus* Bus = nullptr;
    sd_bus_slot* CapabilitiesSlot = nullptr; // while they are asked for
    std::optional<Instant> FindEnd;          // while the service is looked for
    Instant NextTry;                         // to connect, not before
    bool IsLetIn = false;                    // the bus has answered something
    std::string ServiceName;
    bool KnowsCapabilities = false;
    bool TakesMarkup = true; // until it is known: what is marked needlessly is ugly, what is not may be left out
    bool IsSilent = false;   // did not answer in time, and has not since
    std::map<std::uint32_t, std::unique_ptr<Question>> Questions;
    std::uint32_t TokenCard = 0;
    std::string Token; // of the card that is about to be opened
};

} // namespace tavo::companion
