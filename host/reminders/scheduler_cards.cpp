// The way of a reminder onto the desk: offered, shown or listed, taken back.
#include "host/reminders/scheduler.h"

#include <algorithm>

namespace tavo::reminders {

namespace {

constexpr Moment kNobodyTookIt = kMinute; // then the desk is asked again

void SortByStart(std::vector<CardLine>& lines) {
    std::stable_sort(lines.begin(), lines.end(), [](const CardLine& left, const CardLine& right) {
        return left.Text.StartWall < right.Text.StartWall;
    });
}

} // namespace

bool Scheduler::CheckStanding(Moment now) {
    std::map<std::uint32_t, std::vector<LedgerRow>> gone; // by card
    for (const auto& [key, row] : Open) {
        std::optional<ReminderText> text;
        if (!row.IsOnDesk()) {
            continue;
        }
        if (!Store.Describe(key, text)) {
            return false;
        }
        if (!text) {
            gone[row.Service == Desk.Service() ? row.Card : 0].push_back(row);
        }
    }
    for (auto& [card, rows] : gone) {
        for (LedgerRow& row : rows) {
            row.State = LedgerState::Withdrawn;
        }
        if (card != 0 && !ShrinkCard(card, rows, now)) {
            return false;
        }
        Record(rows, now);
    }
    return true;
}

bool Scheduler::ShrinkCard(std::uint32_t number, const std::vector<LedgerRow>& gone, Moment now) {
    Card card;
    std::vector<LedgerRow> left;
    for (const auto& [key, row] : Open) {
        const bool goes =
            std::any_of(gone.begin(), gone.end(), [&key = key](const LedgerRow& one) { return one.Key == key; });
        if (goes || !row.IsOnDesk() || row.Card != number) {
            continue;
        }
        std::optional<ReminderText> text;
        if (!Store.Describe(key, text)) {
            return false;
        }
        if (text) {
            card.Lines.push_back({key, *text, Inherited.contains(key)});
            left.push_back(row);
        }
    }
    if (left.empty()) {
        Desk.TakeBack(number);
    } else {
        SortByStart(card.Lines);
        card.Kind = left.front().State == LedgerState::Listed ? CardKind::Missed : CardKind::Many;
        const std::optional<std::uint32_t> taken = Desk.Show(card, number);
        for (LedgerRow& row : left) {
            row.Card = taken.value_or(row.Card);
        }
        Record(left, now);
    }
    if (RingingCard == number && left.empty()) {
        Desk.StopRinging();
    }
    return true;
}

bool Scheduler::Collect(Moment now, Collected& collected) {
    const std::string service = Desk.Service();
    std::vector<LedgerRow> withdrawn;
    for (const auto& [key, row] : Open) {
        const bool owed = row.Waits() && row.OwedAt() <= now;
        const bool lost = row.IsOnDesk() && row.Service != service;
        const bool stays = row.State == LedgerState::Listed && !lost;
        if (!owed && !lost && !stays) {
            continue;
        }
        CardLine line;
        line.Key = key;
        std::optional<ReminderText> text;
        if (!Store.Describe(key, text)) {
            return false;
        }
        if (!text) {
            // One that was not shown yet waits: an undo may bring its item back.
            if (lost) {
                withdrawn.push_back(row);
                withdrawn.back().State = LedgerState::Withdrawn;
            }
            continue;
        }
        line.Text = std::move(*text);
        line.Again = lost || row.State == LedgerState::Offering || (stays && Inherited.contains(key));
        if (stays) {
            collected.Listed.push_back(std::move(line));
        } else if (lost || now - row.OwedAt() > kGrace) {
            collected.Missed.push_back(std::move(line));
            collected.MissedRings = collected.MissedRings || !lost;
        } else {
            collected.Fresh.push_back(std::move(line));
        }
    }
    if (!withdrawn.empty()) {
        Record(withdrawn, now);
    }
    return true;
}

bool Scheduler::Present(Moment now) {
    NextTry.reset();
    Collected collected;
    if (!Collect(now, collected)) {
        return false;
    }
    if (!collected.Missed.empty() && !PresentMissed(collected, now)) {
        return false;
    }
    SortByStart(collected.Fresh);
    if (collected.Fresh.size() > kMostSingleCards) {
        return ShowCard({CardKind::Many, std::move(collected.Fresh)}, 0, true, now);
    }
    for (CardLine& line : collected.Fresh) {
        if (!ShowCard({CardKind::Single, {std::move(line)}}, 0, true, now)) {
            return false;
        }
    }
    return true;
}

// There is one list: what stands in it already stays, and the new one takes the old one's place.
bool Scheduler::PresentMissed(Collected& collected, Moment now) {
    const std::uint32_t replaced = collected.Listed.empty() ? 0 : Open.at(collected.Listed.front().Key).Card;
    Card card{CardKind::Missed, std::move(collected.Missed)};
    card.Lines.insert(card.Lines.end(), collected.Listed.begin(), collected.Listed.end());
    SortByStart(card.Lines);
    return ShowCard(card, replaced, collected.MissedRings, now);
}

bool Scheduler::ShowCard(const Card& card, std::uint32_t replaced, bool rings, Moment now) {
    const bool byItself = card.Kind != CardKind::Missed;
    std::vector<LedgerRow> before;
    std::vector<LedgerRow> rows;
    for (const CardLine& line : card.Lines) {
        before.push_back(Open.at(line.Key));
        rows.push_back(before.back());
        rows.back().State = LedgerState::Offering;
        rows.back().Until = std::min(rows.back().Until, now); // ahead of a clock that was set back: it is owed now
        if (byItself) {
            rows.back().ByItself = std::max(rows.back().ByItself, Showing::Perhaps); // it may be all that is left of us
        }
        rows.back().Title = line.Text.Title;
    }
    if (!Announce(rows, std::nullopt, now)) {
        return false;
    }
    const std::optional<std::uint32_t> taken = Desk.Show(card, replaced);
    if (!taken) {
        Record(before, now); // nobody saw it
        NextTry = now + kNobodyTookIt;
        return true;
    }
    for (LedgerRow& row : rows) {
        row.State = byItself ? LedgerState::Shown : LedgerState::Listed;
        row.ByItself = byItself ? Showing::Surely : row.ByItself;
        row.Card = *taken;
        row.Service = Desk.Service();
    }
    std::for_each(rows.begin(), rows.end(), [this](const LedgerRow& row) { Inherited.erase(row.Key); });
    Record(rows, now);
    // A silent one leaves the ringing to the card before.
    const bool isHeard =
        std::any_of(card.Lines.begin(), card.Lines.end(), [](const CardLine& line) { return line.Text.Rings(); });
    if (rings && isHeard) {
        RingingCard = *taken;
        Desk.Ring(card);
    }
    return true;
}

} // namespace tavo::reminders
