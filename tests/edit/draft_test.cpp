// What an open editor holds is laid aside, and taken up again.
#include "edit/draft_file.h"
#include "tests/edit/edit_desk.h"

#include <gtest/gtest.h>

#include <functional>

namespace tavo::test {
namespace {

AppointmentDraft MakeDraft() {
    AppointmentDraft draft;
    draft.Mode = kModeAppointment;
    draft.Item = 33;
    draft.Opened.Subject = u"Old";
    draft.Opened.Start = {2026, 11, 0, 21, 9, 30, 0, 0};
    draft.Opened.End = {2026, 11, 0, 21, 10, 0, 0, 0};
    draft.Now = {u"New = \\ two\nlines \U0001F600",
                 {2026, 12, 0, 1, 8, 15, 30, 0},
                 {2027, 1, 0, 2, 23, 59, 59, 0},
                 true,
                 kChoiceCustom,
                 DraftRule{{kRecursMonthNth, 3, 62, 31, 5, 12}, RuleEnd::OnDate, 46400, 7},
                 true,
                 u"0090",
                 2,
                 u"bell.wav"};
    draft.Ink = u"20261121_093000.ink";
    return draft;
}

TEST(AppointmentDrafts, AreReadAsTheyWereWritten) {
    const AppointmentDraft draft = MakeDraft();
    EXPECT_EQ(DecodeDraft(EncodeDraft(draft)), draft);
    AppointmentDraft bare;
    EXPECT_EQ(DecodeDraft(EncodeDraft(bare)), bare);
    EXPECT_TRUE(draft.IsChanged());
    EXPECT_FALSE(bare.IsChanged());
}

TEST(AppointmentDrafts, OfAnEarlierProgramAreReadToo) {
    AppointmentDraft draft = MakeDraft();
    draft.Ink.clear();
    std::vector<std::uint8_t> bytes = EncodeDraft(draft);
    constexpr std::u16string_view newer = u"ink=\nend\n";
    constexpr std::u16string_view before = u"end\n";
    bytes.resize(bytes.size() - 2 * newer.size());
    for (const char16_t unit : before) {
        bytes.push_back(static_cast<std::uint8_t>(unit));
        bytes.push_back(0);
    }
    EXPECT_EQ(DecodeDraft(bytes), draft);
}

TEST(AppointmentDrafts, AnythingElseIsNone) {
    const std::vector<std::uint8_t> whole = EncodeDraft(MakeDraft());
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_EQ(DecodeDraft(std::span(whole).first(size)), std::nullopt) << size;
    }
    AppointmentDraft draft = MakeDraft();
    for (const std::int32_t mode : {-1, 8, 1000000}) {
        draft.Mode = mode;
        EXPECT_EQ(DecodeDraft(EncodeDraft(draft)), std::nullopt);
    }
    const std::vector<std::uint8_t> noise(1000, 0x3D);
    EXPECT_EQ(DecodeDraft(noise), std::nullopt);
}

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

    EditDesk Desk{At(2026, 11, 21, 9, 47)};
};

TEST_F(LaidAside, WithinASecondOfTyping) {
    Desk.Subject(u"Half a thou");
    Desk.Device.AdvanceClock(1000);
    Desk.Check([this] {
        ASSERT_EQ(Drafts().size(), 1U);
        EXPECT_EQ(Drafts().front().Draft.Now.Subject, u"Half a thou");
    });
    Desk.Subject(u"Half a thought");
    Desk.Device.AdvanceClock(1000);
    Desk.Check([this] {
        ASSERT_EQ(Drafts().size(), 1U);
        EXPECT_EQ(Drafts().front().Draft.Now.Subject, u"Half a thought");
    });
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDCANCEL);
    EXPECT_TRUE(Drafts().empty());
}

TEST_F(LaidAside, GoesWithOk) {
    Desk.Subject(u"Done");
    Desk.Device.AdvanceClock(1000);
    Desk.Ok();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDOK);
    EXPECT_TRUE(Drafts().empty());
}

