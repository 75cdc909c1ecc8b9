// Choosing between the desktop and our own window, and finding sounds.
#include "companion/reminder_desk.h"

#include "host/locale/utf.h"
#include "host/posix/device_processes.h"
#include "host/posix/installed_parts.h"
#include "host/posix/instance_lock.h"
#include "platform/device_paths.h"
#include "platform/outlook.h"

#include <cstdlib>
#include <string_view>
#include <sys/wait.h>

namespace tavo::companion {

namespace {

constexpr std::u16string_view kHouseSound = u"\\Windows\\Chime.wav";

std::string InstalledSounds() {
    return posix::FindShared(posix::RunningProgramFolder(), "sounds");
}

} // namespace

ReminderDesk::ReminderDesk(const files::DeviceRoot& root, Events events)
    : RunFolder(root.RunFolder()), Files(Disk, {root.Path(), InstalledSounds()}), Told(std::move(events)),
      OwnBus({[this](std::uint32_t card, reminders::Answer answer, int snooze, const std::string& token) {
                  TakeAnswer(card, answer, snooze, token);
              },
              Told.ServiceChanged,
              [this](std::uint32_t question, const auto& placed) { TakeBusReply(question, placed); }}),
      OwnCards(
          {[this](std::uint32_t card, reminders::Answer answer, int snooze) { TakeAnswer(card, answer, snooze, ""); },
           Told.ServiceChanged,
           [this](std::uint32_t question, const auto& placed) { TakeWindowReply(question, placed); }}) {}

bool ReminderDesk::Holds(const std::string& service) {
    return !service.empty() && (service == OwnBus.Service() || OwnCards.Holds(service));
}

// The desktop first; each card that it does not take goes to our own window.
reminders::Placement ReminderDesk::Show(const reminders::Card& card, std::uint32_t replaced) {
    std::erase_if(Offers,
                  [this](const auto& entry) { return entry.second.IsSettled && !OwnBus.MayReply(entry.first); });
    const std::uint32_t question = ++LastQuestion;
    const Offer& offer =
        Offers.insert_or_assign(question, Offer{DescribeCard(card, Told.NowWall()), replaced}).first->second;
    if (OwnBus.Ask(question, offer.Text, OwnWindow::IsCard(replaced) ? 0 : replaced) ||
        OwnCards.Ask(question, offer.Text, replaced)) {
        return {std::nullopt, question};
    }
    Offers.erase(question);
    return {};
}

void ReminderDesk::TakeBusReply(std::uint32_t question, const std::optional<reminders::PlacedCard>& placed) {
    const auto known = Offers.find(question);
    if (!placed && known != Offers.end() && OwnCards.Ask(question, known->second.Text, known->second.Replaced)) {
        return;
    }
    const Offer offer = known == Offers.end() ? Offer() : known->second;
    Offers.erase(question);
    if (placed && offer.WindowCard != 0) {
        OwnCards.TakeBack(offer.WindowCard);
        Told.Moved(offer.WindowCard, *placed);
        return;
    }
    if (placed && offer.Replaced != 0 && offer.Replaced != placed->Number) {
        TakeBack(offer.Replaced);
    }
    Told.Placed(question, placed);
}

void ReminderDesk::TakeWindowReply(std::uint32_t question, const std::optional<reminders::PlacedCard>& placed) {
    const auto offer = Offers.find(question);
    if (offer == Offers.end()) { // the desktop took it after all
        if (placed) {
            OwnCards.TakeBack(placed->Number);
        }
        return;
    }
    if (placed && offer->second.Replaced != 0 && offer->second.Replaced != placed->Number) {
        TakeBack(offer->second.Replaced);
    }
    offer->second.WindowCard = placed ? placed->Number : 0;
    offer->second.IsSettled = true;
    Told.Placed(question, placed);
}

void ReminderDesk::TakeAnswer(std::uint32_t card, reminders::Answer answer, int snooze, const std::string& token) {
    Token = token;
    Told.Answered(card, answer, snooze);
    Token.clear();
}

void ReminderDesk::Process() {
    static_cast<void>(OwnBus.Process()); // without a bus our own window goes on
    OwnCards.Process();
}

std::optional<Instant> ReminderDesk::Deadline() const {
    return Earlier(OwnBus.Deadline(), OwnCards.Deadline());
}

void ReminderDesk::ReapChildren() {
    for (pid_t ended = waitpid(-1, nullptr, WNOHANG); ended > 0; ended = waitpid(-1, nullptr, WNOHANG)) {
        if (ended == Ringer.Id()) {
            Ringer.NoteEnd();
        } else {
            static_cast<void>(OwnCards.TakeEnd(ended)); // else one that was stopped
        }
    }
}

void ReminderDesk::TakeBack(std::uint32_t card) {
    if (OwnWindow::IsCard(card)) {
        OwnCards.TakeBack(card);
    } else {
        OwnBus.TakeBack(card);
    }
}

// The item's own sound first, then the house's: the player takes the first that is one.
std::vector<std::string> ReminderDesk::FindSounds(const reminders::Card& card) {
    std::vector<std::string> sounds;
    for (const reminders::CardLine& line : card.Lines) {
        std::u16string path = locale::ToUtf16(line.Text.Sound);
        if (!line.Text.Rings() || path.empty() || !sounds.empty()) {
            continue;
        }
        if (path.find(u'\\') == std::u16string::npos) {
            path.insert(0, kSoundFolder);
        }
        if (std::optional<std::string> file = Files.RealPathOfFile(path)) {
            sounds.push_back(std::move(*file));
        }
    }
    if (std::optional<std::string> file = Files.RealPathOfFile(kHouseSound)) {
        sounds.push_back(std::move(*file));
    }
    return sounds;
}

void ReminderDesk::Ring(const reminders::Card& card) {
    bool repeats = false;
    for (const reminders::CardLine& line : card.Lines) {
        repeats = repeats || (line.Text.Rings() && (line.Text.Options & kReminderRepeat) != 0);
    }
    std::vector<std::string> command{HelperProgram("tavo_reminder_sound")};
    if (repeats && card.Kind != reminders::CardKind::Missed) {
        command.emplace_back("--repeat");
    }
    const std::vector<std::string> sounds = FindSounds(card);
    command.insert(command.end(), sounds.begin(), sounds.end());
    static_cast<void>(Ringer.Start(command)); // a device without sound still shows its cards
}

void ReminderDesk::StopRinging() {
    Ringer.Stop();
}

void ReminderDesk::OpenItem(std::int32_t item) {
    // First, so that a start finds it. Not written, a running program stays where it is and a new one shows its clock.
    static_cast<void>(posix::InstanceLock::RequestItem(RunFolder, item, Token));
    // Also beside one that runs: it may be about to end, and a start knows to take its place then. One thread, and
    // nobody else reads the variable: it is for the one that is started.
    static_cast<void>(setenv("XDG_ACTIVATION_TOKEN", Token.c_str(), 1));
    static_cast<void>(posix::StartDetached({posix::FindProgram(posix::RunningProgramFolder(), "tavocalendar")}));
    static_cast<void>(unsetenv("XDG_ACTIVATION_TOKEN"));
}

} // namespace tavo::companion
