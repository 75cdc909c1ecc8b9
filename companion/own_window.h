// The window of our own that shows cards, as a program of its own that may hang or die.
#pragma once

#include "companion/card_text.h"
#include "companion/child.h"
#include "companion/patience.h"
#include "host/reminders/desk.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tavo::companion {

class OwnWindow {
  public:
    struct Events {
        std::function<void(std::uint32_t card, reminders::Answer answer, int snooze)> Answered;
        std::function<void()> Ended; // and with it all its cards
        // Of a question: the card that it has painted; nothing when there is no window that would.
        std::function<void(std::uint32_t question, const std::optional<reminders::PlacedCard>& placed)> Replied;
    };

    explicit OwnWindow(Events events) : Told(std::move(events)) {}

    // Whether a number is of this kind of card; the desktop's own begin at one.
    static bool IsCard(std::uint32_t number);
    bool Holds(const std::string& service) const;

    // The outcome is told as an event. False when there is no such program.
    bool Ask(std::uint32_t question, const CardText& text, std::uint32_t replaced);
    void TakeBack(std::uint32_t card);

    // For the loop: readable when Process is to be called; to wait for room, -1 when nothing waits; and when to call it
    // at the latest.
    int Output() const { return Program.Output(); }

    int Input() const { return Program.Input(); }

    std::optional<Instant> Deadline() const;
    void Process();
    // After SIGCHLD. False when it was another process.
    bool TakeEnd(pid_t ended);

  private:
    struct Offer {
        CardText Text;
        std::uint32_t Card = 0;
        Instant Deadline;
        bool IsSecondTry = false;
    };

    std::string Name() const;
    bool Begin();
    bool Write(Offer& offer);
    void ReadLines();
    void TakeLine(const std::string& line);
    void TakeShown(std::uint32_t card);
    void Replace();

    Events Told;
    Child Program;
    bool HasShown = false; // one that has, answers soon
    std::uint32_t LastCard = 0;
    std::map<std::uint32_t, Offer> Offers; // by question
};

} // namespace tavo::companion
