// The loop of the waiting process, and what wakes it.
#include "companion/companion.h"

#include "host/posix/folder_notice.h"
#include "host/posix/installed_parts.h"
#include "host/posix/store_machine.h"
#include "host/posix/zone_database.h"
#include "host/rules/zones.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <ctime>
#include <malloc.h>
#include <poll.h>
#include <string_view>
#include <sys/inotify.h>
#include <sys/signalfd.h>
#include <sys/stat.h>
#include <sys/timerfd.h>

namespace tavo::companion {

namespace {

using reminders::Look;
using reminders::Moment;

constexpr Moment kUnixEpoch = rules::kUnixEpochDay * rules::kSecondsPerDay;
constexpr Moment kStoreRetry = 30;  // seconds until a store that cannot be opened is tried again
constexpr Moment kLockedRetry = 1;  // and one that others write to: nothing tells when they are done
constexpr int kStorePatience = 250; // milliseconds that one try may wait for other writers
constexpr std::chrono::milliseconds kLastPatience{1000}; // for what the desk was asked at the end
constexpr auto kSecondLooks = outlook::ChangeWatcher::kSecondLooks;

Moment Now() {
    return std::time(nullptr) + kUnixEpoch;
}

bool Drain(int descriptor) {
    std::array<std::byte, 4096> bytes{};
    bool any = false;
    while (read(descriptor, bytes.data(), bytes.size()) > 0) {
        any = true;
    }
    return any;
}

posix::FileDescriptor WatchFolder(const char* folder) {
    posix::FileDescriptor watch(inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    if (watch && inotify_add_watch(watch.Get(), folder, IN_MOVED_TO | IN_CREATE | IN_CLOSE_WRITE) < 0) {
        static_cast<void>(watch.Close());
    }
    return watch;
}

} // namespace

struct Companion::Opened {
    Opened(const outlook::StorePtr& store, ReminderDesk& desk)
        : Store(store), Watcher(store, Notice), Ledger(store, Now), Planner(Ledger, desk) {}

    outlook::StorePtr Store;
    posix::FolderNotice Notice;
    outlook::ChangeWatcher Watcher;
    outlook::StoreLedger Ledger;
    reminders::Scheduler Planner;

    struct stat Identity {};
};

Companion::Companion(const files::DeviceRoot& root)
    : Root(root),
      Desk(root, {[this](std::uint32_t card, reminders::Answer answer, int snooze) { Answer(card, answer, snooze); },
                  [this] { Pending = Pending.value_or(Look::Clock); },
                  [this](std::uint32_t question, const auto& placed) { TakePlacement(question, placed); },
                  [this](std::uint32_t card, const auto& placed) { TakeMove(card, placed); },
                  [this] { return Device == nullptr ? 0 : Device->Ledger.ToWall(Now()); }}),
      Round(posix::FindProgram(posix::RunningProgramFolder(), "RSound")) {}

Companion::~Companion() = default;

bool Companion::Prepare() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : {SIGTERM, SIGINT, SIGHUP, SIGCHLD}) {
        sigaddset(&signals, number);
    }
    static_cast<void>(sigprocmask(SIG_BLOCK, &signals, nullptr));
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN)); // a window that went is noticed when it is written to
    Signals = posix::FileDescriptor(signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC));
    Alarm = posix::FileDescriptor(timerfd_create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC));
    Zone = WatchFolder("/etc");
    return Signals && Alarm;
}

Status Companion::OpenStore() {
    Device.reset();
    outlook::StorePtr store;
    outlook::StoreOptions options;
    options.LockPatience = kStorePatience;
    options.HasSmallCache = true;
    const Status status = outlook::OpenStore(posix::SystemMachine(), Root.StorePath(), options, store);
    if (Failed(status)) {
        Folder = WatchFolder(Root.Path().c_str());
        return status;
    }
    auto opened = std::make_unique<Opened>(store, Desk);
    static_cast<void>(stat(Root.StorePath().c_str(), &opened->Identity)); // a wrong identity opens it once more
    static_cast<void>(opened->Watcher.Start()); // without news it looks when a reminder is due
    static_cast<void>(Folder.Close());
    Device = std::move(opened);
    return Status::Ok;
}