// The lists take a while to follow: a crash meanwhile must not offer what is in the store already.
TEST_F(LaidAside, IsGoneBeforeTheOwnerIsToldOfTheSavedItem) {
    std::vector<FoundDraft> meanwhile(1);
    Desk.WhenTold = [&] { meanwhile = Drafts(); };
    Desk.Subject(u"Done");
    Desk.Device.AdvanceClock(1000);
    Desk.Ok();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDOK);
    EXPECT_TRUE(meanwhile.empty());
}

TEST_F(LaidAside, WhereNothingWasChangedNothingIs) {
    const Oid oid =
        Desk.GivenSeries(u"Yoga", At(2026, 11, 24, 18), At(2026, 11, 24, 19), kRecursWeekly,
                         [](IRecurrencePattern& pattern) { EXPECT_EQ(pattern.put_Interval(2), Status::Ok); });
    const auto expectNone = [this] {
        Desk.Device.AdvanceClock(2000);
        Desk.Check([this] { EXPECT_TRUE(Drafts().empty()); });
    };
    expectNone();
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDCANCEL);
    expectNone();
    Desk.Subject(u"Changed");
    Desk.Device.AdvanceClock(1000);
    Desk.Check([this] { EXPECT_EQ(Drafts().size(), 1U); });
    Desk.Subject(u"Yoga"); // as it was
    expectNone();
    EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), kLeftOpen);
    EXPECT_TRUE(Drafts().empty());
}

TEST_F(LaidAside, EverythingThatTheFormSaysAtTheProgramsEnd) {
    Desk.Subject(u"Trip");
    Desk.PickStartDate(2026, 12, 1);
    Desk.PickStartTime(8, 15);
    Desk.PickEndDate(2026, 12, 3);
    Desk.PickEndTime(23, 45);
    Desk.TapAllDay();
    Desk.ChooseRecurrence(kChoiceMonthly);
    Desk.ChooseReminder(true);
    Desk.TypeLead(u"7");
    Desk.ChooseLeadUnit(2);
    Desk.ChooseSound(u"chime.wav");
    const AppointmentDraft draft = QuitDuring([this] { return Desk.RunNew(kModeNewAppointment); });
    EXPECT_EQ(draft.Mode, kModeNewAppointment);
    EXPECT_EQ(draft.Item, 0);
    const FormValues expected{u"Trip",
                              {2026, 12, 0, 1, 8, 15, 0, 0},
                              {2026, 12, 0, 3, 23, 45, 0, 0},
                              true,
                              kChoiceMonthly,
                              std::nullopt,
                              true,
                              u"7",
                              2,
                              u"chime.wav"};
    EXPECT_EQ(draft.Now, expected);
}

TEST_F(LaidAside, IsTakenUpAndSavedAsItWasTyped) {
    Desk.Subject(u"Trip");
    Desk.PickStartDate(2026, 12, 1);
    Desk.PickEndDate(2026, 12, 3);
    Desk.ChooseRecurrence(kChoiceYearly);
    Desk.ChooseReminder(true);
    Desk.TypeLead(u"7");
    Desk.ChooseLeadUnit(2);
    Desk.ChooseSound(u"chime.wav");
    static_cast<void>(QuitDuring([this] { return Desk.RunNew(kModeNewAppointment); }));
    EditDesk later{At(2027, 3, 1, 12, 0)};
    const std::vector<FoundDraft> found = Drafts();
    ASSERT_EQ(found.size(), 1U);
    later.Continued = &found.front();
    later.Check([&later] { EXPECT_EQ(later.TextOf(kEditRecurrence), u"Dec. 1 of every year"); });
    later.Ok();
    ASSERT_EQ(later.RunNew(kModeNewAppointment), IDOK);
    const SavedItem saved = later.Read(later.LastSaved());
    EXPECT_EQ(saved.Subject, u"Trip");
    EXPECT_EQ(saved.Start, later.ToDate(At(2026, 12, 1, 9, 30)));
    EXPECT_EQ(saved.End, later.ToDate(At(2026, 12, 3, 9, 30)));
    EXPECT_EQ(saved.ReminderMinutes, 7 * 1440);
    EXPECT_EQ(saved.ReminderSound, u"chime.wav");
    EXPECT_EQ(later.ReadPattern(later.LastSaved()).Type, kRecursYearly);
}

