// What an open editor holds is laid aside, and taken up again.
#include "tests/edit/laid_aside.h"

namespace tavo::test {
namespace {

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
    Desk.TapAllDay();
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
    later.Check([&later] {
        EXPECT_EQ(later.TextOf(kEditRecurrence), u"Dec. 1 of every year");
        for (const int control : {kEditReminderValue, kEditReminderUnit, kEditSound, kEditPreview}) {
            EXPECT_TRUE(later.Device.Host().Windows().IsWindowEnabled(later.Device.See.Control(control))) << control;
        }
    });
    later.Ok();
    ASSERT_EQ(later.RunNew(kModeNewAppointment), IDOK);
    const SavedItem saved = later.Read(later.LastSaved());
    EXPECT_EQ(saved.Subject, u"Trip");
    EXPECT_EQ(saved.Start, later.ToDate(At(2026, 12, 1, 9, 30)));
    EXPECT_EQ(saved.End, later.ToDate(At(2026, 12, 3, 9, 30)));
    EXPECT_TRUE(saved.AllDay);
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

// Also what nobody had touched: the later editor would begin with other values.
TEST_F(LaidAside, OfANewItemEveryValueIsTakenUp) {
    Desk.Subject(u"Tea");
    const AppointmentDraft draft = QuitDuring([this] { return Desk.RunNew(kModeNewAppointment); });
    EditDesk later{At(2027, 3, 1, 12, 0)};
    const FoundDraft found{u"\\Recovery\\x.draft", draft};
    later.Continued = &found;
    later.Ok();
    ASSERT_EQ(later.RunNew(kModeNewAppointment), IDOK);
    EXPECT_EQ(later.Read(later.LastSaved()).Start, later.ToDate(At(2026, 11, 21, 9, 30)));
    EXPECT_EQ(later.Read(later.LastSaved()).End, later.ToDate(At(2026, 11, 21, 9, 30)));
}

TEST_F(LaidAside, OfAnExistingItemEveryChangeIsTakenUp) {
    const auto givenCall = [](EditDesk& desk) {
        return desk.GivenAppointment(u"Call", At(2026, 11, 23, 9), At(2026, 11, 23, 10), [](IAppointment& item) {
            EXPECT_EQ(item.put_ReminderSet(true), Status::Ok);
            EXPECT_EQ(item.put_ReminderMinutesBeforeStart(5), Status::Ok);
        });
    };
    const Oid oid = givenCall(Desk);
    const std::pair<std::function<void()>, std::int32_t> leads[] = {{[this] { Desk.TypeLead(u"7"); }, 7},
                                                                    {[this] { Desk.ChooseLeadUnit(1); }, 300}};
    for (const auto& [change, minutes] : leads) {
        Desk.Subject(u"Talk");
        Desk.PickStartTime(8, 0);
        Desk.TapAllDay();
        Desk.ChooseRecurrence(kChoiceMonthly);
        change();
        const AppointmentDraft draft = DraftDuring([&] { return Desk.RunExisting(kModeAppointment, oid); });
        const FoundDraft found{u"\\Recovery\\x.draft", draft};
        EditDesk later{At(2026, 11, 22, 12, 0)};
        ASSERT_EQ(givenCall(later), oid);
        later.Continued = &found;
        later.Ok();
        ASSERT_EQ(later.RunExisting(kModeAppointment, oid), IDOK);
        const SavedItem saved = later.Read(oid);
        EXPECT_EQ(saved.Subject, u"Talk");
        EXPECT_EQ(saved.Duration, 120);
        EXPECT_TRUE(saved.AllDay);
        EXPECT_EQ(saved.ReminderMinutes, minutes);
        EXPECT_EQ(later.ReadPattern(oid).Type, kRecursMonthly);
    }
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

TEST_F(LaidAside, IsWrittenOnWhereItWasFoundAndGoesWithOk) {
    AppointmentDraft draft;
    draft.Mode = kModeNewAppointment;
    draft.Now.Subject = u"Tea";
    draft.Now.Start = {2026, 11, 0, 23, 9, 0, 0, 0};
    draft.Now.End = draft.Now.Start;
    const FoundDraft found{u"\\Recovery\\x.draft", draft};
    IFiles& files = Desk.Device.Host().Files();
    static_cast<void>(files.CreateDirectoryW(u"\\Recovery"));
    ASSERT_EQ(files.WriteWholeFile(found.Path, EncodeDraft(draft)), ErrorCode::Success);
    Desk.Continued = &found;
    Desk.Subject(u"Tea and cake");
    Desk.Device.AdvanceClock(1000);
    Desk.Check([this, &found] {
        ASSERT_EQ(Drafts().size(), 1U);
        EXPECT_EQ(Drafts().front().Path, found.Path);
        EXPECT_EQ(Drafts().front().Draft.Now.Subject, u"Tea and cake");
    });
    Desk.Ok();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDOK);
    EXPECT_TRUE(Drafts().empty());
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
