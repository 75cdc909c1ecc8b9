// What an item has and the form cannot show outlives every edit of it.
#include "host/outlook/import_writer.h"
#include "host/outlook/store.h"
#include "host/rules/stored_item.h"
#include "tests/edit/edit_desk.h"
#include "tests/support/store_of.h"

#include <gtest/gtest.h>

namespace tavo::test {
namespace {

using rules::StoredItem;

constexpr std::int32_t kExistingModes[] = {kModeAlarm, kModeHoliday, kModeAnniversary, kModeAppointment};
constexpr std::int32_t kOwnReminderOptions = kReminderVibrate | kReminderDialog;

class HiddenProperties : public testing::Test {
  protected:
    outlook::StorePtr Store() { return outlook::StoreOf(*Desk.State.Store.OutlookApp); }

    Oid Import(const StoredItem& item) {
        outlook::ImportWriter writer(Store());
        outlook::ImportOutcome outcome;
        EXPECT_EQ(writer.Begin(u"import"), Status::Ok);
        EXPECT_EQ(writer.Write(item, outcome), Status::Ok);
        EXPECT_EQ(writer.Commit(), Status::Ok);
        EXPECT_EQ(outcome.Result, outlook::ImportResult::New) << outcome.Reason;
        return outcome.Item;
    }

    StoredItem Whole(Oid oid) {
        StoredItem item;
        EXPECT_EQ(Store()->ReadItem(oid, item), Status::Ok);
        return item;
    }

    // Saves with another subject, which every form has.
    void Rename(std::int32_t mode, Oid oid) {
        Desk.Subject(u"Renamed");
        Desk.Ok();
        EXPECT_EQ(Desk.RunExisting(mode, oid), IDOK);
        EXPECT_TRUE(Desk.Messages().empty());
    }

    EditDesk Desk{At(2026, 11, 21, 9, 47)}; // a Saturday
};

// Differs from a fresh item in every property. The times are those that the kind gives its items.
StoredItem MakeRichItem(ItemKind kind) {
    StoredItem item;
    item.Uid = "rich-" + std::to_string(static_cast<int>(kind));
    item.Subject = u"Rich";
    item.Location = u"Room 7";
    item.Categories = u"Work, Travel";
    item.Body = u"Bring the map.\nAnd the key.";
    item.Zone = "America/New_York";
    item.ZoneStart = rules::MakeTime(2026, 11, 30, 9, 0); // a Monday
    item.ZoneEnd = item.ZoneStart;
    if (kind == ItemKind::Appointment) {
        item.ZoneEnd = rules::MakeTime(2026, 11, 30, 10, 45, 30);
    } else if (IsDayKind(kind)) {
        item.Zone = "";
        item.Start = rules::MakeTime(2026, 11, 30);
        item.End = item.Start;
        item.AllDay = true;
    }
    item.BusyStatus = kBusyOutOfOffice;
    item.Sensitivity = kSensitivityPrivate;
    item.ReminderSet = true;
    item.ReminderMinutes = kind == ItemKind::Alarm ? 0 : 90;
    item.ReminderOptions = kOwnReminderOptions | kReminderSound;
    item.ReminderSound = u"elsewhere.wav";
    item.Pattern.Type = kRecursDaily;
    item.Pattern.DayOfWeekMask = kWeekdaysMask;
    item.Pattern.DayOfMonth = 3;
    item.Pattern.Instance = 2;
    item.Pattern.MonthOfYear = 4;
    const rules::Seconds first = item.Zone.empty() ? item.Start : item.ZoneStart;
    const rules::Seconds moved = first + 2 * rules::kSecondsPerDay;
    rules::StoredException cancelled;
    cancelled.Original = first + rules::kSecondsPerDay;
    item.Exceptions.push_back(cancelled);
    item.Exceptions.push_back(
        {moved, rules::ExceptionKind::Moved, moved + 3600, moved + 7200, u"Moved", u"Room 8", "", 0});
    item.Carried = "URL:https://example.org";
    item.Exceptions.back().Carried = "COMMENT:once";
    item.Ink = {0xF7, 1, 2, 3};
    return item;
}

TEST_F(HiddenProperties, EveryPropertyOutlivesANewSubjectInEveryMode) {
    for (const std::int32_t mode : kExistingModes) {
        SCOPED_TRACE(mode);
        const Oid oid = Import(MakeRichItem(KindOfMode(mode)));
        StoredItem expected = Whole(oid);
        // Each of them, by name: a new property of the store has to be given a value above.
        const auto& [id, uid, subject, location, categories, body, start, end, zone, zoneStart, zoneEnd, allDay, busy,
                     sensitivity, reminderSet, minutes, options, sound, pattern, foreignRule, exceptions, carried,
                     ink] = expected;
        ASSERT_TRUE(id != 0 && !uid.empty() && !location.empty() && !categories.empty() && !body.empty());
        ASSERT_TRUE(start != 0 && end != 0 && reminderSet && options != 0 && !sound.empty() && !ink.empty());
        ASSERT_TRUE(allDay || (!zone.empty() && zoneStart != start && zoneEnd != end));
        ASSERT_TRUE(busy != kBusyBusy && sensitivity != kSensitivityNormal && pattern.Type != kRecursOnce);
        ASSERT_TRUE(foreignRule.empty() && exceptions.size() == 2U && !carried.empty() &&
                    (minutes != 0 || mode == kModeAlarm));
        Rename(mode, oid);
        expected.Subject = u"Renamed";
        EXPECT_EQ(Whole(oid), expected);
    }
}

TEST_F(HiddenProperties, EverySingleItemKeepsThemToo) {
    for (const std::int32_t mode : kExistingModes) {
        SCOPED_TRACE(mode);
        StoredItem item = MakeRichItem(KindOfMode(mode));
        item.Pattern = {};
        item.Exceptions.clear();
        const Oid oid = Import(item);
        StoredItem expected = Whole(oid);
        Rename(mode, oid);
        expected.Subject = u"Renamed";
        EXPECT_EQ(Whole(oid), expected);
    }
}

TEST_F(HiddenProperties, ARuleOfAnotherCalendarOutlivesEveryMode) {
    for (const std::int32_t mode : kExistingModes) {
        SCOPED_TRACE(mode);
        StoredItem item = MakeRichItem(KindOfMode(mode));
        item.Pattern = {};
        item.Pattern.Type = kRecursForeign;
        item.ForeignRule = "RRULE:FREQ=MONTHLY;BYDAY=MO,TU;BYSETPOS=2";
        const Oid oid = Import(item);
        StoredItem expected = Whole(oid);
        ASSERT_FALSE(expected.ForeignRule.empty());
        Rename(mode, oid);
        expected.Subject = u"Renamed";
        EXPECT_EQ(Whole(oid), expected);
    }
}

TEST_F(HiddenProperties, ARuleOfAnotherCalendarIsNoneThatADraftCouldSay) {
    StoredItem item = MakeRichItem(ItemKind::Appointment);
    item.Pattern = {};
    item.Pattern.Type = kRecursForeign;
    item.ForeignRule = "RRULE:FREQ=MONTHLY;BYDAY=MO,TU;BYSETPOS=2";
    const Oid oid = Import(item);
    Desk.Subject(u"Renamed");
    Desk.Device.AdvanceClock(1000);
    Desk.Check([this] {
        const std::vector<FoundDraft> drafts = FindDrafts(Desk.Device.Host());
        ASSERT_EQ(drafts.size(), 1U);
        EXPECT_EQ(drafts[0].Draft.Opened.Recurrence, kChoiceCustom);
        EXPECT_EQ(drafts[0].Draft.Opened.Rule, std::nullopt);
    });
    Desk.Cancel();
    EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), IDCANCEL);
}

