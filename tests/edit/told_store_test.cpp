// Everything that the editor tells the store's item and its pattern, in order.
#include "tests/edit/edit_desk.h"
#include "tests/support/appointment_probe.h"
#include "tests/support/outlook_probe.h"
#include "tests/support/pattern_probe.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tavo::test {
namespace {

using Lines = std::vector<std::string>;

// Of a new item, from noon to six in the evening where it has an end; 46344 is the 18th of November 2026.
class ToldStore : public testing::Test {
  protected:
    ToldStore() {
        EXPECT_EQ(Store.CreateItem(kItemAppointment, RealItem), Status::Ok);
        EXPECT_EQ(RealItem->GetRecurrencePattern(RealPattern), Status::Ok);
        Item.emplace(*RealItem);
        Pattern.emplace(*RealPattern, Notes);
        Item->Notes = &Notes;
        Item->Pattern = &*Pattern;
        Store.NewItem = &*Item;
        Desk.State.Store.OutlookApp = Store.Share();
    }

    ~ToldStore() override { Desk.State.Store.OutlookApp = Real; }

    void Forget() {
        Desk.Check([this] { static_cast<void>(Notes.Take()); });
    }

    void ExpectTold(const Lines& lines) {
        Desk.Check([this, lines] { EXPECT_EQ(Notes.Take(), lines); });
    }

    EditDesk Desk{At(2026, 11, 18, 12, 10)}; // a Wednesday, the third of its month
    PutNotes Notes;
    const ComPtr<IPOutlookApp> Real = Desk.State.Store.OutlookApp;
    OutlookProbe Store{Real};
    ComPtr<IAppointment> RealItem;
    ComPtr<IRecurrencePattern> RealPattern;
    std::optional<AppointmentProbe> Item;
    std::optional<PatternProbe> Pattern;
};

TEST_F(ToldStore, AtOkEverythingOnceMoreAndThePatternItsRule) {
    Desk.Subject(u"Tea");
    Desk.PickEndTime(18, 0);
    Desk.ChooseRecurrence(kChoiceWeekdays);
    Desk.ChooseReminder(true);
    Desk.ChooseSound(u"bell.wav");
    Forget();
    Desk.Ok();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDOK);
    EXPECT_EQ(Notes.Take(), (Lines{"Subject Tea",
                                   "Location ",
                                   "Categories ",
                                   "Start 46344.500000",
                                   "End 46344.750000",
                                   "Duration 360",
                                   "End 46344.750000",
                                   "AllDayEvent false",
                                   "Sensitivity 0",
                                   "BusyStatus 2",
                                   "ReminderSet true",
                                   "ReminderOptions 29",
                                   "ReminderSoundFile bell.wav",
                                   "ReminderMinutesBeforeStart 720",
                                   "RecurrenceType 1",
                                   "PatternStartDate 46344.500000",
                                   "NoEndDate true",
                                   "StartTime 46344.500000",
                                   "Duration 360",
                                   "EndTime 46344.750000",
                                   "Interval 1",
                                   "DayOfWeekMask 62",
                                   "DayOfMonth 18",
                                   "Instance 3",
                                   "MonthOfYear 11"}));
}

TEST_F(ToldStore, OfOnceThatThereIsNoPattern) {
    Desk.Subject(u"Tea");
    Forget();
    Desk.Ok();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDOK);
    EXPECT_EQ(Notes.Take().back(), "ClearRecurrencePattern");
}

TEST_F(ToldStore, BeforeTheWizardTheTimesAndAWeeklyRule) {
    Desk.PickEndTime(18, 0);
    Desk.TapAllDay();
    Forget();
    Desk.ChooseRecurrence(kChoiceCustom);
    ExpectTold({"Start 46344.500000", "End 46344.750000", "Duration 360", "End 46344.750000", "AllDayEvent true",
                "RecurrenceType 1", "PatternStartDate 46344.500000", "NoEndDate true", "StartTime 46344.500000",
                "Duration 360", "EndTime 46344.750000", "Interval 1", "DayOfWeekMask 8", "DayOfMonth 18", "Instance 3",
                "MonthOfYear 11", "Occurrences 10", "NoEndDate true"});
    Desk.TapShown(IDCANCEL);
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDCANCEL);
}

TEST_F(ToldStore, OfADraftItsTimesAndItsRule) {
    FoundDraft found{u"\\Recovery\\x.draft", {}};
    FormValues& form = found.Draft.Now;
    form.Start = At(2026, 11, 20, 12);
    form.End = At(2026, 11, 20, 18);
    form.Recurrence = kChoiceCustom;
    form.Rule = DraftRule{{kRecursWeekly, 2, 34, 20, 3, 11}, RuleEnd::AfterCount, 0, 4};
    Desk.Continued = &found;
    Desk.Check([this] {
        const Lines told = Notes.Take();
        const auto ofDraft = std::find(told.begin(), told.end(), "Start 46346.500000");
        EXPECT_EQ(Lines(ofDraft, told.end()), (Lines{"Start 46346.500000",
                                                     "End 46346.750000",
                                                     "Duration 360",
                                                     "End 46346.750000",
                                                     "AllDayEvent false",
                                                     "RecurrenceType 1",
                                                     "PatternStartDate 46346.500000",
                                                     "NoEndDate true",
                                                     "StartTime 46346.500000",
                                                     "Duration 360",
                                                     "EndTime 46346.750000",
                                                     "Interval 1",
                                                     "DayOfWeekMask 32",
                                                     "DayOfMonth 20",
                                                     "Instance 3",
                                                     "MonthOfYear 11",
                                                     "Occurrences 10",
                                                     "NoEndDate true",
                                                     "RecurrenceType 1",
                                                     "Interval 2",
                                                     "DayOfWeekMask 34",
                                                     "DayOfMonth 20",
                                                     "Instance 3",
                                                     "MonthOfYear 11",
                                                     "NoEndDate false",
                                                     "Occurrences 4"}));
    });
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDCANCEL);
}

TEST_F(ToldStore, IsLetGoOfBeforeTheOwnerIsTold) {
    int references = -1;
    Desk.WhenTold = [&] { references = Item->References + Pattern->References; };
    Desk.Subject(u"Tea");
    Desk.Check([&] { EXPECT_GT(Item->References + Pattern->References, 0); });
    Desk.Ok();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDOK);
    EXPECT_EQ(references, 0);
}

} // namespace
} // namespace tavo::test
