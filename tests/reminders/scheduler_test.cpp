// What becomes of a reminder that was not shown for certain when clock or zone change.
#include "tests/reminders/simulated_world.h"

#include <gtest/gtest.h>

#include <memory>

namespace tavo::reminders::test {
namespace {

constexpr Moment kBegin = 46000 * kDay;
constexpr Moment kTime = kBegin + 2 * kHour; // of the reminder

class SchedulerTest : public testing::Test {
  protected:
    struct Sight {
        CardKind Kind;
        bool Again;
        friend bool operator==(const Sight&, const Sight&) = default;
    };

    SchedulerTest() {
        Calendar.Items[1].Start = kTime;
        Desk.Seen = [this](const CardLine& line, CardKind kind) { Seen.push_back({kind, line.Again}); };
        Service = std::make_unique<Scheduler>(Store, Desk);
        Service->Run(kBegin, Look::Items);
    }

    LedgerState State() { return Store.Ledger.begin()->second.State; }

    // At its time, as soon as the ledger says that it is being shown.
    void KillBeforeTheDesktopIsAsked() {
        const std::optional<Progress> passed = Store.Passed;
        bool stands = false;
        for (int calls = 0; calls < 100 && !stands; ++calls) {
            Store.Ledger.clear();
            Store.Passed = passed;
            Service = std::make_unique<Scheduler>(Store, Desk);
            Ending.DieAfter(calls);
            EXPECT_THROW(Service->Run(kTime, Look::Clock), Killed);
            stands = !Store.Ledger.empty() && State() == LedgerState::Offering;
        }
        ASSERT_TRUE(stands);
        Ending.Live();
        ASSERT_TRUE(Seen.empty());
        Service = std::make_unique<Scheduler>(Store, Desk);
    }

