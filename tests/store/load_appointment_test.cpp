// Copying an appointment into a record.
#include "store/outlook_session.h"

#include "host/outlook/import_writer.h"
#include "host/outlook/store.h"
#include "host/rules/wall_time.h"
#include "store/fill_record.h"
#include "tests/support/appointment_probe.h"
#include "tests/support/store_of.h"
#include "tests/support/test_device.h"

#include <gtest/gtest.h>

#include <functional>

namespace tavo {

namespace {

using test::At;
using test::TestDevice;

constexpr std::int32_t kMonday = 2;
constexpr std::int32_t kThursday = 16;

// 3 May 2004 is a Monday.
class LoadAppointment : public testing::Test {
  protected:
    LoadAppointment() { EXPECT_TRUE(Session.OpenStore()); }

    // Loads into a fresh record.
    AppointmentData Load(Oid oid) {
        AppointmentData record;
        EXPECT_EQ(Session.LoadAppointment(oid, record), oid);
        return record;
    }

    AppointmentData LoadOneHour(const SYSTEMTIME& start, const std::function<void(IAppointment&)>& arrange = {}) {
        SYSTEMTIME end = start;
        ++end.Hour;
        return Load(Device.GivenAppointment(u"Dentist", start, end, arrange));
    }

    // A weekly, daily, ... series that begins on Monday, 3 May 2004.
    AppointmentData LoadSeries(std::int32_t type, const std::function<void(IRecurrencePattern&)>& arrange = {}) {
        return Load(Device.GivenSeries(u"Standup", At(2004, 5, 3, 9, 0), At(2004, 5, 3, 9, 15), type, arrange));
    }

