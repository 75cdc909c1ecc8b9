// The recurrence wizard's frame: paging, its buttons, its keys and its ends.
#include "tests/edit/wizard_desk.h"
#include "tests/support/host_probe.h"

#include <gtest/gtest.h>

namespace tavo::test {
namespace {

class Wizard : public testing::Test {
  protected:
    // Cancels at the end of the script.
    void ExpectCancelled(int pages = 2) {
        Desk.TapButton(IDCANCEL);
        EXPECT_EQ(Desk.RunWizard(pages), IDCANCEL);
    }

    Rect ScreenBounds(WindowHandle window) { return Desk.Device.Host().State.Tree.ScreenBounds(window); }

    bool IsEnabled(int button) { return Desk.Device.Host().State.Tree.IsEnabled(Desk.Button(button)); }

    void LookForPattern(std::u16string_view next, bool back) {
        Desk.Check([this, next, back] {
            EXPECT_TRUE(Desk.IsShown(Desk.PatternWindow()));
            EXPECT_FALSE(Desk.IsShown(Desk.RangeWindow()));
            EXPECT_EQ(Desk.Text(Desk.Button(kWizardNext)), next);
            EXPECT_EQ(IsEnabled(kWizardBack), back);
        });
    }

    void LookForRange() {
        Desk.Check([this] {
            EXPECT_FALSE(Desk.IsShown(Desk.PatternWindow()));
            EXPECT_TRUE(Desk.IsShown(Desk.RangeWindow()));
            EXPECT_EQ(Desk.Text(Desk.Button(kWizardNext)), u"Done");
            EXPECT_TRUE(IsEnabled(kWizardBack));
        });
    }

    // A rule on none of the seven days, as another program may have left it.
    void GivenNoDay() { Desk.Rule(kRecursWeekly, 1, 128); }

