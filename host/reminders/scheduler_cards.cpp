// The way of a reminder onto the desk: offered, shown or listed, taken back.
#include "host/reminders/scheduler.h"

#include <algorithm>

namespace tavo::reminders {

namespace {

constexpr Moment kNobodyTookIt = kMinute;    // then the desk is asked again
constexpr Moment kLateAnswer = 10 * kMinute; // after that nobody takes it any more

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
            gone[Desk.Holds(row.Service) ? row.Card : 0].push_back(row);
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
    if (IsGivenAway(number)) {
        return true; // it is drawn anew when the one that takes its place stands
    }
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
        Ask({std::move(card), std::move(left), number, false, number}, now);
        return true;
    }
    if (RingingCard == number) {
        Desk.StopRinging();
    }
    return true;
}

bool Scheduler::Collect(Moment now, Collected& collected) {
    std::vector<LedgerRow> withdrawn;
    for (const auto& [key, row] : Open) {
        if (IsAsked(key)) {
            continue;
        }
        const bool owed = row.Waits() && row.OwedAt() <= now;
        const bool lost = row.IsOnDesk() && !Desk.Holds(row.Service);
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
    // There is one list: what was missed since the desk was asked for it joins it when that is known.
    if (!collected.Missed.empty() && !IsListAsked() && !PresentMissed(collected, now)) {
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

bool Scheduler::ShowCard(Card card, std::uint32_t replaced, bool rings, Moment now) {
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
    Ask({std::move(card), std::move(before), replaced, rings, 0}, now);
    return true;
}

void Scheduler::Ask(Question question, Moment now) {
    const Placement placement = Desk.Show(question.Asked, question.Replaced);
    if (placement.Question == 0) {
        Settle(question, placement.Card, now);
        return;
    }
    for (const LedgerRow& row : question.Before) {
        if (question.Redrawn == 0) {
            AskedKeys.insert(row.Key);
        }
    }
    Questions.insert_or_assign(placement.Question, std::move(question));
}

bool Scheduler::IsListAsked() const {
    return std::any_of(Questions.begin(), Questions.end(), [](const auto& entry) {
        return entry.second.Asked.Kind == CardKind::Missed && entry.second.Redrawn == 0;
    });
}

// Another one is to take its place, with its number: it may not be closed any more.
bool Scheduler::IsGivenAway(std::uint32_t card) const {
    return std::any_of(Questions.begin(), Questions.end(), [card](const auto& entry) {
        return entry.second.Replaced == card && entry.second.Redrawn == 0;
    });
}

std::optional<Moment> Scheduler::TakePlacement(std::uint32_t question, const std::optional<PlacedCard>& placed,
                                               Moment now) {
    const auto asked = Questions.find(question);
    if (asked == Questions.end()) {
        return TakeLatePlacement(question, placed, now);
    }
    Question known = std::move(asked->second);
    Questions.erase(asked);
    for (const LedgerRow& row : known.Before) {
        if (known.Redrawn == 0) {
            AskedKeys.erase(row.Key);
        }
    }
    Settle(known, placed, now);
    if (!placed) {
        std::erase_if(Returned, [now](const auto& entry) { return now - entry.second.ReturnedAt > kLateAnswer; });
        known.ReturnedAt = now;
        Returned.insert_or_assign(question, std::move(known));
    }
    if (Questions.empty()) {
        LooksAtItems = LooksAtItems || ItemsChangedMeanwhile;
        ItemsChangedMeanwhile = false;
    }
    return placed ? std::optional(now) : NextTry;
}

// A slow desk has it after all: what still waits to be seen stands there now. Taken back instead, it would be shown for
// a moment every time it is offered.
std::optional<Moment> Scheduler::TakeLatePlacement(std::uint32_t question, const std::optional<PlacedCard>& placed,
                                                   Moment now) {
    auto late = Returned.extract(question);
    if (!placed) {
        return std::nullopt;
    }
    if (late.empty()) {
        Desk.TakeBack(placed->Number); // of a store that was left
        return std::nullopt;
    }
    const Question& known = late.mapped();
    std::vector<LedgerRow> rows;
    for (const LedgerRow& before : known.Before) {
        const auto open = Open.find(before.Key);
        const bool isAsBefore =
            open != Open.end() && open->second.State == before.State && open->second.Until == before.Until;
        if (known.Redrawn == 0 && isAsBefore && !IsAsked(before.Key)) {
            rows.push_back(open->second);
            rows.back().State = LedgerState::Offering;
        }
    }
    if (known.Redrawn == 0 && rows.empty()) {
        Desk.TakeBack(placed->Number); // shown elsewhere or withdrawn meanwhile
        return std::nullopt;
    }
    Record(rows, now);
    Settle(known, placed, now);
    LooksAtItems = true; // its item may be another one by now
    return now;
}

// Nobody saw it. What has happened to its rows meanwhile stays.
void Scheduler::ReturnOffer(const Question& question, Moment now) {
    std::vector<LedgerRow> rows;
    for (const LedgerRow& before : question.Before) {
        const auto open = Open.find(before.Key);
        if (open != Open.end() && open->second.State == LedgerState::Offering) {
            rows.push_back(open->second);
            rows.back().State = before.State;
            rows.back().ByItself = before.ByItself;
            rows.back().Until = before.Until;
        }
    }
    Record(rows, now);
    NextTry = now + kNobodyTookIt;
}

// A card that cannot be redrawn now keeps a line too many.
void Scheduler::TakeRedrawing(const Question& question, const std::optional<PlacedCard>& placed, Moment now) {
    if (!placed || TakeMove(question.Redrawn, *placed, now)) {
        return;
    }
    const bool joinsAnother = std::any_of(question.Before.begin(), question.Before.end(),
                                          [this](const LedgerRow& row) { return IsAsked(row.Key); });
    if (!joinsAnother) {
        Desk.TakeBack(placed->Number); // answered meanwhile
    }
}

void Scheduler::Settle(const Question& question, const std::optional<PlacedCard>& placed, Moment now) {
    if (question.Redrawn != 0) {
        TakeRedrawing(question, placed, now);
        return;
    }
    if (!placed) {
        ReturnOffer(question, now);
        return;
    }
    const bool byItself = question.Asked.Kind != CardKind::Missed;
    std::vector<LedgerRow> rows;
    std::vector<LedgerRow> answered; // on the card that this one stands in for
    for (const LedgerRow& before : question.Before) {
        const auto open = Open.find(before.Key);
        if (open == Open.end() || open->second.State != LedgerState::Offering) {
            answered.push_back(before);
            continue;
        }
        rows.push_back(open->second);
        LedgerRow& row = rows.back();
        row.State = byItself ? LedgerState::Shown : LedgerState::Listed;
        row.ByItself = byItself ? Showing::Surely : row.ByItself;
        row.Card = placed->Number;
        row.Service = placed->Service;
        Inherited.erase(row.Key);
    }
    Record(rows, now);
    if (!answered.empty()) {
        // A card that cannot be redrawn now keeps a line too many.
        static_cast<void>(ShrinkCard(placed->Number, answered, now));
    }
    // A silent one leaves the ringing to the card before.
    const std::vector<CardLine>& lines = question.Asked.Lines;
    const bool isHeard =
        std::any_of(lines.begin(), lines.end(), [](const CardLine& line) { return line.Text.Rings(); });
    if (question.Rings && isHeard && !rows.empty()) {
        RingingCard = placed->Number;
        Desk.Ring(question.Asked);
    }
}

bool Scheduler::TakeMove(std::uint32_t card, const PlacedCard& placed, Moment now) {
    std::vector<LedgerRow> rows;
    for (const auto& [key, row] : Open) {
        if (row.IsOnDesk() && row.Card == card && Desk.Holds(row.Service)) {
            rows.push_back(row);
            rows.back().Card = placed.Number;
            rows.back().Service = placed.Service;
        }
    }
    if (!rows.empty()) {
        RingingCard = RingingCard == card ? placed.Number : RingingCard;
        Record(rows, now);
    }
    return !rows.empty();
}

} // namespace tavo::reminders
