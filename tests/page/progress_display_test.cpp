// Long work: when its display comes up, what it shows, how it goes on, and how it is cancelled.
#include "page/progress_dlg.h"

#include "framework/format.h"
#include "host/headless/device.h"
#include "res/resource_ids.h"
#include "tests/framework/plain_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace tavo {

namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;

// Counts up to its total, and down again when it is taken back.
class Counting final : public ILongWork {
  public:
    explicit Counting(headless::HeadlessHost& host) : Host(host) {}

    bool DoNext() override {
        if (Count == Things) {
            return false;
        }
        ++Count;
        Host.Time.Clock.Advance(milliseconds(Cost));
        return true;
    }

    bool TakeBackNext() override {
        if (Count == 0) {
            return false;
        }
        --Count;
        ++TakenBack;
        Host.Time.Clock.Advance(milliseconds(Cost));
        return true;
    }

    void Abandon() override { IsAbandoned = true; }

    int Total() const override { return Whole.value_or(Things); }

    int Done() const override { return Count; }

    std::u16string DescribeProgress() const override { return FormatText(u"%d of %d", Count, Things); }

    int Things = 0;
    int Cost = 0;             // milliseconds for each of them
    std::optional<int> Whole; // where the total is not the number of things
    int Count = 0;
    int TakenBack = 0;
    bool IsAbandoned = false;

  private:
    headless::HeadlessHost& Host;
};

// Over a bare window, which drives the work as the main view does.
class ProgressDisplay : public testing::Test {
  protected:
    ProgressDisplay() {
        EXPECT_TRUE(View.Make());
        State.MainView = View.Handle();
        View.Hook = [this](const Message& message) {
            if (message.Number == WM_TIMER && message.Id == kTimerWork) {
                ++Ticks;
                if (State.Work != nullptr) {
                    State.Work->DoSlice();
                }
            }
        };
    }

    // Things that cost so many milliseconds each.
    void Given(int things, int cost = 0) {
        Work.Things = things;
        Work.Cost = cost;
    }

    // Lets the script so far run while the work is done. False when the script ended before the work did.
    bool Run() {
        RunLongWork(Pump, State, Work, u"Counting");
        return !Pump.HasQuit();
    }

    // How far it is at this point of the script, as shown.
    void Note() {
        Device.Do([this] {
            std::u16string text = u"(nothing)";
            if (Device.See.IsDialogOpen()) {
                text = Device.See.Items().at(0).Name;
                EXPECT_EQ(Device.See.Items().size(), 1U);
                EXPECT_TRUE(Device.See.ShowsText(text));
            }
            Shown.push_back(text);
        });
    }

    // What is drawn when the display comes up.
    std::string DrawnAtFirst() {
        std::string drawn;
        Device.Do([&] { drawn = ToText(Device.See.LastFrame()->Calls); });
        Device.AdvanceClock(100);
        EXPECT_TRUE(Run());
        return drawn;
    }

    headless::Device Device;
    CMessagePump Pump{Device.Host()};
    CProgramState State{Pump};
    test::PlainWindow View{Pump};
    Counting Work{Device.Host()};
    std::vector<std::u16string> Shown;
    int Ticks = 0; // of the work's timer
};

TEST_F(ProgressDisplay, DoesNotComeUpForWorkThatIsSoonDone) {
    Given(1999);
    EXPECT_TRUE(Run());
    EXPECT_EQ(Work.Count, 1999);
    EXPECT_FALSE(Work.IsAbandoned);
    EXPECT_EQ(Work.TakenBack, 0);
}

TEST_F(ProgressDisplay, DoesNotComeUpForFewThingsThatTakeLessThanHalfASecond) {
    Given(499, 1);
    EXPECT_TRUE(Run());
    EXPECT_EQ(Work.Count, 499);
}

TEST_F(ProgressDisplay, ComesUpAfterTwoThousandThingsAndGoesOnByFiveHundredInAMillisecond) {
    Given(3200);
    for (int time = 0; time < 4; ++time) {
        Note();
        Device.AdvanceClock(1);
    }
    EXPECT_TRUE(Run());
    EXPECT_THAT(Shown, ElementsAre(u"2000 of 3200", u"2500 of 3200", u"3000 of 3200"));
    EXPECT_EQ(Work.Count, 3200);
    EXPECT_EQ(Work.TakenBack, 0);
    EXPECT_FALSE(Work.IsAbandoned);
}

TEST_F(ProgressDisplay, ComesUpAfterHalfASecond) {
    Given(503, 1);
    Note();
    Device.AdvanceClock(1);
    EXPECT_TRUE(Run());
    EXPECT_THAT(Shown, ElementsAre(u"500 of 503"));
    EXPECT_EQ(Work.Count, 503);
}

TEST_F(ProgressDisplay, ASliceOfSlowWorkTakesNoMoreThanTwentyMilliseconds) {
    Given(54, 10);
    for (int time = 0; time < 4; ++time) {
        Note();
        Device.AdvanceClock(1);
    }
    EXPECT_TRUE(Run());
    EXPECT_THAT(Shown, ElementsAre(u"50 of 54", u"52 of 54", u"54 of 54"));
}

