// What an open editor lays aside, and how tests get at it.
#pragma once

#include "edit/draft_file.h"
#include "tests/edit/edit_desk.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace tavo::test {

class LaidAside : public testing::Test {
  protected:
    // The wizard is through with it.
    void GivenFourTimesEveryOtherWeek() {
        Desk.Subject(u"Yoga");
        Desk.ChooseRecurrence(kChoiceCustom);
        Desk.TypeIntoShown(kPatternWeekInterval, u"2");
        Desk.TapShown(kWizardNext);
        Desk.TapShown(kRangeEndsAfter);
        Desk.TypeIntoShown(kRangeCount, u"4");
        Desk.TapShown(kWizardNext); // Done
    }

    std::vector<FoundDraft> Drafts() { return FindDrafts(Desk.Device.Host()); }

    // The program ends with the script so far, with the editor open; what is left of it.
    AppointmentDraft QuitDuring(const std::function<int()>& run) {
        EXPECT_EQ(run(), kLeftOpen);
        const std::vector<FoundDraft> found = Drafts();
        EXPECT_EQ(found.size(), 1U);
        return found.empty() ? AppointmentDraft() : found.front().Draft;
    }

    // What is laid aside within a second of the script so far; the editor is cancelled then.
    AppointmentDraft DraftDuring(const std::function<int()>& run) {
        AppointmentDraft draft;
        Desk.Device.AdvanceClock(1000);
        Desk.Check([&] {
            ASSERT_EQ(Drafts().size(), 1U);
            draft = Drafts().front().Draft;
        });
        Desk.Cancel();
        EXPECT_EQ(run(), IDCANCEL);
        return draft;
    }

    EditDesk Desk{At(2026, 11, 21, 9, 47)};
};

} // namespace tavo::test