    WizardDesk Desk;
};

TEST_F(Wizard, OpensOnItsFirstPageWithBackDisabled) {
    Desk.Check([this] {
        EXPECT_EQ(Desk.Device.See.Caption(), u"Recurrence");
        EXPECT_EQ(Desk.Text(Desk.Button(IDCANCEL)), u"Cancel");
        EXPECT_EQ(Desk.Text(Desk.Button(kWizardBack)), u"Back");
        EXPECT_TRUE(IsEnabled(IDCANCEL));
        EXPECT_TRUE(IsEnabled(kWizardNext));
    });
    LookForPattern(u"Next", false);
    ExpectCancelled();
}

TEST_F(Wizard, ButtonsStandInARowUnderThePages) {
    Desk.Check([this] {
        const int top = kClientArea.Top + 150;
        EXPECT_EQ(ScreenBounds(Desk.Button(IDCANCEL)), Rect::FromSize(10, top, 70, 24));
        EXPECT_EQ(ScreenBounds(Desk.Button(kWizardBack)), Rect::FromSize(85, top, 70, 24));
        EXPECT_EQ(ScreenBounds(Desk.Button(kWizardNext)), Rect::FromSize(160, top, 70, 24));
        EXPECT_EQ(ScreenBounds(Desk.PatternWindow()), Rect::FromSize(0, kClientArea.Top, 240, 150));
        EXPECT_EQ(ScreenBounds(Desk.RangeWindow()), Rect::FromSize(0, kClientArea.Top, 240, 150));
    });
    ExpectCancelled();
}

TEST_F(Wizard, NextShowsTheRangePageAndReadsDone) {
    Desk.TapButton(kWizardNext);
    LookForRange();
    ExpectCancelled();
}

TEST_F(Wizard, BackFromTheRangePageReadsNextAgain) {
    Desk.TapButton(kWizardNext);
    Desk.TapButton(kWizardBack);
    LookForPattern(u"Next", false);
    Desk.TapButton(kWizardNext);
    LookForRange();
    ExpectCancelled();
}

TEST_F(Wizard, BackOnTheFirstPageDoesNothing) {
    Desk.TapButton(kWizardBack);
    LookForPattern(u"Next", false);
    ExpectCancelled();
}

TEST_F(Wizard, InputStaysWhileThePagesChange) {
    Desk.TypeOnPattern(kPatternWeekInterval, u"3");
    Desk.TapButton(kWizardNext);
    Desk.TapRange(kRangeEndsAfter);
    Desk.TapButton(kWizardBack);
    Desk.Check([this] { EXPECT_EQ(Desk.Text(Desk.OnPattern(kPatternWeekInterval)), u"3"); });
    Desk.TapButton(kWizardNext);
    Desk.Check([this] { EXPECT_TRUE(Desk.IsOn(Desk.OnRange(kRangeEndsAfter))); });
    ExpectCancelled();
}

TEST_F(Wizard, DoneWritesBothPagesAndEndsWithOk) {
    Desk.TypeOnPattern(kPatternWeekInterval, u"3");
    Desk.TapButton(kWizardNext);
    Desk.TapRange(kRangeEndsAfter);
    Desk.TapButton(kWizardNext);
    EXPECT_EQ(Desk.RunWizard(), IDOK);
    EXPECT_EQ(Desk.Held().Interval, 3);
    EXPECT_FALSE(Desk.Held().NoEnd);
    EXPECT_EQ(Desk.Held().Occurrences, 10);
}

TEST_F(Wizard, EnterIsDoneOnEitherPage) {
    Desk.TypeOnPattern(kPatternWeekInterval, u"4");
    Desk.Device.Key(VK_RETURN);
    EXPECT_EQ(Desk.RunWizard(), IDOK);
    EXPECT_EQ(Desk.Held().Interval, 4);

    Desk.TypeOnPattern(kPatternWeekInterval, u"5");
    Desk.TapButton(kWizardNext);
    Desk.TypeOnRange(kRangeCount, u"7");
    Desk.TapRange(kRangeEndsAfter);
    Desk.Device.Key(VK_RETURN);
    EXPECT_EQ(Desk.RunWizard(), IDOK);
    EXPECT_EQ(Desk.Held().Interval, 5);
    EXPECT_EQ(Desk.Held().Occurrences, 7);
}

TEST_F(Wizard, EnterOnAButtonPressesIt) {
    Desk.TapButton(kWizardNext);
    Desk.Device.Key(VK_TAB, kModifierShift);
    Desk.Check([this] { EXPECT_EQ(Desk.Device.Host().Windows().GetFocus(), Desk.Button(kWizardBack)); });
    Desk.Device.Key(VK_RETURN);
    LookForPattern(u"Next", false);
    Desk.Device.Do([this] { Desk.Device.Host().Windows().SetFocus(Desk.Button(kWizardNext)); });
    Desk.Device.Key(VK_RETURN);
    LookForRange();
    Desk.Device.Do([this] { Desk.Device.Host().Windows().SetFocus(Desk.Button(IDCANCEL)); });
    Desk.Device.Key(VK_RETURN);
    EXPECT_EQ(Desk.RunWizard(), IDCANCEL);
}

TEST_F(Wizard, SpacePressesTheButtonWithTheFocus) {
    Desk.Device.Do([this] { Desk.Device.Host().Windows().SetFocus(Desk.Button(kWizardNext)); });
    Desk.Device.Key(VK_SPACE);
    LookForRange();
    ExpectCancelled();
}

TEST_F(Wizard, CancelCloseAndEscapeWriteNothing) {
    const SavedPattern before = Desk.Held();
    const auto expectUntouched = [&] {
        EXPECT_EQ(Desk.RunWizard(), IDCANCEL);
        EXPECT_EQ(Desk.Held().Type, before.Type);
        EXPECT_EQ(Desk.Held().Interval, before.Interval);
        EXPECT_EQ(Desk.Held().NoEnd, before.NoEnd);
        EXPECT_EQ(Desk.Held().Mask, before.Mask);
        EXPECT_EQ(Desk.Held().Occurrences, before.Occurrences);
        EXPECT_EQ(Desk.Held().End, before.End);
        EXPECT_EQ(Desk.Held().Start, before.Start);
    };
    const auto change = [&] {
        Desk.TapTab(0);
        Desk.TypeOnPattern(kPatternDayInterval, u"9");
        Desk.TapButton(kWizardNext);
        Desk.TapRange(kRangeEndsAfter);
    };
    change();
    Desk.TapButton(IDCANCEL);
    expectUntouched();
    change();
    Desk.Device.CloseWindow();
    expectUntouched();
    change();
    Desk.Device.Key(VK_ESCAPE);
    expectUntouched();
    Desk.TypeOnPattern(kPatternWeekInterval, u"9"); // the focus is in a control
    Desk.Device.Key(VK_ESCAPE);
    expectUntouched();
}

TEST_F(Wizard, OnePageReadsDoneFromTheStart) {
    Desk.TypeOnPattern(kPatternWeekInterval, u"2");
    Desk.Check([this] {
        EXPECT_EQ(Desk.Text(Desk.Button(kWizardNext)), u"Done");
        EXPECT_FALSE(IsEnabled(kWizardBack));
    });
    Desk.TapButton(kWizardNext);
    EXPECT_EQ(Desk.RunWizard(1), IDOK);
    EXPECT_EQ(Desk.Held().Interval, 2);
}

TEST_F(Wizard, NoPageAtAllCanBeLeftByBothButtons) {
    Desk.TapButton(kWizardNext);
    EXPECT_EQ(Desk.RunWizard(0), IDOK);
    ExpectCancelled(0);
}

TEST_F(Wizard, APageThatDoesNotValidateStays) {
    GivenNoDay();
    Desk.TapButton(kWizardNext);
    Desk.Device.AnswerBox(IDOK);
    LookForPattern(u"Next", false);
    Desk.Device.Key(VK_RETURN);
    Desk.Device.AnswerBox(IDOK);
    LookForPattern(u"Next", false);
    ExpectCancelled();
    EXPECT_EQ(Desk.Messages(), (std::vector<std::u16string>{u"|At least one day must be selected.",
                                                            u"|At least one day must be selected."}));
    EXPECT_EQ(Desk.Held().Mask, 128);
}

TEST_F(Wizard, APageThatValidatesAfterAllLetsGo) {
    GivenNoDay();
    Desk.TapButton(kWizardNext);
    Desk.Device.AnswerBox(IDOK);
    Desk.TapPattern(kPatternTuesday);
    Desk.TypeOnPattern(kPatternWeekInterval, u"1");
    Desk.Done();
    EXPECT_EQ(Desk.RunWizard(), IDOK);
    EXPECT_EQ(Desk.Held().Mask, 4);
}

TEST_F(Wizard, TheInputPanelIsUpWhileItIsOpen) {
    Desk.Check([this] { EXPECT_TRUE(Desk.PanelIsUp()); });
    ExpectCancelled();
    EXPECT_FALSE(Desk.PanelIsUp());
    Desk.Check([this] { EXPECT_TRUE(Desk.PanelIsUp()); });
    Desk.Done();
    EXPECT_EQ(Desk.RunWizard(), IDOK);
    EXPECT_FALSE(Desk.PanelIsUp());
}

TEST_F(Wizard, ThePageOnShowIsDestroyedAtOnceAndTheOtherWithTheFrame) {
    ExpectCancelled();
    EXPECT_EQ(Desk.PatternWindow(), WindowHandle::None);
    EXPECT_NE(Desk.RangeWindow(), WindowHandle::None);
    ExpectCancelled(1);
    EXPECT_EQ(Desk.PatternWindow(), WindowHandle::None);
}

TEST_F(Wizard, NothingOfItIsLeftWhicheverPageItEndsOn) {
    const std::size_t before = Desk.Device.Host().State.Tree.AllParentsFirst().size();
    ExpectCancelled();
    EXPECT_EQ(Desk.Device.Host().State.Tree.AllParentsFirst().size(), before);
    Desk.Done();
    EXPECT_EQ(Desk.RunWizard(), IDOK);
    EXPECT_EQ(Desk.Device.Host().State.Tree.AllParentsFirst().size(), before);
}

// A panel that somebody left little room beside.
class NotedPanel final : public IInputPanel {
  public:
    SipInfo SipGetInfo() override { return Info; }

