// Waiting, and the order of what comes.
#include "host/shell/shell_queue.h"

namespace tavo::shell {

namespace {

// While the frame is minimised only its own timers and the view's run; those of pages, which paint, are held back and
// come once when it is back.
TimerTable::Filter RunningTimers(const Shell& shell) {
    return [&shell](WindowHandle window) {
        if (!shell.Minimized) {
            return true;
        }
        const WindowRecord* ground = shell.Tree.Find(shell.Tree.Ground(window));
        return ground != nullptr && (ground->Kind == WindowKind::Frame || ground->Kind == WindowKind::View);
    };
}

bool IsWanted(const Shell& shell, const PostedMessage& posted) {
    switch (posted.Origin) {
    case MessageOrigin::Program:
        return true;
    case MessageOrigin::Person:
        return shell.TakesInput(posted.Message.Window) && !shell.Menus.IsMenuOpen();
    case MessageOrigin::PersonEnding:
        return shell.TakesInput(posted.Message.Window);
    }
    return true;
}

} // namespace

Message ShellQueue::Wait() {
    OpenWhatWasAnnounced();
    bool lookedOutside = false;
    while (true) {
        if (QuitCode) {
            Message quit;
            quit.Number = WM_QUIT;
            quit.Id = *QuitCode;
            return quit;
        }
        if (const auto posted = TakePosted()) {
            return *posted;
        }
        if (!lookedOutside) {
            // What a person did meanwhile goes before paints and timers.
            lookedOutside = true;
            State.Source.WaitForEvents(State.Source.GetMilliseconds());
            continue;
        }
        if (const auto paint = TakePaint()) {
            return *paint;
        }
        if (const auto timer = TakeTimer()) {
            return *timer;
        }
        State.Source.WaitForEvents(State.Timers.NextDue(RunningTimers(State)));
    }
}

void ShellQueue::PostMessageW(const Message& message) {
    State.Post(message);
}

void ShellQueue::PostQuitMessage(int code) {
    QuitCode = code;
}

void ShellQueue::OpenWhatWasAnnounced() {
    const Opening opening = std::exchange(Announced, {});
    switch (opening.Kind) {
    case OpeningKind::None:
        return;
    case OpeningKind::List:
        if (State.TakesInput(opening.Window) && State.OpenList == WindowHandle::None) {
            State.OpenList = opening.Window;
            State.Report(Change::ListOpened, opening.Window);
        }
        return;
    case OpeningKind::BarMenu:
    case OpeningKind::Shortcut:
        break;
    }
    const MenuBarState* bar = State.ShownBar();
    if (bar == nullptr || bar->Handle != opening.Window || !State.TakesInput(bar->Parent) || State.Menus.IsMenuOpen()) {
        return;
    }
    if (opening.Kind == OpeningKind::BarMenu) {
        State.Menus.BarMenu = OpenBarMenu{bar->Handle, opening.Id};
        State.Report(Change::BarMenuOpened, bar->Handle);
    } else if (CanChoose(bar->Menus, opening.Id)) {
        State.Post({bar->Parent, WM_COMMAND, opening.Id, BN_CLICKED, kFromMenuOrKey, {}}, MessageOrigin::Person);
    }
}

std::optional<Message> ShellQueue::TakePosted() {
    while (const auto posted = State.Posted.Take()) {
        if (IsWanted(State, *posted)) {
            Announced = posted->Opening;
            return posted->Message;
        }
    }
    return std::nullopt;
}

std::optional<Message> ShellQueue::TakePaint() {
    if (State.Minimized) {
        return std::nullopt;
    }
    for (const WindowHandle window : State.Tree.AllParentsFirst()) {
        WindowRecord& record = *State.Tree.Find(window);
        if (!record.Invalid.IsEmpty() && State.Tree.IsVisible(window)) {
            record.Invalid = {};
            Message paint;
            paint.Window = window;
            paint.Number = WM_PAINT;
            return paint;
        }
    }
    return std::nullopt;
}

std::optional<Message> ShellQueue::TakeTimer() {
    const auto due = State.Timers.TakeDue(State.Source.GetMilliseconds(), RunningTimers(State));
    if (!due) {
        return std::nullopt;
    }
    Message timer;
    timer.Window = due->Window;
    timer.Number = WM_TIMER;
    timer.Id = due->Id;
    return timer;
}

} // namespace tavo::shell