    SimulatedCalendar Calendar;
    Fate Ending;
    SimulatedStore Store{Calendar, Ending};
    SimulatedDesk Desk{Ending};
    std::unique_ptr<Scheduler> Service;
    std::vector<Sight> Seen;
};

TEST_F(SchedulerTest, OneThatAKillLeftOpenComesAgainWhenTheClockIsSetBackThoughItWasDismissedInTheList) {
    KillBeforeTheDesktopIsAsked();
    Service->Run(kTime + kDay, Look::Clock);
    ASSERT_EQ(Seen, (std::vector<Sight>{{CardKind::Missed, true}}));
    Service->Take(Desk.Cards.begin()->first, Answer::Dismiss, 0, kTime + kDay);
    ASSERT_EQ(State(), LedgerState::Dismissed);
    Service->Run(kTime - kHour, Look::Clock); // the clock was a day ahead
    EXPECT_EQ(State(), LedgerState::ToReturn);
    EXPECT_EQ(Seen.size(), 1U);
    EXPECT_EQ(Service->Run(kTime - kHour, Look::Clock), kTime);
    Service->Run(kTime, Look::Clock);
    ASSERT_EQ(Seen.size(), 2U);
    EXPECT_EQ(Seen.back(), (Sight{CardKind::Single, true})); // it may have been shown, and says so
    EXPECT_EQ(State(), LedgerState::Shown);
}

TEST_F(SchedulerTest, OneThatWasShownDoesNotComeAgainWhenTheClockIsSetBack) {
    Service->Run(kTime, Look::Clock);
    ASSERT_EQ(Seen, (std::vector<Sight>{{CardKind::Single, false}}));
    Service->Run(kTime - kHour, Look::Clock);
    Service->Run(kTime, Look::Clock);
    EXPECT_EQ(Seen.size(), 1U);
}

TEST_F(SchedulerTest, OneThatWasOnlyListedComesAtItsTimeWhenTheClockIsSetBack) {
    Service->Run(kTime + kDay, Look::Clock);
    ASSERT_EQ(Seen, (std::vector<Sight>{{CardKind::Missed, false}}));
    Service->Run(kTime - kHour, Look::Clock);
    EXPECT_TRUE(Store.Ledger.empty());
    Service->Run(kTime, Look::Clock);
    ASSERT_EQ(Seen.size(), 2U);
    EXPECT_EQ(Seen.back(), (Sight{CardKind::Single, false}));
}

TEST_F(SchedulerTest, OneThatNobodyTookIsNotForgottenWhenZoneAndClockChange) {
    Desk.Works = false;
    Service->Run(kTime, Look::Clock);
    ASSERT_EQ(State(), LedgerState::Due);
    Calendar.Offset = 9 * kHour; // its time is long over there
    Service->Run(kTime, Look::Clock);
    Service->Run(kTime - kHour, Look::Clock); // before the time at which it was entered
    ASSERT_EQ(Store.Ledger.size(), 1U);
    Desk.Works = true;
    Service->Run(kTime - kHour / 2, Look::Clock);
    EXPECT_EQ(Seen, (std::vector<Sight>{{CardKind::Missed, false}}));
}

TEST_F(SchedulerTest, OneThatWasListedSaysAgainOnANewDesktopThoughTheZoneMovedWestMeanwhile) {
    Service->Run(kTime + kHour, Look::Clock);
    ASSERT_EQ(Seen, (std::vector<Sight>{{CardKind::Missed, false}}));
    Service.reset();
    Calendar.Offset = -2 * kHour; // its time came there while nobody was awake
    Desk.Restart();
    Service = std::make_unique<Scheduler>(Store, Desk);
    Service->Run(kTime + 2 * kDay, Look::Items);
    ASSERT_EQ(Seen.size(), 2U);
    EXPECT_EQ(Seen.back(), (Sight{CardKind::Missed, true}));
}

TEST_F(SchedulerTest, OneThatALockedLedgerCouldNotForgetComesWhenItCan) {
    Service->Run(kTime + kDay, Look::Clock);
    ASSERT_EQ(Seen, (std::vector<Sight>{{CardKind::Missed, false}}));
    Store.Locked = true;
    Service->Run(kTime - kHour, Look::Clock); // the clock was a day ahead
    Service->Run(kTime + kHour, Look::Clock);
    EXPECT_EQ(Seen.size(), 1U); // the ledger still says that it was listed
    Store.Locked = false;
    Service->Run(kTime + kHour + 1, Look::Clock);
    ASSERT_EQ(Seen.size(), 2U);
    EXPECT_EQ(Seen.back(), (Sight{CardKind::Missed, false}));
    EXPECT_EQ(State(), LedgerState::Listed);
}

TEST_F(SchedulerTest, ASnoozedOneThatStoodOnALostDesktopDoesNotWaitForItsSnoozeOnceMore) {
    Service->Run(kTime, Look::Clock);
    Service->Take(Desk.Cards.begin()->first, Answer::Snooze, 60, kTime);
    Service->Run(kTime + kHour, Look::Clock);
    ASSERT_EQ(Seen.size(), 2U);
    Service->Run(kTime + kHour / 4, Look::Clock); // the clock was ahead
    Desk.Restart();
    bool stands = false;
    for (int calls = 0; calls < 100 && !stands; ++calls) {
        Ending.DieAfter(calls);
        try {
            Service->Run(kTime + kHour / 4, Look::Clock);
        } catch (const Killed&) {
            stands = State() == LedgerState::Offering;
        }
        Service = std::make_unique<Scheduler>(Store, Desk);
    }
    ASSERT_TRUE(stands);
    Ending.Live();
    ASSERT_EQ(Seen.size(), 2U);
    Service->Run(kTime + kHour / 4, Look::Items);
    ASSERT_EQ(Seen.size(), 3U);
    EXPECT_TRUE(Seen.back().Again);
}

TEST_F(SchedulerTest, OneThatASlowDesktopIsAskedForIsNeitherShownNorAskedForTwice) {
    Desk.IsSlow = true;
    Service->Run(kTime, Look::Clock);
    EXPECT_TRUE(Seen.empty());
    EXPECT_EQ(State(), LedgerState::Offering);
    EXPECT_TRUE(Service->WaitsForDesk());
    Service->Run(kTime + 1, Look::Items);
    Desk.Answer(*Service, kTime + 2);
    EXPECT_EQ(Seen, (std::vector<Sight>{{CardKind::Single, false}}));
    EXPECT_EQ(State(), LedgerState::Shown);
    EXPECT_FALSE(Service->WaitsForDesk());
    Service->Run(kTime + 3, Look::Clock);
    EXPECT_EQ(Seen.size(), 1U);
}

TEST_F(SchedulerTest, ASlowDesktopHoldsNoOtherReminderUp) {
    Desk.IsSlow = true;
    Calendar.Items[2].Start = kTime + 1;
    EXPECT_EQ(Service->Run(kTime, Look::Items), kTime + 1);
    Service->Run(kTime + 1, Look::Clock);
    Desk.Answer(*Service, kTime + 2); // it was asked for both
    EXPECT_EQ(Seen, (std::vector<Sight>{{CardKind::Single, false}, {CardKind::Single, false}}));
}

TEST_F(SchedulerTest, OneThatASlowDesktopRefusesIsOfferedAgainInAMinute) {
    Desk.IsSlow = true;
    Service->Run(kTime, Look::Clock);
    Desk.Works = false;
    Desk.Answer(*Service, kTime + 1);
    EXPECT_EQ(State(), LedgerState::Due);
    Desk.Works = true;
    Desk.IsSlow = false;
    Service->Run(kTime + kMinute, Look::Clock);
    EXPECT_EQ(Seen, (std::vector<Sight>{{CardKind::Single, false}}));
}

TEST_F(SchedulerTest, OneThatIsTakenAfterNobodyTookItInTimeStays) {
    Desk.IsSlow = true;
    Service->Run(kTime, Look::Clock);
    Desk.RunOutOfTime(*Service, kTime + 1);
    EXPECT_EQ(State(), LedgerState::Due);
    Desk.Answer(*Service, kTime + 2);
    EXPECT_EQ(Desk.Cards.size(), 1U);
    EXPECT_EQ(State(), LedgerState::Shown);
    Service->Run(kTime + 2 * kMinute, Look::Clock);
    EXPECT_EQ(Seen, (std::vector<Sight>{{CardKind::Single, false}})); // and is not offered again
}

TEST_F(SchedulerTest, OneThatIsTakenTooLateAfterItStandsElsewhereIsTakenBack) {
    Desk.IsSlow = true;
    Service->Run(kTime, Look::Clock);
    Desk.RunOutOfTime(*Service, kTime + 1);
    Service->Run(kTime + kMinute + 1, Look::Clock); // asked again
    Desk.Answer(*Service, kTime + kMinute + 2);     // both
    EXPECT_EQ(Desk.Cards.size(), 1U);
    EXPECT_EQ(State(), LedgerState::Listed); // as missed
}

TEST_F(SchedulerTest, OneThatIsTakenTooLateWhoseItemIsGoneIsTakenBack) {
    Desk.IsSlow = true;
    Service->Run(kTime, Look::Clock);
    Desk.RunOutOfTime(*Service, kTime + 1);
    Calendar.Items.erase(1);
    Service->Run(kTime + 2, Look::Items);
    Desk.Answer(*Service, kTime + 3);
    Service->Run(kTime + 3, Look::Clock);
    EXPECT_TRUE(Desk.Cards.empty());
}

TEST_F(SchedulerTest, OneWhoseItemGoesWhileASlowDesktopIsAskedIsTakenBack) {
    Desk.IsSlow = true;
    Service->Run(kTime, Look::Clock);
    Calendar.Items.erase(1);
    Service->Run(kTime + 1, Look::Items);
    Desk.Answer(*Service, kTime + 2);
    Service->Run(kTime + 2, Look::Clock);
    EXPECT_TRUE(Desk.Cards.empty());
    EXPECT_EQ(State(), LedgerState::Withdrawn);
}

TEST_F(SchedulerTest, WhatIsMissedWhileTheListIsAskedForJoinsIt) {
    Desk.IsSlow = true;
    Calendar.Items[2].Start = kTime + kMinute;
    Service->Run(kTime + kMinute + 30, Look::Items); // the second is not missed yet
    Service->Run(kTime + kHour, Look::Clock);
    while (Desk.IsAsked()) {
        Desk.Answer(*Service, kTime + kHour);
        Service->Run(kTime + kHour, Look::Clock);
    }
    EXPECT_LE(Desk.Cards.size(), 2U);
    int lists = 0;
    for (const auto& [number, keys] : Desk.Cards) {
        lists += keys.front().Due == kTime ? 1 : 0;
    }
    EXPECT_EQ(lists, 1);
}

TEST_F(SchedulerTest, AListThatIsAnsweredWhileTheNextOneIsAskedForStaysAnswered) {
    Service->Run(kTime + kHour, Look::Clock);
    ASSERT_EQ(Seen, (std::vector<Sight>{{CardKind::Missed, false}}));
    const std::uint32_t list = Desk.Cards.begin()->first;
    Calendar.Items[2].Start = kTime + 2 * kHour;
    Desk.IsSlow = true;
    Service->Run(kTime + kHour + 1, Look::Items);
    Service->Run(kTime + 3 * kHour, Look::Clock);
    ASSERT_TRUE(Desk.IsAsked());
    Desk.IsSlow = false;
    Service->Take(list, Answer::Dismiss, 0, kTime + 3 * kHour);
    EXPECT_EQ(Desk.Cards.size(), 1U); // closed now, the one that takes its place would go with it
    Desk.Answer(*Service, kTime + 3 * kHour);
    ASSERT_EQ(Desk.Cards.size(), 1U);
    const std::vector<ReminderKey>& keys = Desk.Cards.begin()->second;
    ASSERT_EQ(keys.size(), 1U);
    EXPECT_EQ(keys.front().Item, 2);
    EXPECT_EQ(State(), LedgerState::Dismissed);
}

TEST_F(SchedulerTest, AnAnsweredCardIsTakenBackUnlessItWasClosed) {
    Service->Run(kTime, Look::Clock);
    const std::uint32_t card = Desk.Cards.begin()->first;
    Service->Take(card, Answer::Dismiss, 0, kTime);
    EXPECT_TRUE(Desk.Cards.empty());
    Calendar.Items[2].Start = kTime + kHour;
    Calendar.Items[2].Lead = kHour - kMinute;
    Service->Run(kTime + kMinute, Look::Items);
    ASSERT_EQ(Desk.Cards.size(), 1U);
    Service->Take(Desk.Cards.begin()->first, Answer::Closed, 0, kTime + kMinute);
    EXPECT_EQ(Desk.Cards.size(), 1U); // the desktop has closed it itself
    for (const auto& [key, row] : Store.Ledger) {
        EXPECT_EQ(row.State, LedgerState::Dismissed);
    }
}

TEST_F(SchedulerTest, OpenOfOneShowsIt) {
    Service->Run(kTime, Look::Clock);
    Service->Take(Desk.Cards.begin()->first, Answer::Open, 0, kTime);
    EXPECT_EQ(Desk.Opened, std::vector<std::int32_t>{1});
    EXPECT_EQ(State(), LedgerState::Dismissed);
}

TEST_F(SchedulerTest, OpenOfSeveralOnlyComesForward) {
    Calendar.Items[2].Start = kTime + kHour;
    Service->Run(kTime + 2 * kHour, Look::Items);
    ASSERT_EQ(Seen.size(), 2U);
    ASSERT_EQ(Desk.Cards.size(), 1U);
    Service->Take(Desk.Cards.begin()->first, Answer::Open, 0, kTime + 2 * kHour);
    EXPECT_EQ(Desk.Opened, std::vector<std::int32_t>{0});
    EXPECT_EQ(State(), LedgerState::Dismissed);
}

TEST_F(SchedulerTest, AServiceThatStartsOnALockedLedgerStillReminds) {
    Service.reset();
    Store.Locked = true;
    Service = std::make_unique<Scheduler>(Store, Desk);
    Service->Run(kTime, Look::Items);
    EXPECT_TRUE(Seen.empty()); // the ledger may be free in a moment
    Service->Run(kTime + kMinute / 2, Look::Clock);
    EXPECT_EQ(Seen, (std::vector<Sight>{{CardKind::Single, false}}));
}

TEST_F(SchedulerTest, AListOfAnEarlierProcessSaysAgainThoughTheDesktopTookItOnlyAtTheSecondTry) {
    Service->Run(kTime + kHour, Look::Clock);
    ASSERT_EQ(Seen, (std::vector<Sight>{{CardKind::Missed, false}}));
    const std::uint32_t list = Desk.Cards.begin()->first;
    Service = std::make_unique<Scheduler>(Store, Desk);
    Desk.Cards.erase(list);                    // answered, and killed before that was written
    Calendar.Items[2].Start = kTime + kMinute; // made late, it joins the list
    Calendar.Items[2].Lead = kMinute;
    Desk.Works = false;
    Store.Passed->Passed = kTime - kHour;
    Store.Passed->Wall = kTime - kHour;
    Service->Run(kTime + kHour, Look::Items);
    ASSERT_EQ(Seen.size(), 1U);
    Desk.Works = true;
    Service->Run(kTime + kHour + kMinute, Look::Clock);
    ASSERT_EQ(Seen.size(), 3U);
    EXPECT_NE(Seen[1].Again, Seen[2].Again); // the old one says so, the new one does not
}

TEST_F(SchedulerTest, OneThatNobodyTookWaitsForItsTimeInAZoneFurtherWest) {
    Desk.Works = false;
    Service->Run(kTime, Look::Clock);
    Calendar.Offset = -3 * kHour;
    Desk.Works = true;
    Service->Run(kTime + kMinute, Look::Clock);
    EXPECT_TRUE(Seen.empty());
    Service->Run(kTime + 3 * kHour, Look::Clock);
    EXPECT_EQ(Seen, (std::vector<Sight>{{CardKind::Single, false}}));
}

} // namespace
} // namespace tavo::reminders::test
