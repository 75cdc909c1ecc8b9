// Dates and times that are typed: what is shown on the way, and what the program is told of it.
#include "tests/conformance/conformance_test.h"

namespace tavo::conformance {

namespace {

class PickerConformance : public ConformanceTest {
  protected:
    PickerConformance() {
        Prepare = [this](ScratchDialog& dialog) {
            dialog.Log.Hook = [this](const Message& message) {
                if (message.Number == WM_NOTIFY && message.Code == DTN_DATETIMECHANGE) {
                    Told.push_back(message.Id);
                }
            };
        };
        OpenDialogOnTap();
        Steps.Do([this] {
            EXPECT_TRUE(Host.Controls().SetSystemtime(DialogItem(kDate), {2026, 12, 0, 5, 0, 0, 0, 0}));
            EXPECT_TRUE(Host.Controls().SetSystemtime(DialogItem(kTime), {2026, 12, 0, 5, 14, 45, 0, 0}));
        });
    }

    // So many pixels right of the control's left edge.
    void TapAt(int control, int right) {
        constexpr int inset = 6; // where others tap it
        Steps.TapScreen({PlaceOf(control).X - inset + right, PlaceOf(control).Y});
    }

    // A tap of the hand on the control's box enters it at its first part.
    void Enter(int control) { TapAt(control, 5); }

    // What the control shows now, and how often the program was told of a change so far.
    void Expect(int control, std::u16string_view text, std::size_t told) {
        Steps.Do([this, control, text = std::u16string(text), told] {
            EXPECT_EQ(Driver->ShownTextOf(DialogItem(control)), text);
            EXPECT_EQ(Told.size(), told);
        });
    }

    void Finish() {
        Steps.Do([&] { End(IDOK); });
        ASSERT_TRUE(Steps.Finish(Pump));
    }

