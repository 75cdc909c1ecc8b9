// The pattern page: what it opens with, its tabs and toggles, and how choices choose rows.
#include "tests/edit/wizard_desk.h"

#include <gtest/gtest.h>

namespace tavo::test {
namespace {

constexpr int kSaturdayBit = 64;
constexpr int kMondayToFriday = 62;
constexpr int kStripMiddle = 12;

class PatternPage : public testing::Test {
  protected:
    void ExpectCancelled(WizardDesk& desk) {
        desk.TapButton(IDCANCEL);
        EXPECT_EQ(desk.RunWizard(), IDCANCEL);
    }

    void ExpectCancelled() { ExpectCancelled(Desk); }

    void LookForStrip(int picture) {
        Desk.Check([this, picture] { EXPECT_EQ(Desk.StripPicture(), picture); });
    }

    void LookForRadios(int on, int off) {
        Desk.Check([this, on, off] {
            EXPECT_TRUE(Desk.IsOn(Desk.OnPattern(on))) << on;
            EXPECT_FALSE(Desk.IsOn(Desk.OnPattern(off))) << off;
        });
    }

    WizardDesk Desk; // Saturday, 21 November 2026
};

TEST_F(PatternPage, TheRuleChoosesTheTab) {
    struct Case {
        std::int32_t Type;
        std::int32_t Mask;
        int Picture;
    };

    const Case cases[] = {{kRecursDaily, kSaturdayBit, kBitmapPatternDaily},
                          {kRecursDaily, kMondayToFriday, kBitmapPatternWeekly},
                          {kRecursWeekly, kSaturdayBit, kBitmapPatternWeekly},
                          {kRecursMonthly, kMondayToFriday, kBitmapPatternMonthly},
                          {kRecursMonthNth, kSaturdayBit, kBitmapPatternMonthly},
                          {kRecursYearly, kSaturdayBit, kBitmapPatternYearly},
                          {kRecursYearNth, kSaturdayBit, kBitmapPatternYearly}};
    for (const Case& rule : cases) {
        Desk.Rule(rule.Type, 1, rule.Mask, 1);
        LookForStrip(rule.Picture);
        ExpectCancelled();
    }
}

TEST_F(PatternPage, ADailyRuleOnWeekdaysOpensWithMondayToFridayOn) {
    Desk.Rule(kRecursDaily, 1, kMondayToFriday);
    LookForStrip(kBitmapPatternWeekly);
    Desk.Check([this] { EXPECT_EQ(Desk.DaysOn(), kMondayToFriday); });
    ExpectCancelled();
}

TEST_F(PatternPage, EachTabShowsItsOwnControlsAndNoOthers) {
    const std::vector<std::vector<int>> tabs = {{1056, 1026, 1001},
                                                {1010, 1027, 1011, 1021, 1022, 1023, 1024, 1036, 1045, 1014},
                                                {1028, 1031, 1033, 1030, 1037, 1012, 1029, 1034, 1057, 1032, 1038},
                                                {1035, 1040, 1039, 1013, 1047, 1048, 1049, 1046}};
    for (std::size_t shown = 0; shown < tabs.size(); ++shown) {
        Desk.TapTab(static_cast<int>(shown));
        Desk.Check([this, &tabs, shown] {
            for (std::size_t tab = 0; tab < tabs.size(); ++tab) {
                for (const int control : tabs[tab]) {
                    EXPECT_EQ(Desk.IsShown(Desk.OnPattern(control)), tab == shown) << shown << ' ' << control;
                }
            }
        });
    }
    ExpectCancelled();
}

TEST_F(PatternPage, ControlsSayTheirTexts) {
    Desk.Check([this] {
        const std::pair<int, std::u16string_view> texts[] = {
            {1056, u"Every"}, {1001, u"day(s)"},   {1010, u"Every"},    {1011, u"week(s)"},  {1028, u"Day"},
            {1012, u"The"},   {1033, u"of every"}, {1037, u"month(s)"}, {1057, u"of every"}, {1038, u"month(s)"},
            {1035, u"Every"}, {1013, u"Every"},    {1049, u"of"}};
        for (const auto& [control, text] : texts) {
            EXPECT_EQ(Desk.Text(Desk.OnPattern(control)), text) << control;
        }
    });
    ExpectCancelled();
}

TEST_F(PatternPage, ListsHoldTheirEntries) {
    using Texts = std::vector<std::u16string>;
    const Texts intervals{u"1", u"2", u"3", u"4", u"5", u"10", u"15", u"20"};
    const Texts ordinals{u"First", u"Second", u"Third", u"Fourth", u"Last"};
    const Texts weekdays{u"Sunday", u"Monday", u"Tuesday", u"Wednesday", u"Thursday", u"Friday", u"Saturday"};
    const Texts months{u"January", u"February", u"March",     u"April",   u"May",      u"June",
                       u"July",    u"August",   u"September", u"October", u"November", u"December"};
    const Texts days{u"1",  u"2",  u"3",  u"4",  u"5",  u"6",  u"7",  u"8",  u"9",  u"10", u"11",
                     u"12", u"13", u"14", u"15", u"16", u"17", u"18", u"19", u"20", u"21", u"22",
                     u"23", u"24", u"25", u"26", u"27", u"28", u"29", u"30", u"31"};
    Desk.Check([&] {
        const std::pair<int, Texts> lists[] = {
            {1026, intervals}, {1027, intervals}, {1030, intervals}, {1032, intervals}, {1031, days},   {1039, days},
            {1029, ordinals},  {1047, ordinals},  {1034, weekdays},  {1048, weekdays},  {1040, months}, {1046, months}};
        for (const auto& [list, entries] : lists) {
            EXPECT_EQ(Desk.Entries(Desk.OnPattern(list)), entries) << list;
        }
    });
    ExpectCancelled();
}

TEST_F(PatternPage, DailyAndWeeklyIntervalsOpenEmptyWhateverTheRule) {
    for (const std::int32_t type : {kRecursDaily, kRecursWeekly}) {
        for (const int interval : {1, 3, 10, 999}) {
            Desk.Rule(type, interval, kSaturdayBit);
            Desk.Check([this] {
                for (const int list : {kPatternDayInterval, kPatternWeekInterval}) {
                    EXPECT_EQ(Desk.Text(Desk.OnPattern(list)), u"");
                    EXPECT_EQ(Desk.Selection(Desk.OnPattern(list)), -1);
                }
            });
            ExpectCancelled();
        }
    }
}

TEST_F(PatternPage, MonthlyIntervalsShowOneToFiveOnly) {
    const std::pair<int, std::u16string_view> shown[] = {{1, u"1"}, {2, u"2"}, {3, u"3"}, {4, u"4"}, {5, u"5"},
                                                         {6, u""},  {7, u""},  {8, u""},  {10, u""}, {15, u""},
                                                         {20, u""}, {0, u""},  {-3, u""}, {999, u""}};
    for (const auto& [interval, text] : shown) {
        Desk.Rule(kRecursMonthly, interval);
        Desk.Check([this, interval = interval, text = text] {
            for (const int list : {kPatternDayMonths, kPatternTheMonths}) {
                EXPECT_EQ(Desk.Text(Desk.OnPattern(list)), text) << interval;
                EXPECT_EQ(Desk.Selection(Desk.OnPattern(list)), text.empty() ? -1 : interval - 1);
            }
        });
        ExpectCancelled();
    }
}

TEST_F(PatternPage, MonthlyAndYearlyRowsOpenWithTheStartsDay) {
    Desk.Rule(kRecursMonthly, 1);
    Desk.Check([this] {
        EXPECT_EQ(Desk.Text(Desk.OnPattern(kPatternDayOfMonth)), u"21");
        EXPECT_EQ(Desk.Text(Desk.OnPattern(kPatternTheWeekday)), u"Saturday");
        EXPECT_EQ(Desk.Text(Desk.OnPattern(kPatternYearDayMonth)), u"November");
        EXPECT_EQ(Desk.Text(Desk.OnPattern(kPatternYearNthMonth)), u"November");
        EXPECT_EQ(Desk.Text(Desk.OnPattern(kPatternYearDay)), u"21");
        EXPECT_EQ(Desk.Text(Desk.OnPattern(kPatternYearNthWeekday)), u"Saturday");
    });
    ExpectCancelled();
}

TEST_F(PatternPage, TheRadioButtonOfTheRuleIsOn) {
    const std::tuple<std::int32_t, bool, bool> rules[] = {{kRecursWeekly, false, false},
                                                          {kRecursMonthly, false, false},
                                                          {kRecursMonthNth, true, false},
                                                          {kRecursYearly, false, false},
                                                          {kRecursYearNth, false, true}};
    for (const auto& [type, monthlyThe, yearlyNth] : rules) {
        Desk.Rule(type, 1, kSaturdayBit, 1);
        Desk.Check([this, monthlyThe = monthlyThe, yearlyNth = yearlyNth] {
            EXPECT_EQ(Desk.IsOn(Desk.OnPattern(kPatternMonthlyThe)), monthlyThe);
            EXPECT_EQ(Desk.IsOn(Desk.OnPattern(kPatternMonthlyDay)), !monthlyThe);
            EXPECT_EQ(Desk.IsOn(Desk.OnPattern(kPatternYearlyNth)), yearlyNth);
            EXPECT_EQ(Desk.IsOn(Desk.OnPattern(kPatternYearlyDay)), !yearlyNth);
        });
        ExpectCancelled();
    }
}

TEST_F(PatternPage, TheOrdinalIsTheInstanceOrElseTheStartsWeek) {
    const std::pair<int, std::u16string_view> shown[] = {{1, u"First"}, {2, u"Second"}, {3, u"Third"}, {4, u"Fourth"},
                                                         {5, u"Last"},  {0, u"Third"},  {6, u"Third"}, {-1, u"Third"}};
    for (const auto& [instance, ordinal] : shown) {
        Desk.Rule(kRecursMonthNth, 1, kSaturdayBit, instance);
        Desk.Check([this, instance = instance, ordinal = ordinal] {
            EXPECT_EQ(Desk.Text(Desk.OnPattern(kPatternTheOrdinal)), ordinal) << instance;
            EXPECT_EQ(Desk.Text(Desk.OnPattern(kPatternYearNthOrdinal)), ordinal) << instance;
        });
        ExpectCancelled();
    }
}

TEST_F(PatternPage, WithoutAnInstanceTheLastDaysOfAMonthAreItsLastWeek) {
    const std::pair<int, std::u16string_view> days[] = {
        {7, u"First"}, {8, u"Second"}, {14, u"Second"}, {15, u"Third"}, {28, u"Fourth"}, {29, u"Last"}, {31, u"Last"}};
    for (const auto& [day, ordinal] : days) {
        WizardDesk desk(At(2026, 12, day, 9, 0));
        desk.Rule(kRecursMonthNth, 1, 1, 0);
        desk.Check([&, ordinal = ordinal] { EXPECT_EQ(desk.Text(desk.OnPattern(kPatternTheOrdinal)), ordinal); });
        ExpectCancelled(desk);
    }
}

TEST_F(PatternPage, TheTogglesAreTheMasksDays) {
    const std::pair<int, int> masks[] = {{1, 1}, {64, 64}, {127, 127}, {62, 62}, {5, 5}, {0, kSaturdayBit}};
    for (const auto& [mask, days] : masks) {
        Desk.Rule(kRecursWeekly, 1, mask);
        Desk.Check([this, days = days] { EXPECT_EQ(Desk.DaysOn(), days); });
        ExpectCancelled();
    }
}

TEST_F(PatternPage, TogglesShowTheirDaysPictures) {
    const std::tuple<int, int, int> toggles[] = {{1021, 236, 270}, {1022, 254, 268}, {1023, 263, 272}, {1024, 264, 273},
                                                 {1036, 265, 271}, {1045, 266, 267}, {1014, 255, 269}};
    Desk.Check([this, &toggles] {
        for (const auto& [toggle, off, on] : toggles) {
            const shell::ControlState& state = *Desk.Device.Host().State.Tree.FindControl(Desk.OnPattern(toggle));
            EXPECT_EQ(state.Kind, ControlKind::PictureButton);
            EXPECT_EQ(state.PictureOff, off);
            EXPECT_EQ(state.PictureOn, on);
        }
    });
    ExpectCancelled();
}

TEST_F(PatternPage, ATapOnTheStripShowsThatTab) {
    const std::pair<int, int> taps[] = {{0, 166},   {59, 166},  {60, 164},  {119, 164},
                                        {120, 165}, {179, 165}, {180, 163}, {239, 163}};
    for (const auto& [x, picture] : taps) {
        Desk.Device.Tap(x, kStripMiddle);
        LookForStrip(picture);
    }
    Desk.Device.Tap(30, 0);
    LookForStrip(kBitmapPatternDaily);
    Desk.Device.Tap(90, 23);
    LookForStrip(kBitmapPatternWeekly);
    ExpectCancelled();
}

TEST_F(PatternPage, ATapBelowOrBesideTheStripChangesNothing) {
    Desk.TapTab(3);
    Desk.Device.Tap(30, 24);
    Desk.Device.Tap(30, 30);
    Desk.Device.Tap(30, 140);
    Desk.Device.Do([this] { // beyond the right edge, as a pen that leaves the screen may say it
        Desk.Device.Host().Queue().PostMessageW({Desk.PatternWindow(), WM_LBUTTONDOWN, 0, 0, 0, {240, kStripMiddle}});
    });
    LookForStrip(kBitmapPatternYearly);
    ExpectCancelled();
}

TEST_F(PatternPage, TheStripIsAllPaintedAndItsTabsAreNamed) {
    Desk.TapTab(2);
    Desk.Check([this] {
        const std::u16string_view names[] = {u"Daily", u"Weekly", u"Monthly", u"Yearly"};
        for (int tab = 0; tab < 4; ++tab) {
            const auto item = Desk.Device.See.FindItem(PaintedRole::Tab, names[tab]);
            ASSERT_TRUE(item.has_value()) << tab;
            EXPECT_EQ(item->Bounds, Rect::FromSize(60 * tab, 0, 60, 24));
            EXPECT_EQ(item->Selected, tab == 2);
        }
    });
    ExpectCancelled();
}

TEST_F(PatternPage, ArrowKeysGoRoundTheTabsWhileTheStripHasTheFocus) {
    Desk.Device.Do([this] { Desk.Device.Host().Windows().SetFocus(Desk.PatternWindow()); });
    Desk.Device.Key(VK_RIGHT);
    LookForStrip(kBitmapPatternMonthly);
    Desk.Device.Key(VK_RIGHT);
    Desk.Device.Key(VK_RIGHT);
    LookForStrip(kBitmapPatternDaily);
    Desk.Device.Key(VK_LEFT);
    LookForStrip(kBitmapPatternYearly);
    ExpectCancelled();
}

TEST_F(PatternPage, ATapTurnsADayOnAndOff) {
    Desk.TapPattern(kPatternSunday);
    Desk.Check([this] { EXPECT_EQ(Desk.DaysOn(), 1 + 64); });
    Desk.TapPattern(kPatternSaturday);
    Desk.Check([this] { EXPECT_EQ(Desk.DaysOn(), 1); });
    for (const int day : {kPatternMonday, kPatternTuesday, kPatternWednesday, kPatternThursday, kPatternFriday}) {
        Desk.TapPattern(day);
    }
    Desk.Check([this] { EXPECT_EQ(Desk.DaysOn(), 63); });
    ExpectCancelled();
    EXPECT_TRUE(Desk.Messages().empty());
}

TEST_F(PatternPage, TheLastDayStaysOnWithAMessage) {
    Desk.TapPattern(kPatternSaturday);
    Desk.Device.AnswerBox(IDOK);
    Desk.Check([this] { EXPECT_EQ(Desk.DaysOn(), kSaturdayBit); });
    ExpectCancelled();
    EXPECT_EQ(Desk.Messages(), std::vector<std::u16string>{u"|At least one day must be selected."});
}

TEST_F(PatternPage, SpaceTurnsTheDayWithTheFocus) {
    Desk.Device.Do([this] { Desk.Device.Host().Windows().SetFocus(Desk.OnPattern(kPatternWednesday)); });
    Desk.Device.Key(VK_SPACE);
    Desk.Check([this] { EXPECT_EQ(Desk.DaysOn(), 8 + 64); });
    Desk.Device.Key(VK_SPACE);
    Desk.Check([this] { EXPECT_EQ(Desk.DaysOn(), 64); });
    ExpectCancelled();
}

TEST_F(PatternPage, AChoiceInARowChoosesTheRow) {
    const std::tuple<int, int, int> rows[] = {{kPatternTheMonths, kPatternMonthlyThe, kPatternMonthlyDay},
                                              {kPatternDayOfMonth, kPatternMonthlyDay, kPatternMonthlyThe},
                                              {kPatternTheOrdinal, kPatternMonthlyThe, kPatternMonthlyDay},
                                              {kPatternDayMonths, kPatternMonthlyDay, kPatternMonthlyThe},
                                              {kPatternTheWeekday, kPatternMonthlyThe, kPatternMonthlyDay},
                                              {kPatternYearNthMonth, kPatternYearlyNth, kPatternYearlyDay},
                                              {kPatternYearDayMonth, kPatternYearlyDay, kPatternYearlyNth},
                                              {kPatternYearNthOrdinal, kPatternYearlyNth, kPatternYearlyDay},
                                              {kPatternYearDay, kPatternYearlyDay, kPatternYearlyNth},
                                              {kPatternYearNthWeekday, kPatternYearlyNth, kPatternYearlyDay}};
    Desk.TapTab(2);
    for (const auto& [list, on, off] : rows) {
        if (list == kPatternYearNthMonth) {
            Desk.TapTab(3);
        }
        Desk.ChooseOnPattern(list, 1);
        LookForRadios(on, off);
    }
    ExpectCancelled();
}

TEST_F(PatternPage, TypingAnIntervalChoosesTheRowButTypingADayDoesNot) {
    Desk.TapTab(2);
    Desk.TypeOnPattern(kPatternTheMonths, u"7");
    LookForRadios(kPatternMonthlyThe, kPatternMonthlyDay);
    Desk.TypeOnPattern(kPatternDayOfMonth, u"9");
    LookForRadios(kPatternMonthlyThe, kPatternMonthlyDay);
    Desk.TypeOnPattern(kPatternDayMonths, u"8");
    LookForRadios(kPatternMonthlyDay, kPatternMonthlyThe);
    ExpectCancelled();
}

TEST_F(PatternPage, WhatIsTypedWithoutFocusGoesToTheChosenRow) {
    Desk.TapTab(2);
    Desk.Device.Type(u"7");
    Desk.Check([&] {
        EXPECT_EQ(Desk.Text(Desk.OnPattern(kPatternDayMonths)), u"7");
        EXPECT_EQ(Desk.Text(Desk.OnPattern(kPatternTheMonths)), u"1");
    });
    LookForRadios(kPatternMonthlyDay, kPatternMonthlyThe);
    ExpectCancelled();
    Desk.Rule(kRecursMonthNth, 1, kSaturdayBit, 3);
    Desk.Device.Type(u"9");
    Desk.Check([&] {
        EXPECT_EQ(Desk.Text(Desk.OnPattern(kPatternDayMonths)), u"1");
        EXPECT_EQ(Desk.Text(Desk.OnPattern(kPatternTheMonths)), u"9");
    });
    LookForRadios(kPatternMonthlyThe, kPatternMonthlyDay);
    ExpectCancelled();
}

TEST_F(PatternPage, RadioButtonsOfOnePairLeaveTheOtherPairAlone) {
    Desk.TapTab(2);
    Desk.TapPattern(kPatternMonthlyThe);
    LookForRadios(kPatternMonthlyThe, kPatternMonthlyDay);
    LookForRadios(kPatternYearlyDay, kPatternYearlyNth);
    Desk.TapTab(3);
    Desk.TapPattern(kPatternYearlyNth);
    LookForRadios(kPatternYearlyNth, kPatternYearlyDay);
    LookForRadios(kPatternMonthlyThe, kPatternMonthlyDay);
    ExpectCancelled();
}

// The place that the pages leave to their rows.
TEST_F(PatternPage, RowsLieBetweenStripAndButtonsAndDoNotTouch) {
    for (int tab = 0; tab < 4; ++tab) {
        Desk.TapTab(tab);
        Desk.Check([this, tab] {
            const shell::WindowTree& tree = Desk.Device.Host().State.Tree;
            std::vector<Rect> places;
            for (const WindowHandle control : tree.ChildrenOf(Desk.PatternWindow())) {
                if (!tree.IsVisible(control)) {
                    continue;
                }
                const Rect place = tree.Find(control)->Bounds;
                EXPECT_TRUE(place.Left >= 0 && place.Top >= 24 && place.Right <= 240 && place.Bottom <= 150)
                    << tab << ' ' << tree.FindControl(control)->Id;
                for (const Rect& other : places) {
                    const bool apart = place.Left > other.Right || other.Left > place.Right ||
                                       place.Top > other.Bottom || other.Top > place.Bottom;
                    EXPECT_TRUE(apart) << tab << ' ' << tree.FindControl(control)->Id;
                }
                places.push_back(place);
            }
            EXPECT_FALSE(places.empty());
        });
    }
    ExpectCancelled();
}

} // namespace
} // namespace tavo::test