    TestDevice Device;
    OutlookSession Session{Device.Pump};
};

void Put(Status status) {
    EXPECT_EQ(status, Status::Ok);
}

TEST_F(LoadAppointment, AMissingOneGivesZeroAndLeavesTheRecordAlone) {
    AppointmentData record;
    record.Subject = u"Before";
    record.Oid = 12;
    record.Mark = 5;
    record.AllDay = true;
    const AppointmentData before = record;
    EXPECT_EQ(Session.LoadAppointment(4711, record), 0);
    EXPECT_EQ(record, before);
    EXPECT_EQ(Session.LastStoreResult, Status::NotFound);
}

TEST_F(LoadAppointment, WhileTheStoreIsNotOpenGivesZero) {
    OutlookSession closed(Device.Pump);
    AppointmentData record;
    EXPECT_EQ(closed.LoadAppointment(1, record), 0);
    EXPECT_EQ(closed.LastStoreResult, Status::Unexpected);
}

TEST_F(LoadAppointment, TextsAndTimes) {
    const AppointmentData record = LoadOneHour(At(2004, 5, 3, 9, 30), [](IAppointment& item) {
        Put(item.put_Location(u"Main Street"));
        Put(item.put_Categories(u"Health"));
    });
    EXPECT_EQ(record.Subject, u"Dentist");
    EXPECT_EQ(record.Location, u"Main Street");
    EXPECT_EQ(record.Categories, u"Health");
    EXPECT_EQ(record.Start, (SYSTEMTIME{2004, 5, 1, 3, 9, 30, 0, 0}));
    EXPECT_EQ(record.End, (SYSTEMTIME{2004, 5, 1, 3, 10, 30, 0, 0}));
    EXPECT_EQ(record.Mark, 0);
}

TEST_F(LoadAppointment, SpareFieldsStayAsTheyWere) {
    const Oid oid = Device.GivenAppointment(u"Dentist", At(2004, 5, 3, 9, 0), At(2004, 5, 3, 10, 0));
    AppointmentData record;
    record.SpareText = u"kept";
    record.SpareWord = 77;
    record.Mark = 9;
    EXPECT_EQ(Session.LoadAppointment(oid, record), oid);
    EXPECT_EQ(record.SpareText, u"kept");
    EXPECT_EQ(record.SpareWord, 77);
    EXPECT_EQ(record.Mark, 0);
}

TEST_F(LoadAppointment, WithAReminder) {
    const AppointmentData record = LoadOneHour(At(2004, 5, 3, 9, 0), [](IAppointment& item) {
        Put(item.put_ReminderSet(true));
        Put(item.put_ReminderMinutesBeforeStart(90));
        Put(item.put_ReminderOptions(29));
        Put(item.put_ReminderSoundFile(u"Alarm1.wav"));
    });
    EXPECT_TRUE(record.HasReminder);
    EXPECT_EQ(record.ReminderSound, u"Alarm1.wav");
    EXPECT_EQ(record.ReminderMinutes, 90);
}

TEST_F(LoadAppointment, WithoutAReminderThereIsNoSoundAndNoLead) {
    const Oid oid = Device.GivenAppointment(u"Dentist", At(2004, 5, 3, 9, 0), At(2004, 5, 3, 10, 0),
                                            [](IAppointment& item) { Put(item.put_ReminderSet(false)); });
    AppointmentData record;
    record.HasReminder = true;
    record.ReminderSound = u"old.wav";
    record.ReminderMinutes = 15;
    EXPECT_EQ(Session.LoadAppointment(oid, record), oid);
    EXPECT_FALSE(record.HasReminder);
    EXPECT_EQ(record.ReminderSound, u"");
    EXPECT_EQ(record.ReminderMinutes, 0);
}

TEST_F(LoadAppointment, ReminderPropertiesCountOnlyWhileTheReminderIsSet) {
    const AppointmentData record = LoadOneHour(At(2004, 5, 3, 9, 0), [](IAppointment& item) {
        Put(item.put_ReminderSet(false));
        Put(item.put_ReminderMinutesBeforeStart(90));
        Put(item.put_ReminderSoundFile(u"Alarm1.wav"));
    });
    EXPECT_EQ(record.ReminderSound, u"");
    EXPECT_EQ(record.ReminderMinutes, 0);
}

TEST_F(LoadAppointment, PrivateAndAllDay) {
    const AppointmentData plain = LoadOneHour(At(2004, 5, 3, 9, 0));
    EXPECT_FALSE(plain.IsPrivate);
    EXPECT_FALSE(plain.AllDay);
    const AppointmentData secret = LoadOneHour(At(2004, 5, 3, 9, 0), [](IAppointment& item) {
        Put(item.put_Sensitivity(kSensitivityPrivate));
        Put(item.put_AllDayEvent(true));
    });
    EXPECT_TRUE(secret.IsPrivate);
    EXPECT_TRUE(secret.AllDay);
}

TEST_F(LoadAppointment, AnySensitivityButTheNormalOneIsPrivate) {
    for (const std::int32_t sensitivity : {1, 2, 3, -1}) {
        const AppointmentData record = LoadOneHour(
            At(2004, 5, 3, 9, 0), [sensitivity](IAppointment& item) { Put(item.put_Sensitivity(sensitivity)); });
        EXPECT_TRUE(record.IsPrivate) << sensitivity;
    }
}

TEST_F(LoadAppointment, ASeriesWhosePatternCannotBeHadStaysASeries) {
    const Oid oid = Device.GivenSeries(u"Standup", At(2004, 5, 20, 9, 0), At(2004, 5, 20, 9, 15), kRecursDaily);
    ComPtr<IAppointment> item;
    Put(Session.OutlookApp->GetItemFromOid(oid, item));
    test::AppointmentProbe probe(*item);
    AppointmentData record;
    FillRecord(probe, Device.Host.Locale(), record);
    EXPECT_EQ(record.RecurType, kRecursDaily); // it is not the probe that hides it
    probe.HidesPattern = true;
    FillRecord(probe, Device.Host.Locale(), record);
    EXPECT_EQ(record.RecurType, 7);
    probe.PatternResult = Status::Fail;
    record.Interval = 9;
    FillRecord(probe, Device.Host.Locale(), record);
    EXPECT_EQ(record.Oid, oid);
    EXPECT_EQ(record.Subject, u"Standup");
    EXPECT_TRUE(record.IsRecurring);
    EXPECT_EQ(record.RecurChoice, 8);
    EXPECT_EQ(record.RecurType, 7);
    EXPECT_EQ(record.DayOfWeekMask, kThursday);
    EXPECT_EQ(record.Interval, 1);
    EXPECT_EQ(record.DayOfMonth, 20);
    EXPECT_EQ(record.Instance, 2);
    EXPECT_EQ(record.MonthOfYear, 5);
}

TEST_F(LoadAppointment, ARuleThatIsNoneOfTheSixTypesIsACustomChoice) {
    const ComPtr<IPOutlookApp> other = Device.Connect();
    rules::StoredItem item;
    item.Subject = u"Standup";
    item.Start = rules::MakeTime(2004, 5, 3, 9);
    item.End = item.Start + 900;
    item.Pattern.Type = kRecursForeign;
    item.ForeignRule = "RRULE:FREQ=MONTHLY;BYDAY=1MO,3MO";
    outlook::ImportWriter writer(outlook::StoreOf(*other));
    outlook::ImportOutcome outcome;
    Put(writer.Begin(u"given"));
    Put(writer.Write(item, outcome));
    Put(writer.Commit());
    const AppointmentData record = Load(outcome.Item);
    EXPECT_TRUE(record.IsRecurring);
    EXPECT_EQ(record.RecurChoice, 8);
}

TEST_F(LoadAppointment, WhatARecordHeldBeforeIsCleared) {
    const Oid oid = Device.GivenAppointment(u"Dentist", At(2004, 5, 3, 9, 0), At(2004, 5, 3, 10, 0));
    AppointmentData record;
    record.IsRecurring = true;
    record.IsPrivate = true;
    record.AllDay = true;
    EXPECT_EQ(Session.LoadAppointment(oid, record), oid);
    EXPECT_FALSE(record.IsRecurring);
    EXPECT_FALSE(record.IsPrivate);
    EXPECT_FALSE(record.AllDay);
}

TEST_F(LoadAppointment, OneThatDoesNotRecurIsDescribedByItsStart) {
    const AppointmentData record = LoadOneHour(At(2004, 5, 20, 9, 0)); // a Thursday
    EXPECT_FALSE(record.IsRecurring);
    EXPECT_EQ(record.RecurChoice, 0);
    EXPECT_EQ(record.RecurType, -1);
    EXPECT_EQ(record.DayOfWeekMask, kThursday);
    EXPECT_EQ(record.Interval, 1);
    EXPECT_EQ(record.DayOfMonth, 20);
    EXPECT_EQ(record.MonthOfYear, 5);
}

TEST_F(LoadAppointment, OneThatDoesNotRecurCountsItsWeekOfTheMonthFromZero) {
    EXPECT_EQ(LoadOneHour(At(2004, 5, 1, 9, 0)).Instance, 0);
    EXPECT_EQ(LoadOneHour(At(2004, 5, 7, 9, 0)).Instance, 0);
    EXPECT_EQ(LoadOneHour(At(2004, 5, 8, 9, 0)).Instance, 1);
    EXPECT_EQ(LoadOneHour(At(2004, 5, 31, 9, 0)).Instance, 4);
}

TEST_F(LoadAppointment, EndlessQuickChoicesAreRecognised) {
    EXPECT_EQ(LoadSeries(kRecursDaily).RecurChoice, 1);
    EXPECT_EQ(LoadSeries(kRecursWeekly).RecurChoice, 2);
    EXPECT_EQ(LoadSeries(kRecursMonthly).RecurChoice, 4);
    EXPECT_EQ(LoadSeries(kRecursMonthNth).RecurChoice, 5);
    EXPECT_EQ(LoadSeries(kRecursYearly).RecurChoice, 6);
    EXPECT_EQ(LoadSeries(kRecursYearNth).RecurChoice, 7);
}

TEST_F(LoadAppointment, ThePatternIsCopied) {
    const AppointmentData record = LoadSeries(kRecursMonthNth, [](IRecurrencePattern& pattern) {
        Put(pattern.put_Interval(3));
        Put(pattern.put_DayOfWeekMask(kThursday));
        Put(pattern.put_Instance(2));
    });
    EXPECT_TRUE(record.IsRecurring);
    EXPECT_EQ(record.RecurType, 3);
    EXPECT_EQ(record.Interval, 3);
    EXPECT_EQ(record.DayOfWeekMask, kThursday);
    EXPECT_EQ(record.Instance, 2);
}

TEST_F(LoadAppointment, DayAndMonthOfThePatternAreCopied) {
    const AppointmentData record = LoadSeries(kRecursYearly, [](IRecurrencePattern& pattern) {
        Put(pattern.put_DayOfMonth(25));
        Put(pattern.put_MonthOfYear(12));
    });
    EXPECT_EQ(record.DayOfMonth, 25);
    EXPECT_EQ(record.MonthOfYear, 12);
}

TEST_F(LoadAppointment, MondayToFridayWithoutAnEndIsTheWeekdayChoice) {
    const auto weekdays = [](IRecurrencePattern& pattern) { Put(pattern.put_DayOfWeekMask(62)); };
    EXPECT_EQ(LoadSeries(kRecursWeekly, weekdays).RecurChoice, 3);
    EXPECT_EQ(LoadSeries(kRecursWeekly, weekdays).DayOfWeekMask, 62);
    EXPECT_EQ(LoadSeries(kRecursDaily, weekdays).RecurChoice, 3);
}

TEST_F(LoadAppointment, AMonthNthPatternOnAllWeekdaysIsNotTheWeekdayChoice) {
    const auto weekdays = [](IRecurrencePattern& pattern) { Put(pattern.put_DayOfWeekMask(62)); };
    EXPECT_EQ(LoadSeries(kRecursMonthNth, weekdays).RecurChoice, 5);
}

TEST_F(LoadAppointment, AnEndDateMakesACustomChoice) {
    const auto ends = [](IRecurrencePattern& pattern) {
        Put(pattern.put_NoEndDate(false));
        Put(pattern.put_Occurrences(10));
    };
    EXPECT_EQ(LoadSeries(kRecursDaily, ends).RecurChoice, 8);
    EXPECT_EQ(LoadSeries(kRecursYearly, ends).RecurChoice, 8);
    EXPECT_EQ(LoadSeries(kRecursWeekly,
                         [&](IRecurrencePattern& pattern) {
                             Put(pattern.put_DayOfWeekMask(62));
                             ends(pattern);
                         })
                  .RecurChoice,
              8);
}

TEST_F(LoadAppointment, AnIntervalAboveOneMakesACustomChoice) {
    EXPECT_EQ(LoadSeries(kRecursWeekly, [](IRecurrencePattern& pattern) { Put(pattern.put_Interval(2)); }).RecurChoice,
              8);
}

TEST_F(LoadAppointment, OfEveryTypeAnIntervalAboveOneMakesACustomChoiceWithItsOwnMask) {
    for (const std::int32_t type :
         {kRecursDaily, kRecursWeekly, kRecursMonthly, kRecursMonthNth, kRecursYearly, kRecursYearNth}) {
        for (const std::int32_t interval : {2, 5, 999}) {
            const AppointmentData record = LoadSeries(type, [interval](IRecurrencePattern& pattern) {
                Put(pattern.put_Interval(interval));
                Put(pattern.put_DayOfWeekMask(kMonday));
            });
            EXPECT_EQ(record.RecurChoice, 8) << type;
            EXPECT_EQ(record.RecurType, type);
            EXPECT_EQ(record.Interval, interval) << type;
            EXPECT_EQ(record.DayOfWeekMask, kMonday) << type;
        }
    }
}

TEST_F(LoadAppointment, OfEveryTypeAnOddMaskIsTakenAsItsChoiceSays) {
    struct Odd {
        std::int32_t Type;
        std::int32_t Mask;
        std::int32_t Choice;
        std::int32_t Shown;
    };

    constexpr std::int32_t twoDays = kMonday | kThursday;
    constexpr std::int32_t allDays = 127;
    // A type that has no use for a mask shows the day of its start; of the others any but that day or Monday to Friday
    // is a rule of its own.
    const Odd odd[] = {{kRecursDaily, twoDays, 1, kMonday},    {kRecursDaily, allDays, 1, kMonday},
                       {kRecursMonthly, twoDays, 4, kMonday},  {kRecursMonthly, 62, 4, kMonday},
                       {kRecursYearly, kThursday, 6, kMonday}, {kRecursYearly, 62, 6, kMonday},
                       {kRecursWeekly, twoDays, 8, twoDays},   {kRecursWeekly, allDays, 8, allDays},
                       {kRecursMonthNth, twoDays, 8, twoDays}, {kRecursMonthNth, 62, 5, 62},
                       {kRecursYearNth, twoDays, 8, twoDays},  {kRecursYearNth, 62, 7, 62}};
    for (const Odd& one : odd) {
        const AppointmentData record =
            LoadSeries(one.Type, [&](IRecurrencePattern& pattern) { Put(pattern.put_DayOfWeekMask(one.Mask)); });
        EXPECT_EQ(record.RecurChoice, one.Choice) << one.Type << " " << one.Mask;
        EXPECT_EQ(record.DayOfWeekMask, one.Shown) << one.Type << " " << one.Mask;
    }
}

TEST_F(LoadAppointment, TheLastWeekMakesACustomChoice) {
    EXPECT_EQ(
        LoadSeries(kRecursMonthNth, [](IRecurrencePattern& pattern) { Put(pattern.put_Instance(5)); }).RecurChoice, 8);
    EXPECT_EQ(
        LoadSeries(kRecursMonthNth, [](IRecurrencePattern& pattern) { Put(pattern.put_Instance(4)); }).RecurChoice, 5);
}

TEST_F(LoadAppointment, AWeeklyMaskWithAnotherDayMakesACustomChoice) {
    const auto mask = [](std::int32_t days) {
        return [days](IRecurrencePattern& pattern) { Put(pattern.put_DayOfWeekMask(days)); };
    };
    EXPECT_EQ(LoadSeries(kRecursWeekly, mask(kMonday | kThursday)).RecurChoice, 8);
    EXPECT_EQ(LoadSeries(kRecursWeekly, mask(kThursday)).RecurChoice, 8);
    EXPECT_EQ(LoadSeries(kRecursWeekly, mask(kMonday)).RecurChoice, 2);
}

TEST_F(LoadAppointment, DailyMonthlyAndYearlyGetTheDayOfTheirStartAsMask) {
    const auto thursday = [](IRecurrencePattern& pattern) { Put(pattern.put_DayOfWeekMask(kThursday)); };
    for (const std::int32_t type : {kRecursDaily, kRecursMonthly, kRecursYearly}) {
        const AppointmentData record = LoadSeries(type, thursday);
        EXPECT_EQ(record.DayOfWeekMask, kMonday) << type;
        EXPECT_NE(record.RecurChoice, 8) << type;
    }
}

TEST_F(LoadAppointment, ACustomDailyPatternKeepsItsMask) {
    const AppointmentData record = LoadSeries(kRecursDaily, [](IRecurrencePattern& pattern) {
        Put(pattern.put_DayOfWeekMask(kThursday));
        Put(pattern.put_Interval(2));
    });
    EXPECT_EQ(record.DayOfWeekMask, kThursday);
    EXPECT_EQ(record.RecurChoice, 8);
}

TEST_F(LoadAppointment, ARecordIsAValue) {
    AppointmentData record = LoadOneHour(At(2004, 5, 3, 9, 0));
    const AppointmentData copy = record;
    EXPECT_EQ(copy, record);
    record.Subject = u"Changed";
    record.Start.Hour = 1;
    EXPECT_EQ(copy.Subject, u"Dentist");
    EXPECT_EQ(copy.Start.Hour, 9);
}

} // namespace

} // namespace tavo