    void SipSetInfo(const SipInfo& info) override { Info = info; }

    void SHSipPreference(WindowHandle, bool) override {}

    SipInfo Info{false, {0, 26, 240, 200}, {0, 214, 240, 294}};
};

TEST(WizardAndPanel, ThePanelHasTheRoomUpToTheFramesEnd) {
    headless::Device device;
    HostProbe host(device.Host());
    NotedPanel panel;
    host.Panel = &panel;
    CMessagePump pump(host);
    CRecurrenceWizard wizard(pump);
    device.TapControl(IDCANCEL);
    EXPECT_EQ(wizard.DoModal(), IDCANCEL);
    EXPECT_EQ(panel.Info.VisibleDesktop, (Rect{0, 26, 240, 294}));
    EXPECT_EQ(panel.Info.Panel, (Rect{0, 214, 240, 294}));
}

class WizardFocus : public Wizard {
  protected:
    // Presses the key and says where the focus is then.
    void LookForFocus(int modifiers, const WizardDesk::Where& expected) {
        Desk.Device.Key(VK_TAB, modifiers);
        Desk.Check([this, expected, step = ++Steps] {
            EXPECT_EQ(Desk.Device.Host().Windows().GetFocus(), expected()) << "step " << step;
        });
    }

    // Forward through all of them and round, then back again.
    void LookForOrder(const std::vector<WizardDesk::Where>& stops) {
        for (const WizardDesk::Where& stop : stops) {
            LookForFocus(0, stop);
        }
        LookForFocus(0, stops.front());
        for (auto stop = stops.rbegin(); stop != stops.rend(); ++stop) {
            LookForFocus(kModifierShift, *stop);
        }
    }