TEST_F(HiddenProperties, OneStepTakesTheEditBackWhole) {
    const Oid oid = Import(MakeRichItem(ItemKind::Appointment));
    const StoredItem before = Whole(oid);
    Rename(kModeAppointment, oid);
    std::vector<Oid> restored;
    ASSERT_EQ(Desk.State.Store.OutlookApp->Undo(restored), Status::Ok);
    EXPECT_EQ(Whole(oid), before);
    std::u16string next;
    ASSERT_EQ(Desk.State.Store.OutlookApp->GetUndoName(next), Status::Ok);
    EXPECT_EQ(next, u"import");
}

TEST_F(HiddenProperties, WhatAnotherProcessGaveTheItemMeanwhileStays) {
    const Oid oid = Desk.GivenAppointment(u"Call", At(2026, 11, 23, 9), At(2026, 11, 23, 10));
    Desk.Check([&] {
        ComPtr<IAppointment> item;
        ASSERT_EQ(Desk.Connect()->GetItemFromOid(oid, item), Status::Ok);
        ASSERT_EQ(item->put_Location(u"Room 9"), Status::Ok);
        ASSERT_EQ(item->Save(), Status::Ok);
    });
    Rename(kModeAppointment, oid);
    EXPECT_EQ(Whole(oid).Location, u"Room 9");
    EXPECT_EQ(Whole(oid).Subject, u"Renamed");
}

TEST_F(HiddenProperties, ASubjectThatItsRowCannotHoldStaysWhole) {
    const std::u16string longSubject(1000, u'x');
    for (const std::u16string& subject : {longSubject, std::u16string(u"Two\nlines")}) {
        const Oid oid = Desk.GivenAppointment(subject, At(2026, 11, 23, 9), At(2026, 11, 23, 10));
        Desk.PickEndTime(11, 0);
        Desk.Ok();
        EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), IDOK);
        EXPECT_EQ(Whole(oid).Subject, subject);
        EXPECT_EQ(Desk.Read(oid).Duration, 120);
    }
}

