// What is due at night, and the process that does it.
#include "companion/night_round.h"

#include "companion/notifications.h"
#include "host/backup/kept_backups.h"
#include "host/files/device_files.h"
#include "host/locale/harmless_text.h"
#include "host/outlook/diagnosis.h"
#include "host/posix/posix_disk.h"
#include "host/posix/store_machine.h"
#include "host/rules/wall_time.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace tavo::companion {

namespace {

using reminders::Moment;

constexpr Moment kUnixEpoch = rules::kUnixEpochDay * rules::kSecondsPerDay;
constexpr Moment kRoundTime = kRoundHour * 3600;
constexpr Moment kRetry = 3600; // seconds until a round that could not be made is tried again
constexpr int kLowest = 19;
constexpr const char* kDamaged = "The calendar's store is damaged.";
constexpr const char* kDamagedAdvice = "\"tavo check\" says what is wrong with it and what to do.";
constexpr const char* kAltered = "An entry of the calendar has changed by itself.";
constexpr const char* kAlteredAdvice = "\"tavo check\" says which one and what to do. All else is in order.";
constexpr std::chrono::seconds kBusPatience{10};
constexpr int kPause = 200; // milliseconds between two looks at the time

// Where nobody shows it, the next night says it again.
void Tell(const CardText& words) {
    bool isOver = false;
    // One that has to be started first answers late.
    Notifications bus(
        {[](auto&&...) {}, [] {}, [&isOver](std::uint32_t, const auto& placed) { isOver = placed.has_value(); }});
    if (!bus.Connect() || !bus.Ask(1, words, 0)) {
        return;
    }
    const auto end = std::chrono::steady_clock::now() + kBusPatience;
    while (!isOver && std::chrono::steady_clock::now() < end) {
        struct pollfd news {
            bus.Descriptor(), static_cast<short>(bus.PollEvents()), 0
        };

        static_cast<void>(poll(&news, 1, kPause)); // interrupted, it looks at the time
        if (!bus.Process()) {
            return;
        }
    }
}

} // namespace

RoundResult GoRound(const files::DeviceRoot& root) {
    posix::PosixDisk disk;
    files::DeviceFiles(disk, {root.Path()}).Purge();
    disk.RemoveUnfinished(root.RunFolder());
    const outlook::Diagnosis diagnosis =
        outlook::DiagnoseStore(posix::SystemMachine(), root.StorePath(), outlook::CheckDepth::Full);
    // What is damaged must not take the place of what is whole.
    if (diagnosis.State == outlook::Verdict::Ok || diagnosis.State == outlook::Verdict::LeavesOut) {
        if (std::string problem; !backup::KeepBackup(root, problem)) {
            std::fprintf(stderr, "RSound: no backup of this night: %s\n", locale::MakeHarmless(problem).c_str());
        }
    }
    if (diagnosis.State == outlook::Verdict::Ok) {
        return RoundResult::Sound;
    }
    std::fprintf(stderr, "RSound: %s %s\n", diagnosis.What.c_str(), diagnosis.Advice.c_str());
    switch (diagnosis.State) {
    case outlook::Verdict::LeavesOut:
    case outlook::Verdict::Blemished:
        return RoundResult::Sound; // nobody has to do anything tonight, and another look finds the same
    case outlook::Verdict::Altered:
        Tell({kAltered, kAlteredAdvice, false});
        return RoundResult::Damaged;
    case outlook::Verdict::Damaged:
        Tell({kDamaged, kDamagedAdvice, false});
        return RoundResult::Damaged;
    default:
        return RoundResult::Undone;
    }
}

Moment NextRound(Moment last, Moment nowWall) {
    // One that was made by a clock that was set back since says nothing.
    const Moment since = std::min(last, nowWall);
    return rules::MidnightOf(rules::DayOf(since - kRoundTime) + 1) + kRoundTime;
}

std::optional<Moment> NightRound::Run(outlook::Store& store, Moment now, Moment nowWall) {
    if (Process > 0) {
        return std::nullopt;
    }
    if (Failed) {
        Failed = false;
        NotBefore = now + kRetry;
    }
    std::optional<std::int64_t> last = store.LastFullCheck();
    if (!last) {
        last = now - kUnixEpoch;                       // a new store: its first night comes
        static_cast<void>(store.NoteFullCheck(*last)); // else it is written at the next look
    }
    const Moment ahead = nowWall - now; // of the device's clock before the world's
    const Moment due = *last == 0 ? now : NextRound(*last + kUnixEpoch + ahead, nowWall) - ahead;
    if (std::max(due, NotBefore) > now) {
        return std::max(due, NotBefore);
    }
    Process = fork();
    if (Process == 0) {
        static_cast<void>(prctl(PR_SET_PDEATHSIG, SIGTERM));
        static_cast<void>(nice(kLowest)); // it goes all the same
        sigset_t none;
        sigemptyset(&none);
        static_cast<void>(sigprocmask(SIG_SETMASK, &none, nullptr));
        static_cast<void>(signal(SIGPIPE, SIG_DFL)); // what we ignore would stay ignored
        execl(Program.c_str(), Program.c_str(), "--round", nullptr);
        _exit(static_cast<int>(RoundResult::Undone));
    }
    Failed = Process < 0;
    return Failed ? std::optional(now + kRetry) : std::nullopt;
}

std::optional<RoundResult> NightRound::Reap() {
    int status = 0;
    const pid_t ended = Process > 0 ? waitpid(Process, &status, WNOHANG) : 0;
    if (ended == 0) {
        return std::nullopt;
    }
    const bool isOurs = std::exchange(Process, -1) == ended; // else somebody else was told how it ended

    const int code = isOurs && WIFEXITED(status) ? WEXITSTATUS(status) : static_cast<int>(RoundResult::Undone);
    const bool known = code == static_cast<int>(RoundResult::Sound) || code == static_cast<int>(RoundResult::Damaged);
    Failed = !known;
    return known ? static_cast<RoundResult>(code) : RoundResult::Undone;
}

void NightRound::Stop() {
    if (Process > 0) {
        static_cast<void>(kill(Process, SIGKILL)); // it only reads, and takes whole files away
        Process = -1; // and is reaped with the other children: a disk that hangs may hold it
    }
}

} // namespace tavo::companion
