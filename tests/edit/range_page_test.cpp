// The range page: what it opens with and what it writes.
#include "tests/edit/wizard_desk.h"

#include <gtest/gtest.h>

namespace tavo::test {
namespace {

class RangePage : public testing::Test {
  protected:
    RangePage() { Desk.TapButton(kWizardNext); }

    void LookFor(int radio, std::u16string_view count) {
        Desk.Check([this, radio, count] {
            for (const int button : {kRangeNoEnd, kRangeEndsOn, kRangeEndsAfter}) {
                EXPECT_EQ(Desk.IsOn(Desk.OnRange(button)), button == radio) << button;
            }
            EXPECT_EQ(Desk.Text(Desk.OnRange(kRangeCount)), count);
        });
    }

    void LookForDate(int year, int month, int day) {
        Desk.Check([this, year, month, day] {
            const SYSTEMTIME shown = Desk.Device.Host().Controls().GetSystemtime(Desk.OnRange(kRangeEndDate));
            EXPECT_EQ(shown.Year, year);
            EXPECT_EQ(shown.Month, month);
            EXPECT_EQ(shown.Day, day);
        });
    }

    void EndsOn(const SYSTEMTIME& day) {
        EXPECT_EQ(Desk.Pattern().put_NoEndDate(false), Status::Ok);
        EXPECT_EQ(Desk.Pattern().put_Occurrences(0), Status::Ok);
        EXPECT_EQ(Desk.Pattern().put_PatternEndDate(Desk.ToDate(day)), Status::Ok);
    }

    void EndsAfter(std::int32_t count) {
        EXPECT_EQ(Desk.Pattern().put_NoEndDate(false), Status::Ok);
        EXPECT_EQ(Desk.Pattern().put_PatternEndDate(Desk.ToDate(At(2027, 3, 6))), Status::Ok);
        EXPECT_EQ(Desk.Pattern().put_Occurrences(count), Status::Ok);
    }

    void ExpectCancelled() {
        Desk.TapButton(IDCANCEL);
        EXPECT_EQ(Desk.RunWizard(), IDCANCEL);
    }

    void ExpectDone() {
        Desk.TapButton(kWizardNext);
        EXPECT_EQ(Desk.RunWizard(), IDOK);
    }

