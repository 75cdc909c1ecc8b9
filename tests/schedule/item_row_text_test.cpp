// The wordings of the item lists' rows.
#include "schedule/item_row_text.h"

#include "host/locale/us_english_locale.h"
#include "tests/support/test_device.h"

#include <gtest/gtest.h>

namespace tavo {

namespace {

using test::At;
using Lines = std::vector<std::u16string>;

class ItemRowTexts : public testing::Test {
  protected:
    static AppointmentData Record(const SYSTEMTIME& start, const SYSTEMTIME& end) {
        AppointmentData record;
        record.Subject = u"Subject";
        record.Start = start;
        record.End = end;
        return record;
    }

    static AppointmentData AllDay(const SYSTEMTIME& start, const SYSTEMTIME& end) {
        AppointmentData record = Record(start, end);
        record.AllDay = true;
        return record;
    }

    static AppointmentData Recurring(AppointmentData record, std::int32_t type = kRecursDaily) {
        record.IsRecurring = true;
        record.RecurType = type;
        return record;
    }

    ItemRowText Tagged(ItemKind kind, const AppointmentData& record, const std::optional<PatternRange>& range = {}) {
        return DescribeTaggedRow(kind, record, range, Locale);
    }

    ItemRowText Appointment(const AppointmentData& record, const SYSTEMTIME& day) {
        return DescribeAppointmentRow(record, day, Locale);
    }

