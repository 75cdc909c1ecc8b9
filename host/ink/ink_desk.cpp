// From handles to controls.
#include "host/ink/ink_desk.h"

#include <chrono>
#include <utility>

namespace tavo::ink {
namespace {

std::int64_t MillisecondsOf(const SYSTEMTIME& time) {
    using namespace std::chrono;
    const year_month_day date{year(time.Year), month(time.Month), day(time.Day)};
    const auto moment = sys_days(date) + hours(time.Hour) + minutes(time.Minute) + seconds(time.Second) +
                        milliseconds(time.Milliseconds);
    return duration_cast<milliseconds>(moment.time_since_epoch()).count();
}

} // namespace

void InkDesk::SetClock(IClock& clock) {
    Clock = &clock;
    Common.Now = [&clock] { return MillisecondsOf(clock.GetLocalTime()); };
}

InkDesk::Entry& InkDesk::FindEntry(WindowHandle ink) {
    Entry& entry = Entries[ink];
    if (!entry.Control) {
        entry.Control = std::make_unique<InkControl>(Common);
        entry.Control->SetWatch([this, ink] {
            if (Watch) {
                Watch(ink);
            }
        });
    }
    if (const shell::WindowRecord* record = State.Tree.Find(ink); record != nullptr) {
        entry.Control->Resize({record->Bounds.Width(), record->Bounds.Height()});
    }
    return entry;
}

int InkDesk::SendMessageW(WindowHandle ink, MessageNumber number, int first, int second) {
    Entry& entry = FindEntry(ink);
    if (number == kInkShowRecorderBar) {
        MakeRoomForBar(ink, entry, first != 0);
    }
    return entry.Control->SendMessageW(number, first, second);
}

// The bar lies below the paper where the window leaves room for it there, else in the control's last rows.
void InkDesk::MakeRoomForBar(WindowHandle ink, Entry& entry, bool shown) {
    shell::WindowRecord* record = State.Tree.Find(ink);
    if (record == nullptr || shown == entry.Control->RecorderBar().has_value()) {
        return;
    }
    Rect place = record->Bounds;
    if (!shown) {
        const Rect grown = std::exchange(entry.WithBar, {});
        if (!(place == grown)) {
            return; // it was placed anew since
        }
        place.Bottom -= kRecorderBarHeight;
    } else {
        place.Bottom += kRecorderBarHeight;
        if (place.Bottom > State.Tree.ClientSize(record->Parent).Height) {
            return;
        }
        entry.WithBar = place;
    }
    record->Bounds = place;
    entry.Control->Resize({place.Width(), place.Height()});
    State.Report(shell::Change::Bounds, ink);
    State.Invalidate(record->Parent);
}

std::vector<std::uint8_t> InkDesk::GetData(WindowHandle ink) {
    return Find(ink).GetData();
}

bool InkDesk::SetData(WindowHandle ink, std::span<const std::uint8_t> data) {
    return Find(ink).SetData(data);
}

std::vector<RecoveredInk> InkDesk::FindRecovered() {
    return Recovery.has_value() ? Recovery->Find() : std::vector<RecoveredInk>();
}

void InkDesk::SetHome(WindowHandle ink, std::span<const std::uint8_t> home) {
    FindEntry(ink).Home.assign(home.begin(), home.end());
}

std::u16string InkDesk::HoldInk(std::span<const std::uint8_t> home, std::span<const std::uint8_t> data) {
    if (!Recovery.has_value() || Clock == nullptr) {
        return {};
    }
    auto file = Recovery->Begin(Clock->GetLocalTime(), {home.begin(), home.end()});
    if (!file->WriteWhole(data)) {
        return {};
    }
    file->Leave();
    const std::string ownName = file->Name();
    std::u16string name(ownName.begin(), ownName.end());
    Held[name] = std::move(file);
    return name;
}

void InkDesk::EndRecovered(std::u16string_view name, RecoveredInkEnd end) {
    if (const auto held = Held.find(name); held != Held.end()) {
        Held.erase(held); // nobody else takes it up meanwhile
    }
    if (Recovery.has_value()) {
        Recovery->End(name, end);
    }
}

void InkDesk::Save(Entry& entry) {
    if (!Recovery.has_value() || Clock == nullptr || entry.Control->Revision() == 0) {
        return;
    }
    if (!entry.Saved) {
        entry.Saved = Recovery->Begin(Clock->GetLocalTime(), entry.Home);
    }
    // Where nothing can be written there is nothing to be done: the ink itself is still there.
    static_cast<void>(entry.Saved->Write(*entry.Control));
}

void InkDesk::SaveRecovery() {
    for (auto& [handle, entry] : Entries) {
        Save(entry);
    }
}

void InkDesk::LeaveForRecovery(WindowHandle ink) {
    Entry& entry = FindEntry(ink);
    Save(entry);
    if (entry.Saved) {
        entry.Saved->Leave();
    }
}

void InkDesk::NoteShown() {
    for (const auto& [handle, entry] : Entries) {
        if (State.Tree.IsVisible(handle)) {
            entry.Control->NoteShown();
        }
    }
}

} // namespace tavo::ink