    std::vector<WizardDesk::Where> Pattern(std::initializer_list<int> controls) {
        std::vector<WizardDesk::Where> stops{[this] { return Desk.PatternWindow(); }};
        for (const int control : controls) {
            stops.push_back([this, control] { return Desk.OnPattern(control); });
        }
        return WithButtons(std::move(stops), {IDCANCEL, kWizardNext});
    }

    std::vector<WizardDesk::Where> WithButtons(std::vector<WizardDesk::Where> stops,
                                               std::initializer_list<int> buttons) {
        for (const int button : buttons) {
            stops.push_back([this, button] { return Desk.Button(button); });
        }
        return stops;
    }

    void FromNext() {
        Desk.Device.Do([this] { Desk.Device.Host().Windows().SetFocus(Desk.Button(kWizardNext)); });
    }

    int Steps = 0;
};

TEST_F(WizardFocus, WalksTheStripTheDailyControlsAndTheButtons) {
    Desk.TapTab(0);
    FromNext();
    LookForOrder(Pattern({kPatternDayInterval}));
    ExpectCancelled();
}

TEST_F(WizardFocus, WalksTheWeeklyControls) {
    FromNext();
    LookForOrder(Pattern({kPatternWeekInterval, kPatternSunday, kPatternMonday, kPatternTuesday, kPatternWednesday,
                          kPatternThursday, kPatternFriday, kPatternSaturday}));
    ExpectCancelled();
}

TEST_F(WizardFocus, WalksTheMonthlyControls) {
    Desk.TapTab(2);
    FromNext();
    LookForOrder(Pattern({kPatternMonthlyDay, kPatternDayOfMonth, kPatternDayMonths, kPatternMonthlyThe,
                          kPatternTheOrdinal, kPatternTheWeekday, kPatternTheMonths}));
    ExpectCancelled();
}

TEST_F(WizardFocus, WalksTheYearlyControls) {
    Desk.TapTab(3);
    FromNext();
    LookForOrder(Pattern({kPatternYearlyDay, kPatternYearDayMonth, kPatternYearDay, kPatternYearlyNth,
                          kPatternYearNthOrdinal, kPatternYearNthWeekday, kPatternYearNthMonth}));
    ExpectCancelled();
}

TEST_F(WizardFocus, WalksTheRangePageAndAllButtons) {
    Desk.TapButton(kWizardNext);
    std::vector<WizardDesk::Where> stops;
    for (const int control : {kRangeNoEnd, kRangeEndsOn, kRangeEndDate, kRangeEndsAfter, kRangeCount}) {
        stops.push_back([this, control] { return Desk.OnRange(control); });
    }
    LookForOrder(WithButtons(std::move(stops), {IDCANCEL, kWizardBack, kWizardNext}));
    ExpectCancelled();
}

// Everything by keys alone, from opening to Done.
TEST_F(WizardFocus, ARuleCanBeMadeWithoutAStylus) {
    FromNext();
    Desk.Device.Key(VK_TAB);   // the strip
    Desk.Device.Key(VK_LEFT);  // Daily
    Desk.Device.Key(VK_RIGHT); // Weekly again
    Desk.Device.Key(VK_TAB);
    Desk.Device.Type(u"2");
    Desk.Device.Key(VK_TAB);
    Desk.Device.Key(VK_TAB);
    Desk.Device.Key(VK_SPACE); // Monday on
    FromNext();
    Desk.Device.Key(VK_SPACE);
    Desk.Device.Key(VK_TAB);
    Desk.Device.Key(VK_TAB);
    Desk.Device.Key(VK_TAB);
    Desk.Device.Key(VK_TAB);
    Desk.Device.Key(VK_SPACE); // ends after
    Desk.Device.Key(VK_TAB);
    Desk.Device.Key(VK_DOWN); // the first entry of the list
    Desk.Device.Key(VK_RETURN);
    EXPECT_EQ(Desk.RunWizard(), IDOK);
    EXPECT_EQ(Desk.Held().Type, kRecursWeekly);
    EXPECT_EQ(Desk.Held().Interval, 2);
    EXPECT_EQ(Desk.Held().Mask, 64 + 2);
    EXPECT_EQ(Desk.Held().Occurrences, 1);
}

} // namespace
} // namespace tavo::test
