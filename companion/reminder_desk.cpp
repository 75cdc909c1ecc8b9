// Choosing between the desktop and our own window, and finding sounds.
#include "companion/reminder_desk.h"

#include "host/files/device_processes.h"
#include "host/files/instance_lock.h"
#include "host/locale/utf.h"
#include "platform/outlook.h"

#include <array>
#include <cstdio>
#include <sstream>
#include <string_view>
#include <sys/wait.h>

namespace tavo::companion {

namespace {

constexpr std::uint32_t kFirstWindowCard = 0x80000000U; // the desktop's own numbers begin at one
constexpr int kWindowPatience = 3000;                   // milliseconds until it has painted a card
constexpr std::u16string_view kHouseSound = u"\\Windows\\Chime.wav";

std::string InstalledSounds() {
    return files::RunningProgramFolder() + "/../share/tavocalendar/sounds";
}

// A field of a line to the window: no tabs, and line feeds as the window reads them.
std::string FieldOf(const std::string& text) {
    std::string field;
    for (const char letter : text) {
        field += letter == '\t' ? ' ' : letter == '\n' ? '\x1f' : letter;
    }
    return field;
}

} // namespace

ReminderDesk::ReminderDesk(const files::DeviceRoot& root, Events events)
    : RunFolder(root.RunFolder()), Files({root.Path(), InstalledSounds()}), Told(std::move(events)),
      OwnBus({Told.Answered, [this] { TakeServiceChange(); }}) {}

std::string ReminderDesk::Service() {
    return UsesWindow ? "window " + std::to_string(Window.Id()) : OwnBus.Service();
}

void ReminderDesk::TakeServiceChange() {
    if (UsesWindow && !OwnBus.Service().empty()) {
        UsesWindow = false;
        Window.Stop();
    }
    Told.ServiceChanged();
}

std::optional<std::uint32_t> ReminderDesk::Show(const reminders::Card& card, std::uint32_t replaced) {
    const CardText text = DescribeCard(card, Told.NowWall());
    if (!UsesWindow) {
        const std::uint32_t own = replaced >= kFirstWindowCard ? 0 : replaced;
        if (const std::optional<std::uint32_t> number = OwnBus.Show(text, own)) {
            return number;
        }
    }
    UsesWindow = true;
    return ShowInWindow(text, replaced);
}

std::optional<std::uint32_t> ReminderDesk::ShowInWindow(const CardText& text, std::uint32_t replaced) {
    if (!Window.Runs()) {
        if (!Window.Start({HelperProgram("tavo_reminder_window")})) {
            return std::nullopt;
        }
        LastWindowCard = kFirstWindowCard;
    }
    const bool replaces = replaced > kFirstWindowCard && replaced <= LastWindowCard;
    const std::uint32_t number = replaces ? replaced : ++LastWindowCard;
    const std::string name = std::to_string(number);
    if (!Window.Write("show\t" + name + '\t' + FieldOf(text.Summary) + '\t' + FieldOf(text.Body) + '\n')) {
        Window.Stop();
        return std::nullopt;
    }
    // Answers that come meanwhile belong to other cards and are kept in order.
    while (true) {
        const std::string line = Window.ReadLine(kWindowPatience);
        if (line == "shown\t" + name) {
            return number;
        }
        if (line.empty()) {
            Window.Stop();
            return std::nullopt;
        }
        Postponed.push_back(line);
    }
}

void ReminderDesk::ReadWindow() {
    std::vector<std::string> lines;
    lines.swap(Postponed);
    for (std::string line = Window.ReadLine(0); !line.empty(); line = Window.ReadLine(0)) {
        lines.push_back(line);
    }
    for (const std::string& line : lines) {
        std::istringstream words(line);
        std::string answer;
        std::uint32_t card = 0;
        int minutes = 0;
        words >> answer >> card >> minutes;
        if (answer == "dismiss") {
            Told.Answered(card, reminders::Answer::Dismiss, 0);
        } else if (answer == "snooze") {
            Told.Answered(card, reminders::Answer::Snooze, minutes);
        } else if (answer == "open") {
            Told.Answered(card, reminders::Answer::Open, 0);
        }
    }
}

void ReminderDesk::ReapChildren() {
    int status = 0;
    for (pid_t ended = waitpid(-1, &status, WNOHANG); ended > 0; ended = waitpid(-1, &status, WNOHANG)) {
        if (ended == Ringer.Id()) {
            Ringer.NoteEnd();
        } else if (ended == Window.Id()) {
            ReadWindow(); // what was answered last
            Window.NoteEnd();
            UsesWindow = false; // perhaps there is a service by now
            Told.ServiceChanged();
        }
    }
}

void ReminderDesk::TakeBack(std::uint32_t card) {
    if (card >= kFirstWindowCard) {
        static_cast<void>(Window.Write("close\t" + std::to_string(card) + '\n')); // a window that is gone shows nothing
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
            path.insert(0, u"\\Windows\\");
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
    static_cast<void>(files::InstanceLock::RequestItem(RunFolder, item));
    if (!files::InstanceLock::ProgramRuns(RunFolder)) {
        static_cast<void>(files::StartDetached({files::RunningProgramFolder() + "/tavocalendar"}));
    }
}

} // namespace tavo::companion