TEST_F(LaidAside, OfAnExistingItemOnlyWhatWasChangedIsTakenUp) {
    const Oid oid = Desk.GivenAppointment(u"Call", At(2026, 11, 23, 9), At(2026, 11, 23, 10));
    Desk.PickEndTime(11, 30);
    const AppointmentDraft draft = QuitDuring([&] { return Desk.RunExisting(kModeAppointment, oid); });
    EXPECT_EQ(draft.Item, oid);
    EditDesk later{At(2026, 11, 22, 12, 0)};
    const Oid same = later.GivenAppointment(u"Renamed meanwhile", At(2026, 11, 23, 9), At(2026, 11, 23, 10));
    ASSERT_EQ(same, oid);
    const FoundDraft found{Drafts().front().Path, draft};
    later.Continued = &found;
    later.Ok();
    ASSERT_EQ(later.RunExisting(kModeAppointment, same), IDOK);
    EXPECT_EQ(later.Read(same).Subject, u"Renamed meanwhile");
    EXPECT_EQ(later.Read(same).Duration, 150);
}

TEST_F(LaidAside, ASoundThatIsGoneByThenLeavesTheOneOfTheItem) {
    const auto givenAlarm = [](EditDesk& desk) {
        return desk.GivenAppointment(u"Call", At(2026, 11, 23, 9), At(2026, 11, 23, 10), [](IAppointment& item) {
            EXPECT_EQ(item.put_ReminderSet(true), Status::Ok);
            EXPECT_EQ(item.put_ReminderSoundFile(u"bell.wav"), Status::Ok);
        });
    };
    const Oid oid = givenAlarm(Desk);
    Desk.ChooseSound(u"chime.wav");
    const AppointmentDraft draft = QuitDuring([&] { return Desk.RunExisting(kModeAppointment, oid); });
    EXPECT_EQ(draft.Now.Sound, u"chime.wav");
    EditDesk later{At(2026, 11, 22, 12, 0)};
    ASSERT_EQ(later.Device.Host().Files().DeleteFileW(u"\\Windows\\chime.wav"), ErrorCode::Success);
    const Oid same = givenAlarm(later);
    const FoundDraft found{u"\\Recovery\\x.draft", draft};
    later.Continued = &found;
    later.Check([&] { EXPECT_EQ(later.ValueOf(kEditSound), u"bell.wav"); });
    later.Ok();
    ASSERT_EQ(later.RunExisting(kModeAppointment, same), IDOK);
    EXPECT_EQ(later.Read(same).ReminderSound, u"bell.wav");
}

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

TEST_F(LaidAside, WhatIsNoDraftIsPutAway) {
    IFiles& files = Desk.Device.Host().Files();
    const std::vector<std::uint8_t> noise{1, 2, 3};
    static_cast<void>(files.CreateDirectoryW(u"\\Recovery"));
    ASSERT_EQ(files.WriteWholeFile(u"\\Recovery\\broken.draft", noise), ErrorCode::Success);
    EXPECT_TRUE(Drafts().empty());
    std::vector<std::uint8_t> bytes;
    EXPECT_NE(files.ReadWholeFile(u"\\Recovery\\broken.draft", bytes), ErrorCode::Success);
    ASSERT_EQ(files.ReadWholeFile(u"\\Recovery\\Declined\\broken.draft", bytes), ErrorCode::Success);
    EXPECT_EQ(bytes, noise);
}

} // namespace
} // namespace tavo::test
