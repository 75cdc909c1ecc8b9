// Lines to the window and from it, and another window for one that does not answer.
#include "companion/own_window.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace tavo::companion {

namespace {

constexpr std::uint32_t kFirstCard = 0x80000000U;
constexpr std::chrono::milliseconds kAnswerPatience{900};
constexpr std::chrono::milliseconds kStartPatience{5000};

// A field of a line to the window: no tabs, and line feeds as the window reads them.
std::string FieldOf(const std::string& text) {
    std::string field;
    for (const char letter : text) {
        field += letter == '\t' ? ' ' : letter == '\n' ? '\x1f' : letter;
    }
    return field;
}

} // namespace

bool OwnWindow::IsCard(std::uint32_t number) {
    return number >= kFirstCard;
}

std::string OwnWindow::Name() const {
    return "window " + std::to_string(Program.Id());
}

bool OwnWindow::Holds(const std::string& service) const {
    return Program.Runs() && service == Name();
}

bool OwnWindow::Begin() {
    HasShown = false;
    return Program.Start({HelperProgram("tavo_reminder_window")});
}

bool OwnWindow::Ask(std::uint32_t question, const CardText& text, std::uint32_t replaced) {
    Offer offer{text, IsCard(replaced) ? replaced : kFirstCard + ++LastCard, {}};
    const bool runs = Program.Runs();
    if (!runs || !Write(offer)) {
        if (runs) { // closed just now, with its last card
            Program.Stop();
            Replace();
        }
        if ((!Program.Runs() && !Begin()) || !Write(offer)) {
            return false;
        }
    }
    Offers.insert_or_assign(question, std::move(offer));
    return true;
}

bool OwnWindow::Write(Offer& offer) {
    offer.Deadline = Clock::now() + (HasShown ? kAnswerPatience : kStartPatience);
    return Program.Write("show\t" + std::to_string(offer.Card) + '\t' + FieldOf(offer.Text.Summary) + '\t' +
                         FieldOf(offer.Text.Body) + '\n');
}

void OwnWindow::TakeBack(std::uint32_t card) {
    if (Program.Runs()) {
        static_cast<void>(Program.Write("close\t" + std::to_string(card) + '\n')); // one that is gone shows nothing
    }
}

std::optional<Instant> OwnWindow::Deadline() const {
    std::optional<Instant> earliest;
    for (const auto& [question, offer] : Offers) {
        earliest = Earlier(earliest, offer.Deadline);
    }
    return earliest;
}

void OwnWindow::Process() {
    static_cast<void>(Program.Flush()); // one that reads no more has ended or will, and is noticed then
    ReadLines();
    if (const std::optional<Instant> deadline = Deadline(); deadline && *deadline <= Clock::now()) {
        Program.Stop();
        Replace();
    }
}

void OwnWindow::ReadLines() {
    for (std::string line = Program.ReadLine(0); !line.empty(); line = Program.ReadLine(0)) {
        TakeLine(line);
    }
}

void OwnWindow::TakeLine(const std::string& line) {
    std::istringstream words(line);
    std::string word;
    std::uint32_t card = 0;
    int minutes = 0;
    words >> word >> card >> minutes;
    if (word == "shown") {
        TakeShown(card);
    } else if (word == "dismiss") {
        Told.Answered(card, reminders::Answer::Dismiss, 0);
    } else if (word == "snooze") {
        Told.Answered(card, reminders::Answer::Snooze, minutes);
    } else if (word == "open") {
        Told.Answered(card, reminders::Answer::Open, 0);
    }
}

void OwnWindow::TakeShown(std::uint32_t card) {
    HasShown = true;
    const auto shown =
        std::find_if(Offers.begin(), Offers.end(), [card](const auto& entry) { return entry.second.Card == card; });
    if (shown != Offers.end()) {
        const std::uint32_t question = shown->first;
        Offers.erase(shown);
        Told.Replied(question, reminders::PlacedCard{card, Name()});
    }
}

bool OwnWindow::TakeEnd(pid_t ended) {
    if (ended != Program.Id()) {
        return false;
    }
    ReadLines(); // what was answered last
    Program.NoteEnd();
    Replace();
    return true;
}

// It hung or ended. What it has not painted goes to another one, but once only: perhaps there is no screen.
void OwnWindow::Replace() {
    const std::map<std::uint32_t, Offer> unanswered = std::exchange(Offers, {});
    for (const auto& [question, before] : unanswered) {
        Offer offer = before;
        offer.IsSecondTry = true;
        if (!before.IsSecondTry && (Program.Runs() || Begin()) && Write(offer)) {
            Offers.insert_or_assign(question, std::move(offer));
        } else {
            Told.Replied(question, std::nullopt);
        }
    }
    Told.Ended();
}

} // namespace tavo::companion
