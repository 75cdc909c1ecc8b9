// The words of the day list's rows.
#include "calendar/day_row_text.h"

#include "host/locale/us_english_locale.h"

#include <gtest/gtest.h>

namespace tavo {

namespace {

AppointmentData Timed(const SYSTEMTIME& start, const SYSTEMTIME& end) {
    AppointmentData record;
    record.Subject = u"Dentist";
    record.Start = start;
    record.End = end;
    return record;
}

AppointmentData AllDay(const SYSTEMTIME& start, const SYSTEMTIME& end) {
    AppointmentData record = Timed(start, end);
    record.AllDay = true;
    return record;
}

DayRowText Describe(const AppointmentData& record) {
    locale::UsEnglishLocale locale;
    return DescribeDayRow(record, locale);
}

// Writes every date and time with the same number of letters.
class WordyLocale final : public ILocale {
  public:
    explicit WordyLocale(std::size_t length) : Text(length, u'x') {}

    std::optional<std::u16string> GetDateFormatW(LocaleId, const SYSTEMTIME&, std::u16string_view,
                                                 int bufferSize) override {
        return Written(bufferSize);
    }

    std::optional<std::u16string> GetTimeFormatW(LocaleId, const SYSTEMTIME&, std::u16string_view,
                                                 int bufferSize) override {
        return Written(bufferSize);
    }

    bool VariantTimeToSystemTime(DATE, SYSTEMTIME&) override { return false; }

    bool SystemTimeToVariantTime(const SYSTEMTIME&, DATE&) override { return false; }

    const std::u16string Text;

  private:
    std::optional<std::u16string> Written(int bufferSize) const {
        return Text.size() < static_cast<std::size_t>(bufferSize) ? std::optional(Text) : std::nullopt;
    }
};

TEST(DayRowText, ATimeTakesSixtyThreeCharactersAtMost) {
    const AppointmentData record = Timed({2004, 5, 1, 3, 9, 0, 0, 0}, {2004, 5, 1, 3, 10, 0, 0, 0});
    WordyLocale longest(63);
    EXPECT_EQ(DescribeDayRow(record, longest).Times, longest.Text + u" - " + longest.Text);
    WordyLocale tooLong(64);
    EXPECT_EQ(DescribeDayRow(record, tooLong).Times, u" - ");
}

TEST(DayRowText, AnItemOfOneDayShowsItsTimes) {
    EXPECT_EQ(Describe(Timed({2004, 5, 1, 3, 9, 0, 0, 0}, {2004, 5, 1, 3, 10, 30, 0, 0})),
              (DayRowText{u"Dentist", u"AM 9:00 - AM 10:30", u""}));
}

TEST(DayRowText, ALocationFollowsInBrackets) {
    AppointmentData record = Timed({2004, 5, 1, 3, 9, 0, 0, 0}, {2004, 5, 1, 3, 10, 0, 0, 0});
    record.Location = u"Main Street";
    EXPECT_EQ(Describe(record).Heading, u"Dentist(Main Street)");
}

TEST(DayRowText, AnAllDayItemOfOneDay) {
    EXPECT_EQ(Describe(AllDay({2004, 5, 1, 3, 0, 0, 0, 0}, {2004, 5, 1, 3, 0, 0, 0, 0})).Times, u"All day");
    EXPECT_EQ(Describe(AllDay({2004, 5, 1, 3, 0, 0, 0, 0}, {2004, 5, 2, 4, 0, 0, 0, 0})).Times, u"All day");
}

TEST(DayRowText, AnAllDayItemOverSeveralDaysShowsItsFirstAndLastDay) {
    EXPECT_EQ(Describe(AllDay({2004, 5, 1, 3, 0, 0, 0, 0}, {2004, 5, 4, 6, 0, 0, 0, 0})).Times,
              u"2004.05.03(Mon) - 2004.05.05(Wed) (All day)");
    EXPECT_EQ(Describe(AllDay({2004, 12, 4, 30, 0, 0, 0, 0}, {2005, 1, 6, 1, 0, 0, 0, 0})).Times,
              u"2004.12.30(Thu) - 2004.12.31(Fri) (All day)");
}

TEST(DayRowText, OnlyAnEndAtMidnightCountsForTheDayBefore) {
    EXPECT_EQ(Describe(AllDay({2004, 5, 1, 3, 0, 0, 0, 0}, {2004, 5, 2, 4, 0, 30, 0, 0})).Times,
              u"2004.05.03(Mon) - 2004.05.04(Tue) (All day)");
    EXPECT_EQ(Describe(AllDay({2004, 5, 1, 3, 0, 0, 0, 0}, {2004, 5, 2, 4, 10, 0, 0, 0})).Times,
              u"2004.05.03(Mon) - 2004.05.04(Tue) (All day)");
}

TEST(DayRowText, AnItemOverSeveralDaysShowsDatesAndTimes) {
    EXPECT_EQ(Describe(Timed({2004, 5, 1, 3, 9, 0, 0, 0}, {2004, 5, 2, 4, 14, 0, 0, 0})).Times,
              u"2004.05.03(Mon) AM 9:00 - 2004.05.04(Tue) PM 2:00");
}

TEST(DayRowText, ASeriesOverSeveralDaysIsOnlyMarkedForItsDatesAreOthers) {
    AppointmentData record = Timed({2004, 5, 1, 3, 22, 0, 0, 0}, {2004, 5, 2, 4, 6, 0, 0, 0});
    record.IsRecurring = true;
    record.RecurType = kRecursDaily;
    record.RecurChoice = kChoiceEveryday;
    record.Interval = 1;
    EXPECT_EQ(Describe(record), (DayRowText{u"Dentist", u"Multidays", u"Everyday"}));
}

} // namespace

} // namespace tavo