TEST_F(HiddenProperties, ASubjectThatWasTypedIsTheNewOne) {
    const Oid oid = Desk.GivenAppointment(std::u16string(1000, u'x'), At(2026, 11, 23, 9), At(2026, 11, 23, 10));
    Rename(kModeAppointment, oid);
    EXPECT_EQ(Whole(oid).Subject, u"Renamed");
}

TEST_F(HiddenProperties, ASoundThatIsNotInTheFolderGoesOnlyWhenAnotherIsChosen) {
    StoredItem item = MakeRichItem(ItemKind::Appointment);
    const Oid oid = Import(item);
    Desk.ChooseSound(u"bell.wav");
    Desk.Ok();
    ASSERT_EQ(Desk.RunExisting(kModeAppointment, oid), IDOK);
    EXPECT_EQ(Whole(oid).ReminderSound, u"bell.wav");
    EXPECT_EQ(Whole(oid).ReminderOptions, kOwnReminderOptions | kReminderSound);
    Desk.ChooseSound(u"Sound off");
    Desk.Ok();
    ASSERT_EQ(Desk.RunExisting(kModeAppointment, oid), IDOK);
    EXPECT_EQ(Whole(oid).ReminderSound, u"");
    EXPECT_EQ(Whole(oid).ReminderOptions, kOwnReminderOptions);
}

// A series may start before its first day, and the choice says the start's day only.
TEST_F(HiddenProperties, ARuleThatItsChoiceDoesNotSayWholeStays) {
    const Oid oid =
        Desk.GivenSeries(u"Rent", At(2026, 11, 5, 9), At(2026, 11, 5, 10), kRecursMonthly,
                         [](IRecurrencePattern& pattern) { ASSERT_EQ(pattern.put_DayOfMonth(28), Status::Ok); });
    ASSERT_EQ(Desk.Load(oid).RecurChoice, kChoiceMonthly);
    Rename(kModeAppointment, oid);
    EXPECT_EQ(Whole(oid).Pattern.DayOfMonth, 28);
    Desk.PickStartDate(2026, 11, 6);
    Rename(kModeAppointment, oid);
    EXPECT_EQ(Whole(oid).Pattern.DayOfMonth, 6); // moved to another day, it follows it
}

TEST_F(HiddenProperties, ARuleThatAnotherProcessChangedWhileTheWizardWasOpenIsTheStoredOne) {
    const auto recurOn = [](std::int32_t day) {
        return [day](IRecurrencePattern& pattern) { ASSERT_EQ(pattern.put_DayOfMonth(day), Status::Ok); };
    };
    const Oid oid = Desk.GivenSeries(u"Rent", At(2026, 11, 5, 9), At(2026, 11, 5, 10), kRecursMonthly, recurOn(28));
    Desk.ChooseRecurrence(kChoiceCustom);
    Desk.Check([&] {
        ComPtr<IAppointment> item;
        ComPtr<IRecurrencePattern> pattern;
        ASSERT_EQ(Desk.Connect()->GetItemFromOid(oid, item), Status::Ok);
        ASSERT_EQ(item->GetRecurrencePattern(pattern), Status::Ok);
        recurOn(27)(*pattern);
        ASSERT_EQ(item->Save(), Status::Ok);
    });
    Desk.TapShown(IDCANCEL);
    Rename(kModeAppointment, oid);
    EXPECT_EQ(Whole(oid).Pattern.DayOfMonth, 27);
}

TEST_F(HiddenProperties, AReminderThatTheItemHadNotIsALightADialogAndRepeats) {
    const Oid oid = Desk.GivenAppointment(u"Call", At(2026, 11, 23, 9), At(2026, 11, 23, 10), [](IAppointment& item) {
        EXPECT_EQ(item.put_ReminderOptions(kReminderVibrate), Status::Ok);
        EXPECT_EQ(item.put_ReminderSoundFile(u"elsewhere.wav"), Status::Ok);
    });
    Desk.ChooseReminder(true);
    Rename(kModeAppointment, oid);
    EXPECT_EQ(Whole(oid).ReminderOptions, 21);
    EXPECT_EQ(Whole(oid).ReminderSound, u"");
}

TEST_F(HiddenProperties, WhatIsChosenIsWrittenOverTheStoredRule) {
    const Oid oid = Import(MakeRichItem(ItemKind::Appointment));
    Desk.ChooseRecurrence(kChoiceWeekly);
    Rename(kModeAppointment, oid);
    EXPECT_EQ(Whole(oid).Pattern.Type, kRecursWeekly);
    EXPECT_EQ(Whole(oid).Pattern.DayOfWeekMask, 2);
    EXPECT_TRUE(Whole(oid).Exceptions.empty());
}

} // namespace
} // namespace tavo::test