TEST_F(ProgressDisplay, HasTheCaptionOfTheWorkAndACancelButton) {
    Given(2100);
    Device.Do([this] {
        EXPECT_EQ(Device.See.Caption(), u"Counting");
        EXPECT_EQ(Device.See.TextOf(IDCANCEL), u"Cancel");
    });
    Device.AdvanceClock(1);
    EXPECT_TRUE(Run());
}

TEST_F(ProgressDisplay, SaysHowFarItIsAboveABlueBarInABlackFrame) {
    Given(3000);
    EXPECT_EQ(DrawnAtFirst(), "fill 0,0,240,268 #FFFFFF\n"
                              "text 20,60,220,80 #000000 format 2084 [Arial -13 400] \"2000 of 3000\"\n"
                              "fill 20,84,220,100 #000000\n"
                              "fill 21,85,219,99 #FFFFFF\n"
                              "fill 21,85,153,99 #0060BF\n"); // two thirds of it
}

TEST_F(ProgressDisplay, DeclaresWhatItSaysWhereItIsWritten) {
    Given(3000);
    Device.Do([this] {
        EXPECT_THAT(Device.See.Items(),
                    ElementsAre(PaintedItem{{20, 60, 220, 80}, PaintedRole::Text, u"2000 of 3000"}));
    });
    Device.AdvanceClock(10);
    EXPECT_TRUE(Run());
}

TEST_F(ProgressDisplay, HasNoBarWhereThereIsNothingToMeasureBy) {
    Given(2100);
    Work.Whole = 0;
    EXPECT_EQ(DrawnAtFirst(), "fill 0,0,240,268 #FFFFFF\n"
                              "text 20,60,220,80 #000000 format 2084 [Arial -13 400] \"2000 of 2100\"\n"
                              "fill 20,84,220,100 #000000\n"
                              "fill 21,85,219,99 #FFFFFF\n");
}

TEST_F(ProgressDisplay, TheBarOfASingleSlowThingIsEmptyAtFirst) {
    Work.Whole = 1;
    Given(2100);
    Work.Count = -2000; // preparing
    EXPECT_EQ(DrawnAtFirst(), "fill 0,0,240,268 #FFFFFF\n"
                              "text 20,60,220,80 #000000 format 2084 [Arial -13 400] \"0 of 2100\"\n"
                              "fill 20,84,220,100 #000000\n"
                              "fill 21,85,219,99 #FFFFFF\n"
                              "fill 21,85,21,99 #0060BF\n");
}

TEST_F(ProgressDisplay, IsGoneWhenTheLastThingIsDone) {
    Given(2100);
    Device.AdvanceClock(1);
    EXPECT_TRUE(Run());
    EXPECT_FALSE(Device.See.IsDialogOpen());
    EXPECT_EQ(State.Work, nullptr);
}

TEST_F(ProgressDisplay, LeavesNoTimerBehind) {
    Given(2100);
    Device.AdvanceClock(1);
    EXPECT_TRUE(Run());
    const int ticks = Ticks;
    Device.AdvanceClock(50);
    EXPECT_TRUE(Device.Finish(Pump));
    EXPECT_EQ(ticks, 1);
    EXPECT_EQ(Ticks, ticks);
}

TEST_F(ProgressDisplay, CancelTakesBackWhatWasDone) {
    Given(3000);
    Device.AdvanceClock(1); // 2,500 are done
    Device.TapControl(IDCANCEL);
    Note(); // 2,000 of them are back already
    Device.AdvanceClock(2);
    EXPECT_TRUE(Run());
    EXPECT_THAT(Shown, ElementsAre(u"500 of 3000"));
    EXPECT_EQ(Work.TakenBack, 2500);
    EXPECT_EQ(Work.Count, 0);
    EXPECT_FALSE(Work.IsAbandoned);
}

TEST_F(ProgressDisplay, AQuickWayBackIsNotShown) {
    Given(503, 1);
    Device.Do([this] { Work.Cost = 0; });
    Device.TapControl(IDCANCEL);
    EXPECT_TRUE(Run());
    EXPECT_EQ(Work.TakenBack, 500);
    EXPECT_FALSE(Work.IsAbandoned);
}

TEST_F(ProgressDisplay, CancellingTheWayBackGoesBackInOneGo) {
    Given(4000);
    Device.AdvanceClock(1);
    Device.TapControl(IDCANCEL);
    Device.TapControl(IDCANCEL);
    EXPECT_TRUE(Run());
    EXPECT_TRUE(Work.IsAbandoned);
    EXPECT_EQ(Work.TakenBack, 2000);
}

TEST_F(ProgressDisplay, EnterDoesNotEndIt) {
    Given(3000);
    Device.Key(VK_RETURN);
    Note();
    Device.AdvanceClock(10);
    EXPECT_TRUE(Run());
    EXPECT_THAT(Shown, ElementsAre(u"2000 of 3000"));
    EXPECT_EQ(Work.Count, 3000);
}

} // namespace

} // namespace tavo