    std::vector<int> Told; // of which controls
};

TEST_F(PickerConformance, ADateIsToldWhenItIsWhole) {
    Enter(kDate);
    Steps.Type(u"1");
    Expect(kDate, u"1/5/2026", 0);
    Steps.Type(u"1");
    Expect(kDate, u"11/5/2026", 0);
    Steps.Type(u"3");
    Expect(kDate, u"11/3/2026", 0);
    Steps.Type(u"0");
    Expect(kDate, u"11/30/2026", 0);
    Steps.Type(u"202");
    Expect(kDate, u"11/30/202", 0);
    Steps.Type(u"7");
    Expect(kDate, u"11/30/2027", 1);
    Steps.Do([&] {
        EXPECT_EQ(Host.Controls().GetSystemtime(DialogItem(kDate)), (SYSTEMTIME{2027, 11, 2, 30, 0, 0, 0, 0}));
    });
    Finish();
    EXPECT_EQ(Told, std::vector<int>{kDate});
}

TEST_F(PickerConformance, AnHourIsToldWithItsHalfOfTheDay) {
    Enter(kTime);
    Steps.Type(u"1");
    Expect(kTime, u"1:45 PM", 0);
    Steps.Type(u"0");
    Expect(kTime, u"10:45 PM", 0);
    Steps.Type(u"a");
    Expect(kTime, u"10:45 AM", 1);
    Finish();
}

TEST_F(PickerConformance, TabTellsWhatWasTypedSoFar) {
    Enter(kTime);
    Steps.Type(u"11");
    Expect(kTime, u"11:45 PM", 0);
    Steps.Key(VK_TAB);
    Expect(kTime, u"11:45 PM", 1);
    Enter(kDate);
    Steps.Type(u"1");
    Steps.Key(VK_TAB);
    Expect(kDate, u"1/5/2026", 2);
    Finish();
}

TEST_F(PickerConformance, EnterTellsWhatWasTypedBeforeTheDialogEnds) {
    Enter(kTime);
    Steps.Type(u"9");
    Expect(kTime, u"9:45 PM", 0);
    Steps.Key(VK_RETURN);
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Results, std::vector<int>{IDOK});
    EXPECT_EQ(Told, std::vector<int>{kTime});
}

TEST_F(PickerConformance, ATapElsewhereTellsWhatWasTypedFirst) {
    std::vector<int> order;
    Steps.Do([&] {
        Dialog->Log.Hook = [&](const Message& message) {
            if (message.Code == DTN_DATETIMECHANGE || (message.Number == WM_COMMAND && message.Id == kPush)) {
                order.push_back(message.Id);
            }
        };
    });
    Enter(kDate);
    Steps.Type(u"3/7");
    TapControl(kPush);
    Finish();
    EXPECT_EQ(order, (std::vector<int>{kDate, kPush}));
}

TEST_F(PickerConformance, ATapOnThePartChoosesWhereToType) {
    TapAt(kDate, 26); // "12/5/2026": the 5
    Steps.Type(u"28");
    Expect(kDate, u"12/28/2026", 0);
    Steps.Key(VK_TAB);
    Expect(kDate, u"12/28/2026", 1);
    TapAt(kTime, 21); // "2:45 PM": the 4
    Steps.Type(u"30");
    Steps.Key(VK_TAB);
    Expect(kTime, u"2:30 PM", 2);
    Finish();
}

TEST_F(PickerConformance, AnotherPartOfTheSamePickerIsNoLeaving) {
    Enter(kTime);
    Steps.Type(u"10");
    TapAt(kTime, 46); // its half
    Expect(kTime, u"10:45 PM", 0);
    Steps.Type(u"a");
    Expect(kTime, u"10:45 AM", 1);
    Finish();
}

TEST_F(PickerConformance, ArrowsWalkAndStepAndAreToldAtOnce) {
    Enter(kDate);
    Steps.Key(VK_RIGHT);
    Steps.Key(VK_UP);
    Expect(kDate, u"12/6/2026", 1);
    Steps.Key(VK_END);
    Steps.Key(VK_DOWN);
    Expect(kDate, u"12/6/2025", 2);
    Steps.Key(VK_HOME);
    Steps.Key(VK_UP);
    Expect(kDate, u"1/6/2025", 3);
    Finish();
}

TEST_F(PickerConformance, BackspaceTakesATypedDigitBack) {
    Enter(kDate);
    Steps.Type(u"1");
    Steps.Key(VK_BACK);
    Expect(kDate, u"12/5/2026", 0);
    Steps.Type(u"8");
    Expect(kDate, u"8/5/2026", 0);
    Finish();
}

TEST_F(PickerConformance, SecondsAreShownAndTypedWhereThePictureHasThem) {
    Steps.Do([this] { Host.Windows().SetWindowTextW(DialogItem(kTime), u"hh':'mm':'ss tt"); });
    Expect(kTime, u"2:45:00 PM", 0);
    Enter(kTime);
    Steps.Type(u"113015");
    Expect(kTime, u"11:30:15 PM", 0);
    Steps.Type(u"a");
    Expect(kTime, u"11:30:15 AM", 1);
    TapAt(kTime, 46); // "11:30:15 AM": the 15
    Steps.Key(VK_UP);
    Expect(kTime, u"11:30:16 AM", 2);
    Steps.Do([this] {
        const SYSTEMTIME time = Host.Controls().GetSystemtime(DialogItem(kTime));
        EXPECT_EQ(time.Hour, 11);
        EXPECT_EQ(time.Minute, 30);
        EXPECT_EQ(time.Second, 16);
        Host.Windows().SetWindowTextW(DialogItem(kTime), u"hh':'mm tt");
    });
    Expect(kTime, u"11:30 AM", 2);
    Finish();
}

TEST_F(PickerConformance, LeavingATimeInTheMiddleLeavesWhatItShows) {
    struct Way {
        const char16_t* Typed;
        const char16_t* Shown;
        const char16_t* Left;
    };

    const Way ways[] = {{u"110", u"1:10 PM", u"1:10 PM"},
                        {u"11:0", u"11:0 PM", u"11:00 PM"},
                        {u"7", u"7:10 PM", u"7:10 PM"},
                        {u"10", u"10:10 PM", u"10:10 PM"}};
    std::size_t told = 0;
    Steps.Do([this] { EXPECT_TRUE(Host.Controls().SetSystemtime(DialogItem(kTime), {2026, 12, 0, 5, 14, 10, 0, 0})); });
    for (const Way& way : ways) {
        Enter(kTime);
        Steps.Type(way.Typed);
        Expect(kTime, way.Shown, told);
        Steps.Key(VK_TAB);
        Expect(kTime, way.Left, ++told);
        Steps.Do([this] {
            EXPECT_TRUE(Host.Controls().SetSystemtime(DialogItem(kTime), {2026, 12, 0, 5, 14, 10, 0, 0}));
        });
    }
    Finish();
}

TEST_F(PickerConformance, WhatTheProgramSetsOvertakesWhatIsBeingTyped) {
    Enter(kDate);
    Steps.Type(u"1");
    Steps.Do([&] { EXPECT_TRUE(Host.Controls().SetSystemtime(DialogItem(kDate), {2030, 6, 0, 7, 0, 0, 0, 0})); });
    Steps.Key(VK_TAB);
    Expect(kDate, u"6/7/2030", 0);
    Finish();
}

} // namespace

} // namespace tavo::conformance