    locale::UsEnglishLocale Locale;
};

TEST_F(ItemRowTexts, AnAlarmBeginsWithItsHourAndMinute) {
    const ItemRowText text = Tagged(ItemKind::Alarm, Record(At(2004, 11, 3, 17, 5), At(2004, 11, 3, 17, 5)));
    EXPECT_EQ(text.Heading, u"(17:05) Subject");
    EXPECT_EQ(text.Date, u"");
    EXPECT_EQ(text.Lines, (Lines{u"05:05 PM", u"Once, from 2004.11.03(Wed)"}));
}

TEST_F(ItemRowTexts, ARepeatingAlarmJoinsRuleAndRange) {
    const AppointmentData record = Recurring(Record(At(2004, 11, 3, 7), At(2004, 11, 3, 7)));
    EXPECT_EQ(Tagged(ItemKind::Alarm, record, PatternRange{At(2004, 11, 3), std::nullopt}).Lines,
              (Lines{u"07:00 AM", u"Everyday, from 2004.11.03(Wed)"}));
    EXPECT_EQ(Tagged(ItemKind::Alarm, record, PatternRange{At(2004, 11, 3), At(2004, 12, 1)}).Lines,
              (Lines{u"07:00 AM", u"Everyday, from 2004.11.03(Wed) until 2004.12.01(Wed)"}));
}

TEST_F(ItemRowTexts, ARuleOfAnotherCalendarLeavesTheRangeAlone) {
    const AppointmentData record = Recurring(Record(At(2004, 11, 3, 7), At(2004, 11, 3, 7)), kRecursForeign);
    EXPECT_EQ(Tagged(ItemKind::Alarm, record, PatternRange{At(2004, 11, 3), std::nullopt}).Lines[1],
              u"from 2004.11.03(Wed)");
}

TEST_F(ItemRowTexts, HolidaysAndAnniversariesSayRuleAndRangeInTwoLines) {
    const AppointmentData record = Recurring(AllDay(At(2004, 12, 25), At(2004, 12, 25)), kRecursYearly);
    for (const ItemKind kind : {ItemKind::Holiday, ItemKind::Anniversary}) {
        const ItemRowText text = Tagged(kind, record, PatternRange{At(2004, 12, 25), At(2010, 12, 25)});
        EXPECT_EQ(text.Heading, u"Subject");
        EXPECT_EQ(text.Lines, (Lines{u"Dec. 25 of every year", u"from 2004.12.25(Sat) until 2010.12.25(Sat)"}));
    }
}

TEST_F(ItemRowTexts, WhatDoesNotRepeatShowsItsOwnDays) {
    EXPECT_EQ(Tagged(ItemKind::Holiday, AllDay(At(2004, 12, 24), At(2004, 12, 27))).Lines,
              (Lines{u"Once", u"from 2004.12.24(Fri) until 2004.12.26(Sun)"}));
    EXPECT_EQ(Tagged(ItemKind::Holiday, AllDay(At(2004, 12, 24), At(2004, 12, 26))).Lines,
              (Lines{u"Once", u"from 2004.12.24(Fri) until 2004.12.25(Sat)"}));
    EXPECT_EQ(Tagged(ItemKind::Holiday, AllDay(At(2004, 12, 24), At(2004, 12, 25))).Lines,
              (Lines{u"Once", u"from 2004.12.24(Fri)"}));
}

TEST_F(ItemRowTexts, AnAppointmentOfOneDayShowsItsTimesAndBesideItsHeadingTheDate) {
    const ItemRowText text = Appointment(Record(At(2004, 11, 3, 9, 5), At(2004, 11, 3, 14)), At(2004, 11, 3));
    EXPECT_EQ(text.Heading, u"Subject");
    EXPECT_EQ(text.Date, u"2004.11.03(Wed)");
    EXPECT_EQ(text.Lines, Lines{u"AM 9:05 - PM 2:00"});
}

TEST_F(ItemRowTexts, AnAppointmentOfAWholeDay) {
    EXPECT_EQ(Appointment(AllDay(At(2004, 11, 3), At(2004, 11, 3)), At(2004, 11, 3)).Lines, Lines{u"All day"});
    EXPECT_EQ(Appointment(AllDay(At(2004, 11, 3), At(2004, 11, 4)), At(2004, 11, 3)).Lines, Lines{u"All day"});
}

TEST_F(ItemRowTexts, AnAppointmentThatEndsAtMidnightIsOfOneDay) {
    EXPECT_EQ(Appointment(Record(At(2004, 11, 3, 22), At(2004, 11, 4)), At(2004, 11, 3)).Lines,
              Lines{u"PM 10:00 - AM 12:00"});
}

TEST_F(ItemRowTexts, OfSeveralDaysItShowsBothEndsWhicheverOfThemItsRowStandsFor) {
    for (const int day : {3, 4, 5}) {
        EXPECT_EQ(Appointment(AllDay(At(2004, 11, 3), At(2004, 11, 6)), At(2004, 11, day)).Lines,
                  Lines{u"2004.11.03(Wed) - 2004.11.05(Fri) (All day)"});
        EXPECT_EQ(Appointment(Record(At(2004, 11, 3, 9), At(2004, 11, 5, 17)), At(2004, 11, day)).Lines,
                  Lines{u"2004.11.03(Wed),AM 9:00 - 2004.11.05(Fri),PM 5:00"});
        EXPECT_EQ(Appointment(Record(At(2004, 11, 3, 9), At(2004, 11, 6, 9)), At(2004, 11, day)).Lines,
                  Lines{u"2004.11.03(Wed),AM 9:00 - 2004.11.06(Sat),AM 9:00"});
    }
    EXPECT_EQ(Appointment(Record(At(2004, 11, 3, 22), At(2004, 11, 4, 6)), At(2004, 11, 3)).Lines,
              Lines{u"2004.11.03(Wed),PM 10:00 - 2004.11.04(Thu),AM 6:00"});
}

// Where both ends do not fit with their weekdays.
TEST_F(ItemRowTexts, OnlyAnAppointmentWithTimesOnSeveralDaysHasAShorterLine) {
    EXPECT_EQ(Appointment(Record(At(2004, 11, 3, 22), At(2004, 11, 4, 6)), At(2004, 11, 3)).ShortLine,
              u"2004.11.03,PM 10:00 - 2004.11.04,AM 6:00");
    EXPECT_EQ(Appointment(Record(At(2004, 11, 3, 9), At(2004, 11, 3, 17)), At(2004, 11, 3)).ShortLine, u"");
    EXPECT_EQ(Appointment(AllDay(At(2004, 11, 3), At(2004, 11, 6)), At(2004, 11, 3)).ShortLine, u"");
    const AppointmentData nightly = Recurring(Record(At(2004, 11, 3, 22), At(2004, 11, 4, 6)));
    EXPECT_EQ(Appointment(nightly, At(2004, 11, 3)).ShortLine, u"");
}

TEST_F(ItemRowTexts, ARepeatingAppointmentNamesItsOwnMonthAndDay) {
    const auto shown = [this](const AppointmentData& record) {
        return Appointment(Recurring(record), record.Start).Lines.back();
    };
    EXPECT_EQ(shown(Record(At(2026, 11, 25, 18), At(2026, 11, 25, 20))), u"(11/25, Wed) at PM 6:00 for 2 hour(s)");
    EXPECT_EQ(shown(Record(At(2004, 11, 3, 18), At(2004, 11, 3, 19, 30))), u"(11/3, Wed) PM 6:00 - PM 7:30");
    EXPECT_EQ(shown(Record(At(2004, 11, 3, 18), At(2004, 11, 3, 18))), u"(11/3, Wed) PM 6:00 - PM 6:00");
    EXPECT_EQ(shown(AllDay(At(2004, 11, 3), At(2004, 11, 3))), u"(11/3, Wed) All day");
    EXPECT_EQ(shown(AllDay(At(2004, 11, 3), At(2004, 11, 4))), u"(11/3, Wed) All day");
}

TEST_F(ItemRowTexts, ARepeatingOneOverMidnightSaysHowLongItIs) {
    const auto shown = [this](const AppointmentData& record) {
        return Appointment(Recurring(record), record.Start).Lines.back();
    };
    EXPECT_EQ(shown(Record(At(2004, 11, 3, 22), At(2004, 11, 4, 6))), u"(11/3, Wed) at PM 10:00 for 8 hour(s)");
    EXPECT_EQ(shown(Record(At(2004, 11, 3, 23, 30), At(2004, 11, 4, 0, 15))), u"(11/3, Wed) PM 11:30 - AM 12:15");
    EXPECT_EQ(shown(Record(At(2004, 11, 3, 9), At(2004, 11, 6, 9))), u"(11/3, Wed) at AM 9:00 for 3 days");
    EXPECT_EQ(shown(Record(At(2004, 11, 3, 9), At(2004, 11, 4, 9))), u"(11/3, Wed) at AM 9:00 for 1 days");
    EXPECT_EQ(shown(Record(At(2004, 11, 3, 9), At(2004, 11, 4, 8))), u"(11/3, Wed) at AM 9:00 for 23 hour(s)");
}

TEST_F(ItemRowTexts, ARepeatingOneWhoseEndItsDayDoesNotTellShowsBothEnds) {
    const auto shown = [this](const AppointmentData& record, const SYSTEMTIME& day) {
        return Appointment(Recurring(record), day).Lines.back();
    };
    EXPECT_EQ(shown(AllDay(At(2004, 11, 3), At(2004, 11, 6)), At(2004, 11, 3)),
              u"2004.11.03(Wed) - 2004.11.05(Fri) (All day)");
    EXPECT_EQ(shown(AllDay(At(2004, 11, 3), At(2004, 11, 5)), At(2004, 11, 3)),
              u"2004.11.03(Wed) - 2004.11.04(Thu) (All day)");
    EXPECT_EQ(shown(Record(At(2004, 11, 3, 9), At(2004, 11, 4, 10)), At(2004, 11, 3)),
              u"2004.11.03(Wed),AM 9:00 - 2004.11.04(Thu),AM 10:00");
    EXPECT_EQ(shown(Record(At(2004, 11, 3, 9), At(2004, 11, 5, 17)), At(2004, 11, 3)),
              u"2004.11.03(Wed),AM 9:00 - 2004.11.05(Fri),PM 5:00");
    // Its row stands for a later day than the one on which it began.
    EXPECT_EQ(shown(Record(At(2004, 11, 3, 22), At(2004, 11, 4, 6)), At(2004, 11, 4)),
              u"2004.11.03(Wed),PM 10:00 - 2004.11.04(Thu),AM 6:00");
}

TEST_F(ItemRowTexts, ARepeatingAppointmentHasItsTimesInALineOfTheirOwn) {
    EXPECT_EQ(Appointment(Recurring(Record(At(2004, 11, 3, 18), At(2004, 11, 3, 19))), At(2004, 11, 3)).Lines,
              (Lines{u"PM 6:00 - PM 7:00", u"(11/3, Wed) at PM 6:00 for 1 hour(s)"}));
}

} // namespace

} // namespace tavo