    WizardDesk Desk; // Saturday, 21 November 2026
};

TEST_F(RangePage, WithoutAnEndADateAndACountArePrepared) {
    LookFor(kRangeNoEnd, u"10");
    LookForDate(2027, 1, 21); // 61 days after the start
    Desk.Check([this] {
        const SYSTEMTIME shown = Desk.Device.Host().Controls().GetSystemtime(Desk.OnRange(kRangeEndDate));
        EXPECT_EQ(shown.Hour, 23);
        EXPECT_EQ(shown.Minute, 59);
        EXPECT_EQ(shown.Second, 59);
    });
    ExpectCancelled();
}

TEST_F(RangePage, AnEndAfterACountShowsTheCountAndTheDate) {
    EndsAfter(25);
    LookFor(kRangeEndsAfter, u"25");
    LookForDate(2027, 3, 6);
    ExpectCancelled();
}

TEST_F(RangePage, AnEndAfterASingleOccurrenceShowsOne) {
    EndsAfter(1);
    LookFor(kRangeEndsAfter, u"1");
    ExpectCancelled();
}

TEST_F(RangePage, AnEndWithoutADateShowsThePreparedDate) {
    EXPECT_EQ(Desk.Pattern().put_NoEndDate(false), Status::Ok);
    EXPECT_EQ(Desk.Pattern().put_Occurrences(0), Status::Ok);
    EXPECT_EQ(Desk.Pattern().put_PatternEndDate(kNoDate), Status::Ok);
    LookFor(kRangeEndsOn, u"10");
    LookForDate(2027, 1, 21);
    ExpectCancelled();
}

TEST_F(RangePage, DeclaresItsHeadingOnce) {
    Desk.TapButton(kWizardBack);
    Desk.TapButton(kWizardNext);
    Desk.Check([this] {
        const headless::Frame* frame = Desk.Device.Host().Drawn.LastFrame(Desk.RangeWindow());
        ASSERT_NE(frame, nullptr);
        EXPECT_GT(frame->Count, 1);
        EXPECT_EQ(frame->Items,
                  std::vector<PaintedItem>{(PaintedItem{{9, 26, 229, 50}, PaintedRole::Header, u"The pattern"})});
    });
    ExpectCancelled();
}

TEST_F(RangePage, AnEndOnADateShowsTheDateAndThePreparedCount) {
    EndsOn(At(2027, 2, 13));
    LookFor(kRangeEndsOn, u"10");
    LookForDate(2027, 2, 13);
    ExpectCancelled();
}

TEST_F(RangePage, TheListOffersOneToTen) {
    Desk.Check([this] {
        const std::vector<std::u16string> counts{u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8", u"9", u"10"};
        EXPECT_EQ(Desk.Entries(Desk.OnRange(kRangeCount)), counts);
    });
    ExpectCancelled();
}

TEST_F(RangePage, ItsTextsAreThere) {
    Desk.Check([this] {
        EXPECT_EQ(Desk.Text(Desk.OnRange(kRangeNoEnd)), u"Does not end");
        EXPECT_EQ(Desk.Text(Desk.OnRange(kRangeEndsOn)), u"Ends on");
        EXPECT_EQ(Desk.Text(Desk.OnRange(kRangeEndsAfter)), u"Ends after");
        EXPECT_TRUE(Desk.RangeShowsText(u"The pattern"));
        EXPECT_TRUE(Desk.Device.See.FindItem(PaintedRole::Header, u"The pattern").has_value());
        std::vector<std::u16string> labels;
        for (const WindowHandle control : Desk.Device.Host().State.Tree.ChildrenOf(Desk.RangeWindow())) {
            if (Desk.Device.Host().State.Tree.FindControl(control)->Kind == ControlKind::Label &&
                Desk.IsShown(control)) {
                labels.push_back(Desk.Text(control));
            }
        }
        EXPECT_EQ(labels, std::vector<std::u16string>{u"occurrence(s)"});
    });
    ExpectCancelled();
}

TEST_F(RangePage, IsDrawnInItsPlacesFontsAndColours) {
    Desk.Check([this] {
        const headless::Frame* frame = Desk.Device.Host().Drawn.LastFrame(Desk.RangeWindow());
        ASSERT_NE(frame, nullptr);
        EXPECT_EQ(ToText(frame->Calls), "fill 0,0,240,150 #FFFFFF\n"
                                        "text 9,26,229,50 #000000 format 36 [Comic Sans MS -17 700] \"The pattern\"\n");
    });
    ExpectCancelled();
}

TEST_F(RangePage, DoesNotEndWritesNoEnd) {
    EndsAfter(25);
    Desk.TapRange(kRangeNoEnd);
    ExpectDone();
    EXPECT_TRUE(Desk.Held().NoEnd);
    EXPECT_EQ(Desk.Held().Occurrences, 25);
}

TEST_F(RangePage, EndsOnWritesThePickedDateAndLeavesTheCount) {
    EndsAfter(25);
    Desk.TapRange(kRangeEndsOn);
    Desk.PickEnd(2027, 1, 9);
    ExpectDone();
    const SavedPattern held = Desk.Held();
    EXPECT_FALSE(held.NoEnd);
    EXPECT_EQ(held.End, Desk.ToDate(At(2027, 1, 9)));
    EXPECT_EQ(held.Occurrences, 25);
}

TEST_F(RangePage, EndsOnWithoutPickingWritesThePreparedDate) {
    Desk.TapRange(kRangeEndsOn);
    ExpectDone();
    EXPECT_EQ(Desk.Held().End, Desk.ToDate(At(2027, 1, 21)));
}

TEST_F(RangePage, EndsAfterWritesTheLeadingNumberOfTheCount) {
    const std::pair<std::u16string, int> counts[] = {{u"25", 25},  {u"3 times", 3}, {u"0", 0},      {u"", 0},
                                                     {u"many", 0}, {u"-2", -2},     {u"1000", 1000}};
    for (const auto& [text, count] : counts) {
        WizardDesk desk;
        desk.TapButton(kWizardNext);
        desk.TapRange(kRangeEndsAfter);
        desk.TypeOnRange(kRangeCount, text);
        desk.TapButton(kWizardNext);
        EXPECT_EQ(desk.RunWizard(), IDOK);
        EXPECT_FALSE(desk.Held().NoEnd);
        EXPECT_EQ(desk.Held().Occurrences, count);
    }
    ExpectCancelled();
}

TEST_F(RangePage, TypingACountOrPickingADateDoesNotChooseTheRow) {
    Desk.TypeOnRange(kRangeCount, u"4");
    Desk.PickEnd(2027, 1, 9);
    LookFor(kRangeNoEnd, u"4");
    ExpectDone();
    EXPECT_TRUE(Desk.Held().NoEnd);
}

TEST_F(RangePage, TheEndIsReadFromThePatternAgainWithEachOpening) {
    Desk.TapRange(kRangeEndsAfter);
    Desk.TypeOnRange(kRangeCount, u"3");
    ExpectDone();
    Desk.TapButton(kWizardNext);
    LookFor(kRangeEndsAfter, u"3");
    ExpectCancelled();
}

TEST_F(RangePage, RowsLieUnderOneAnotherAboveTheButtons) {
    Desk.Check([this] {
        const shell::WindowTree& tree = Desk.Device.Host().State.Tree;
        int bottom = 24;
        const std::vector<std::vector<int>> rows = {
            {kRangeNoEnd}, {kRangeEndsOn, kRangeEndDate}, {kRangeEndsAfter, kRangeCount, kStaticText}};
        const auto heading = Desk.Device.See.FindItem(PaintedRole::Header, u"The pattern");
        ASSERT_TRUE(heading.has_value());
        EXPECT_GE(heading->Bounds.Top, 24);
        bottom = heading->Bounds.Bottom;
        for (const std::vector<int>& row : rows) {
            int right = 0;
            int below = bottom;
            for (const int control : row) {
                for (const WindowHandle child : tree.ChildrenOf(Desk.RangeWindow())) {
                    const Rect place = tree.Find(child)->Bounds;
                    if (tree.FindControl(child)->Id == control) {
                        EXPECT_GT(place.Top, bottom) << control;
                        EXPECT_GT(place.Left, right) << control;
                        EXPECT_LE(place.Right, 240) << control;
                        right = place.Right;
                        below = place.Bottom;
                    }
                }
            }
            EXPECT_GT(below, bottom);
            bottom = below;
        }
        EXPECT_LE(bottom, 150);
    });
    ExpectCancelled();
}

} // namespace
} // namespace tavo::test