bool Companion::IsReplaced() const {
    struct stat identity {};

    return stat(Root.StorePath().c_str(), &identity) != 0 || identity.st_ino != Device->Identity.st_ino ||
           identity.st_dev != Device->Identity.st_dev;
}

void Companion::LeaveStore() {
    std::vector<reminders::LedgerRow> rows;
    static_cast<void>(
        Device->Ledger.ReadOpen(rows)); // the cards of one that cannot be read stay until somebody closes them
    for (const reminders::LedgerRow& row : rows) {
        if (row.IsOnDesk() && Desk.Holds(row.Service)) {
            Orphans.insert(row.Card);
        }
    }
    Round.Stop();
    Desk.StopRinging(); // the next store knows nothing of it
    Device.reset();
}

// A restored copy may know them: those stay, and are answered there.
void Companion::TakeOrphansBack() {
    std::vector<reminders::LedgerRow> rows;
    if (Device == nullptr || !Device->Ledger.ReadOpen(rows)) {
        return;
    }
    for (const reminders::LedgerRow& row : rows) {
        if (row.IsOnDesk()) {
            Orphans.erase(row.Card);
        }
    }
    for (const std::uint32_t card : Orphans) {
        Desk.TakeBack(card);
    }
    Orphans.clear();
}

void Companion::SetAlarm(Moment at) {
    struct itimerspec time {};

    AlarmAt = at;
    time.it_value.tv_sec = std::max<Moment>(at - kUnixEpoch, 1);
    static_cast<void>(timerfd_settime(Alarm.Get(), TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &time, nullptr));
}

void Companion::Work(Look look) {
    if (Device != nullptr && IsReplaced()) {
        LeaveStore();
    }
    if (Device == nullptr) {
        if (const Status status = OpenStore(); Failed(status)) {
            SetAlarm(Now() + (status == Status::Locked ? kLockedRetry : kStoreRetry));
            return;
        }
        TakeOrphansBack();
        look = Look::Items;
    }
    SetAlarm(LookAtRound(Device->Planner.Run(Now(), look)));
}

// After what is due was shown. Gives the earlier of both moments.
Moment Companion::LookAtRound(Moment next) {
    const Moment now = Now();
    return std::min(next, Round.Run(*Device->Store, now, Device->Ledger.ToWall(now)).value_or(next));
}

void Companion::TakeRoundsEnd() {
    const std::optional<RoundResult> result = Round.Reap();
    if (!result) {
        return;
    }
    Pending = Pending.value_or(Look::Clock);
    if (Device != nullptr && *result != RoundResult::Undone) {
        static_cast<void>(Device->Store->NoteFullCheck(std::time(nullptr))); // not noted, it is made once more
    }
}

void Companion::GiveMemoryBack() {
    if (Device != nullptr) {
        Device->Store->ReleaseMemory();
    }
    malloc_trim(0);
}

void Companion::LookAtStore() {
    if (Device == nullptr || IsReplaced()) {
        Pending = Look::Items;
    } else if (Device->Watcher.TakeItemChange()) {
        Pending = Look::Items; // and the second looks go on: behind it another change may be on its way
    }
}

void Companion::LookAtZone() {
    if (Drain(Zone.Get()) && Device != nullptr) {
        // A zone that is not known leaves the one before.
        static_cast<void>(Device->Store->SetDeviceZone(rules::FindDeviceZone(posix::SystemZones())));
        Pending = Look::Items;
    }
}

void Companion::Answer(std::uint32_t card, reminders::Answer answer, int snooze) {
    if (Device != nullptr) {
        Device->Planner.Take(card, answer, snooze, Now());
        Pending = Pending.value_or(Look::Clock);
    }
}

void Companion::TakePlacement(std::uint32_t question, const std::optional<reminders::PlacedCard>& placed) {
    if (Device == nullptr) {
        if (placed) {
            Desk.TakeBack(placed->Number);
        }
        return;
    }
    const Moment now = Now();
    const std::optional<Moment> next = Device->Planner.TakePlacement(question, placed, now);
    if (next && *next <= now) {
        Pending = Pending.value_or(Look::Clock);
    } else if (next) {
        SetAlarm(std::min(AlarmAt, *next));
    }
}

