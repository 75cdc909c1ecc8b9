// A rule of the wizard's that is laid aside with its editor, and taken up again.
#include "tests/edit/laid_aside.h"

namespace tavo::test {
namespace {

TEST_F(LaidAside, ARuleOfTheWizardIsTakenUpWithItsEnd) {
    GivenFourTimesEveryOtherWeek();
    const AppointmentDraft draft = QuitDuring([this] { return Desk.RunNew(kModeNewAppointment); });
    ASSERT_TRUE(draft.Now.Rule.has_value());
    EXPECT_EQ(draft.Now.Rule->End, RuleEnd::AfterCount);
    EditDesk later{At(2026, 11, 22, 12, 0)};
    const FoundDraft found{u"\\Recovery\\x.draft", draft};
    later.Continued = &found;
    later.Ok();
    ASSERT_EQ(later.RunNew(kModeNewAppointment), IDOK);
    const SavedPattern saved = later.ReadPattern(later.LastSaved());
    EXPECT_EQ(saved.Type, kRecursWeekly);
    EXPECT_FALSE(saved.NoEnd);
    EXPECT_EQ(saved.Occurrences, 4);
    EXPECT_EQ(saved.Interval, 2);
}

TEST_F(LaidAside, EveryEndOfARuleIsTakenUp) {
    AppointmentDraft draft;
    draft.Mode = kModeNewAppointment;
    draft.Now.Subject = u"Yoga";
    draft.Now.Start = {2026, 11, 0, 23, 9, 0, 0, 0}; // a Monday
    draft.Now.End = {2026, 11, 0, 23, 10, 30, 0, 0};
    draft.Now.Recurrence = kChoiceCustom;
    const auto lastDay = static_cast<std::int32_t>(Desk.ToDate(At(2026, 12, 28)));
    for (const RuleEnd end : {RuleEnd::Never, RuleEnd::OnDate, RuleEnd::AfterCount}) {
        draft.Now.Rule = DraftRule{{kRecursWeekly, 2, 2, 0, 0, 0}, end, lastDay, 4};
        const FoundDraft found{u"\\Recovery\\x.draft", draft};
        Desk.Continued = &found;
        Desk.Ok();
        ASSERT_EQ(Desk.RunNew(kModeNewAppointment), IDOK);
        const SavedPattern saved = Desk.ReadPattern(Desk.LastSaved());
        EXPECT_EQ(saved.Type, kRecursWeekly);
        EXPECT_EQ(saved.Interval, 2);
        EXPECT_EQ(saved.Mask, 2);
        EXPECT_EQ(saved.Start, Desk.ToDate(At(2026, 11, 23)));
        EXPECT_EQ(saved.Duration, 90);
        EXPECT_EQ(saved.NoEnd, end == RuleEnd::Never);
        if (end == RuleEnd::OnDate) {
            EXPECT_EQ(saved.End, Desk.ToDate(At(2026, 12, 28)));
        } else if (end == RuleEnd::AfterCount) {
            EXPECT_EQ(saved.Occurrences, 4);
        }
    }
}

TEST_F(LaidAside, AnotherCustomRuleOfACustomSeriesIsTakenUp) {
    const auto givenFortnight = [](EditDesk& desk) {
        return desk.GivenSeries(u"Yoga", At(2026, 11, 24, 18), At(2026, 11, 24, 19), kRecursWeekly,
                                [](IRecurrencePattern& pattern) { EXPECT_EQ(pattern.put_Interval(2), Status::Ok); });
    };
    const Oid oid = givenFortnight(Desk);
    Desk.ChooseRecurrence(kChoiceCustom);
    Desk.TypeIntoShown(kPatternWeekInterval, u"3");
    Desk.TapShown(kWizardNext);
    Desk.TapShown(kWizardNext);
    const AppointmentDraft draft = QuitDuring([&] { return Desk.RunExisting(kModeAppointment, oid); });
    const FoundDraft found{u"\\Recovery\\x.draft", draft};
    EditDesk later{At(2026, 11, 22, 12, 0)};
    ASSERT_EQ(givenFortnight(later), oid);
    later.Continued = &found;
    later.Ok();
    ASSERT_EQ(later.RunExisting(kModeAppointment, oid), IDOK);
    EXPECT_EQ(later.ReadPattern(oid).Interval, 3);
}

// For the case that the item is gone when the draft is taken up.
TEST_F(LaidAside, ACustomRuleIsSaidAsItIsStored) {
    for (const std::int32_t type :
         {kRecursDaily, kRecursWeekly, kRecursMonthly, kRecursMonthNth, kRecursYearly, kRecursYearNth}) {
        for (const bool isEndless : {true, false}) {
            const Oid oid = Desk.GivenSeries(u"Yoga", At(2026, 11, 24, 18), At(2026, 11, 24, 19), type,
                                             [isEndless](IRecurrencePattern& pattern) {
                                                 EXPECT_EQ(pattern.put_Interval(2), Status::Ok);
                                                 EXPECT_EQ(pattern.put_Occurrences(5), Status::Ok);
                                                 EXPECT_EQ(pattern.put_NoEndDate(isEndless), Status::Ok);
                                             });
            if (Desk.Load(oid).RecurChoice != kChoiceCustom) {
                continue; // an endless one of every second year is none
            }
            Desk.Subject(u"Talk");
            const AppointmentDraft draft = DraftDuring([&] { return Desk.RunExisting(kModeAppointment, oid); });
            ASSERT_TRUE(draft.Opened.Rule.has_value()) << type;
            EXPECT_EQ(draft.Opened.Rule->Rule.Type, type);
            EXPECT_EQ(draft.Opened.Rule->Rule.Interval, 2);
            EXPECT_EQ(draft.Opened.Rule->End, isEndless ? RuleEnd::Never : RuleEnd::AfterCount);
            EXPECT_EQ(draft.Now.Rule, draft.Opened.Rule);
            EXPECT_EQ(draft.Now.Recurrence, kChoiceCustom);
        }
    }
}

TEST_F(LaidAside, OfAnItemThatIsGoneIsWhatWasTypedThen) {
    const Oid oid = Desk.GivenAppointment(u"Yoga", At(2026, 11, 24, 18), At(2026, 11, 24, 19));
    const AppointmentData item = Desk.Load(oid);
    Desk.Delete(oid);
    FoundDraft found{u"\\Recovery\\x.draft", {}};
    found.Draft.Mode = kModeAppointment;
    found.Draft.Item = oid;
    found.Draft.Now.Recurrence = kChoiceCustom;
    found.Draft.Now.Rule = DraftRule{{kRecursWeekly, 2, 2, 0, 0, 0}, RuleEnd::Never, 0, 0};
    IFiles& files = Desk.Device.Host().Files();
    static_cast<void>(files.CreateDirectoryW(u"\\Recovery"));
    ASSERT_EQ(files.WriteWholeFile(found.Path, EncodeDraft(found.Draft)), ErrorCode::Success);
    Desk.Continued = &found;
    Desk.Subject(u"Pilates");
    const AppointmentDraft draft = DraftDuring([&] { return Desk.Run(kModeAppointment, item); });
    EXPECT_EQ(draft.Now.Subject, u"Pilates");
}

TEST_F(LaidAside, TheRuleOfAChoiceIsNotSaid) {
    const Oid oid = Desk.GivenSeries(u"Yoga", At(2026, 11, 24, 18), At(2026, 11, 24, 19), kRecursWeekly);
    Desk.Subject(u"Talk");
    const AppointmentDraft draft = QuitDuring([&] { return Desk.RunExisting(kModeAppointment, oid); });
    EXPECT_EQ(draft.Opened.Rule, std::nullopt);
    EXPECT_EQ(draft.Now.Rule, std::nullopt);
}

TEST_F(LaidAside, ARuleStaysWhileItsWizardIsOpenAgain) {
    GivenFourTimesEveryOtherWeek();
    Desk.ChooseRecurrence(kChoiceCustom);
    Desk.TypeIntoShown(kPatternWeekInterval, u"7");
    Desk.Device.AdvanceClock(1000);
    Desk.Check([this] {
        ASSERT_EQ(Drafts().size(), 1U);
        EXPECT_TRUE(Drafts().front().Draft.Now.Rule.has_value());
    });
    const AppointmentDraft draft = QuitDuring([this] { return Desk.RunNew(kModeNewAppointment); });
    EXPECT_EQ(draft.Now.Recurrence, kChoiceCustom);
    ASSERT_TRUE(draft.Now.Rule.has_value());
    EXPECT_EQ(draft.Now.Rule->Rule.Interval, 2);
    EXPECT_EQ(draft.Now.Rule->End, RuleEnd::AfterCount);
    EXPECT_EQ(draft.Now.Rule->Occurrences, 4);
}

TEST_F(LaidAside, AnOpenWizardHasChosenNothingYet) {
    Desk.Subject(u"Yoga");
    Desk.ChooseRecurrence(kChoiceCustom);
    Desk.Device.AdvanceClock(1000);
    Desk.Check([this] {
        ASSERT_EQ(Drafts().size(), 1U);
        EXPECT_EQ(Drafts().front().Draft.Now.Recurrence, kChoiceOnce);
    });
    Desk.TapShown(IDCANCEL);
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDCANCEL);
}

} // namespace
} // namespace tavo::test
