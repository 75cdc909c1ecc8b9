// The made-up machine at work.
#include "tests/reminders/simulated_world.h"

#include <algorithm>

namespace tavo::reminders::test {

DueReminder SimulatedCalendar::ReminderOf(std::int32_t oid, const SimulatedItem& item, int occurrence) const {
    const std::int64_t start = item.Start + item.Period * occurrence;
    return {{oid, item.Period == 0 ? 0 : start, start - item.Lead}, ToUtc(start) - item.Lead, ToUtc(start)};
}

bool SimulatedCalendar::Stands(const ReminderKey& key) const {
    const auto found = Items.find(key.Item);
    if (found == Items.end()) {
        return false;
    }
    const SimulatedItem& item = found->second;
    for (int index = 0; index < item.Occurrences; ++index) {
        if (ReminderOf(key.Item, item, index).Key == key) {
            return true;
        }
    }
    return false;
}

bool SimulatedStore::ReadProgress(std::optional<Progress>& progress) {
    Ending.Step();
    progress = Passed;
    return true;
}

bool SimulatedStore::ReadOpen(std::vector<LedgerRow>& rows) {
    Ending.Step();
    for (const auto& [key, row] : Ledger) {
        if (!IsFinal(row.State)) {
            rows.push_back(row);
        }
    }
    return true;
}

void SimulatedStore::AddIfNew(DueReminder reminder, std::vector<DueReminder>& found) const {
    const auto row = Ledger.find(reminder.Key);
    reminder.Again = row != Ledger.end() && row->second.State == LedgerState::ToReturn;
    if (row == Ledger.end() || reminder.Again) {
        found.push_back(reminder);
    }
}

bool SimulatedStore::FindDue(Moment after, Moment upTo, std::vector<DueReminder>& found) {
    Ending.Step();
    Calendar.VisitAll([&](const DueReminder& reminder) {
        if (reminder.At > after && reminder.At <= upTo) {
            AddIfNew(reminder, found);
        }
    });
    return true;
}

bool SimulatedStore::FindAhead(Moment now, std::vector<DueReminder>& found) {
    Ending.Step();
    Calendar.VisitAll([&](const DueReminder& reminder) {
        if (reminder.At <= now && reminder.Start > now) {
            AddIfNew(reminder, found);
        }
    });
    return true;
}

bool SimulatedStore::FindTime(const ReminderKey& key, std::optional<Moment>& due) {
    Ending.Step();
    due = Calendar.Items.contains(key.Item) ? std::optional(Calendar.ToUtc(key.Due)) : std::nullopt;
    return true;
}

bool SimulatedStore::FindNext(Moment after, std::optional<Moment>& next) {
    Ending.Step();
    Calendar.VisitAll([&](const DueReminder& reminder) {
        if (reminder.At > after && (!next || reminder.At < *next)) {
            next = reminder.At;
        }
    });
    return true;
}

bool SimulatedStore::Describe(const ReminderKey& key, std::optional<ReminderText>& text) {
    Ending.Step();
    text.reset();
    if (Calendar.Stands(key)) {
        text.emplace();
        text->StartWall = key.Original != 0 ? key.Original : key.Due;
    }
    return true;
}

bool SimulatedStore::Commit(std::span<const LedgerRow> rows, std::optional<Moment> passed) {
    Ending.Step();
    if (Locked) {
        return false;
    }
    for (const LedgerRow& row : rows) {
        Ledger[row.Key] = row;
    }
    if (passed) {
        Passed = Progress{*passed, ToWall(*passed)};
    }
    Ending.Step();
    return true;
}

bool SimulatedStore::GoBack(const Retreat& retreat) {
    const Moment now = retreat.Now;
    Ending.Step();
    if (Locked) {
        return false;
    }
    for (auto entry = Ledger.begin(); entry != Ledger.end();) {
        LedgerRow& row = entry->second;
        const bool isGone = !Calendar.Items.contains(row.Key.Item);
        const bool isAhead = row.Key.Due > ToWall(now) || (isGone && row.At > now);
        const bool isSettled = row.State != LedgerState::Due && row.State != LedgerState::Offering;
        if (isAhead && isSettled && row.ByItself == Showing::Never) {
            entry = Ledger.erase(entry);
            continue;
        }
        if (isAhead && isSettled && row.ByItself == Showing::Perhaps) {
            row.State = LedgerState::ToReturn;
        }
        ++entry;
    }
    Passed = Progress{retreat.Passed, ToWall(retreat.Passed)};
    Ending.Step();
    return true;
}

bool SimulatedStore::Purge(Moment now) {
    Ending.Step();
    if (Locked) {
        return false;
    }
    constexpr Moment kept = 90 * kDay;
    std::erase_if(Ledger, [now = std::min(now, Passed ? Passed->Passed : now)](const auto& entry) {
        const LedgerRow& row = entry.second;
        return (IsFinal(row.State) || row.State == LedgerState::Shown || row.State == LedgerState::Listed) &&
               std::max({row.At, row.Start, row.Until}) < now - kept;
    });
    Ending.Step();
    return true;
}

Placement SimulatedDesk::Show(const Card& card, std::uint32_t replaced) {
    if (!IsSlow && Questions.empty()) { // a bus keeps the order
        return {Place(card, replaced)};
    }
    Ending.Step();
    Questions.push_back({++LastQuestion, card, replaced, Generation});
    return {std::nullopt, LastQuestion};
}

void SimulatedDesk::Answer(Scheduler& service, Moment now) {
    while (!Questions.empty()) {
        const Question question = std::move(Questions.front());
        Questions.erase(Questions.begin());
        const bool isGone = question.Generation != Generation;
        static_cast<void>(service.TakePlacement(question.Number,
                                                isGone ? std::nullopt : Place(question.Asked, question.Replaced), now));
    }
}

void SimulatedDesk::RunOutOfTime(Scheduler& service, Moment now) {
    for (const Question& question : Questions) {
        static_cast<void>(service.TakePlacement(question.Number, std::nullopt, now));
    }
}

std::optional<PlacedCard> SimulatedDesk::Place(const Card& card, std::uint32_t replaced) {
    Ending.Step();
    if (!Works) {
        return std::nullopt;
    }
    const std::vector<ReminderKey> before = Cards[replaced];
    Cards.erase(replaced);
    const std::uint32_t number = replaced != 0 ? replaced : ++LastCard;
    std::vector<ReminderKey>& keys = Cards[number];
    for (const CardLine& line : card.Lines) {
        keys.push_back(line.Key);
        if (std::find(before.begin(), before.end(), line.Key) == before.end()) {
            Seen(line, card.Kind);
        }
    }
    Ending.Step();
    return PlacedCard{number, Name()};
}

void SimulatedDesk::TakeBack(std::uint32_t card) {
    Ending.Step();
    Cards.erase(card);
    Ending.Step();
}

bool SimulatedDesk::Holds(const ReminderKey& key) const {
    return std::any_of(Cards.begin(), Cards.end(), [&key](const auto& card) {
        return std::find(card.second.begin(), card.second.end(), key) != card.second.end();
    });
}

void SimulatedDesk::Restart() {
    Cards.clear();
    ++Generation;
}

} // namespace tavo::reminders::test