void Companion::TakeMove(std::uint32_t card, const reminders::PlacedCard& placed) {
    if (Device == nullptr || !Device->Planner.TakeMove(card, placed, Now())) {
        Desk.TakeBack(placed.Number); // answered meanwhile
    }
}

bool Companion::TakeSignals() {
    struct signalfd_siginfo signal {};

    bool ends = false;
    while (read(Signals.Get(), &signal, sizeof signal) == sizeof signal) {
        ends = ends || signal.ssi_signo != SIGCHLD;
    }
    TakeRoundsEnd();
    Desk.ReapChildren();
    return !ends;
}

void Companion::PlanNextLook() {
    NextLook.reset();
    if (SecondLooks > 0) {
        const int pause = kSecondLooks[kSecondLooks.size() - static_cast<std::size_t>(SecondLooks)];
        NextLook = Clock::now() + std::chrono::milliseconds(pause);
    }
}

// Until something comes or is to be done, or the given moment.
void Companion::Wait(std::optional<Instant> end) {
    enum Place { AlarmPlace, SignalPlace, ZonePlace, StorePlace, BusPlace, WindowPlace, RoomPlace, Places };

    std::array<struct pollfd, Places> places{};
    places[AlarmPlace] = {Alarm.Get(), POLLIN, 0};
    places[SignalPlace] = {Signals.Get(), POLLIN, 0};
    places[ZonePlace] = {Zone.Get(), POLLIN, 0};
    places[StorePlace] = {Device == nullptr ? Folder.Get() : Device->Notice.Descriptor(), POLLIN, 0};
    places[BusPlace] = {Desk.Bus().Descriptor(), static_cast<short>(Desk.Bus().PollEvents()), 0};
    places[WindowPlace] = {Desk.Window().Output(), POLLIN, 0};
    places[RoomPlace] = {Desk.Window().Input(), POLLOUT, 0};
    end = Earlier(end, Earlier(NextLook, Desk.Deadline()));
    int patience = -1;
    if (end) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(*end - Clock::now());
        patience = static_cast<int>(std::max<std::int64_t>(left.count(), 0));
    }
    if (poll(places.data(), places.size(), patience) < 0) {
        return; // interrupted: all that follows is asked again
    }
    const auto came = [&places](Place place) { return places[place].revents != 0; };
    if (came(AlarmPlace)) {
        static_cast<void>(Drain(Alarm.Get())); // also tells of a clock that was set, by failing
        Pending = Pending.value_or(Look::Clock);
    }
    if (came(ZonePlace)) {
        LookAtZone();
    }
    if (came(StorePlace)) {
        if (Device == nullptr) {
            static_cast<void>(Drain(Folder.Get()));
        }
        SecondLooks = static_cast<int>(kSecondLooks.size());
        LookAtStore();
        PlanNextLook();
    } else if (NextLook && *NextLook <= Clock::now()) {
        --SecondLooks;
        LookAtStore();
        PlanNextLook();
    }
    Desk.Process();
    if (came(SignalPlace)) {
        Ending = !TakeSignals() || Ending;
    }
}

// What the desktop has taken is to be in the ledger, else the next process says it again.
void Companion::WaitForDesk() {
    const Instant end = Clock::now() + kLastPatience;
    while (Device != nullptr && Device->Planner.WaitsForDesk() && Clock::now() < end) {
        Wait(end);
    }
}

// Until the bus says who holds cards, they would seem to be gone. Without a bus our own window shows what is due.
bool Companion::IsFindingDesk() {
    return Desk.Bus().Connect() && Desk.Bus().IsFinding();
}

int Companion::Run() {
    if (!Prepare()) {
        return 1;
    }
    static_cast<void>(OpenStore()); // while the bus is about to answer; one that did not open is tried again
    Pending = Look::Items;
    while (!Ending) {
        if (Pending && !IsFindingDesk()) {
            const Look look = *Pending;
            Pending.reset();
            Work(look);
            GiveMemoryBack();
            // What came while we asked the bus would wake nobody any more.
            Desk.Process();
            continue;
        }
        Wait(std::nullopt);
    }
    WaitForDesk();
    if (Device != nullptr) {
        static_cast<void>(Device->Planner.Leave(Now())); // else the next start looks a little further back
    }
    return 0;
}

} // namespace tavo::companion
