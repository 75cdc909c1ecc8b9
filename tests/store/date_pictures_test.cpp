// What the date and time pictures look like on the device.
#include "store/date_pictures.h"

#include "host/locale/us_english_locale.h"

#include <gtest/gtest.h>

namespace tavo {

namespace {

constexpr SYSTEMTIME kAfternoon{2004, 9, 3, 15, 14, 5, 9, 0};
constexpr SYSTEMTIME kMorning{2005, 1, 0, 9, 9, 30, 45, 0};

std::u16string DateIn(std::u16string_view picture, const SYSTEMTIME& date) {
    locale::UsEnglishLocale device;
    return device.GetDateFormatW(LocaleId::User, date, picture, 40).value_or(u"(none)");
}

std::u16string TimeIn(std::u16string_view picture, const SYSTEMTIME& time) {
    locale::UsEnglishLocale device;
    return device.GetTimeFormatW(LocaleId::User, time, picture, 40).value_or(u"(none)");
}

TEST(DatePictures, ListsAndDayList) {
    EXPECT_EQ(DateIn(kPictureListDate, kAfternoon), u"2004.09.15(Wed)");
    EXPECT_EQ(TimeIn(kPictureListTime, kAfternoon), u"PM 2:05");
    EXPECT_EQ(TimeIn(kPictureListTime, kMorning), u"AM 9:30");
}

TEST(DatePictures, AlarmListTimesHaveTwoDigits) {
    EXPECT_EQ(TimeIn(kPictureAlarmTime, kAfternoon), u"02:05 PM");
}

TEST(DatePictures, EditDialog) {
    EXPECT_EQ(DateIn(kPictureEditDate, kAfternoon), u"2004.09.15 (Wed)");
    EXPECT_EQ(DateIn(kPicturePlainDate, kAfternoon), u"2004.09.15");
    EXPECT_EQ(TimeIn(kPictureEditTime, kAfternoon), u"02:05 PM");
    EXPECT_EQ(TimeIn(kPictureEditTimeSeconds, kMorning), u"09:30:45 AM");
}

TEST(DatePictures, HeaderOfCalendarAndClock) {
    EXPECT_EQ(DateIn(kPictureHeaderDate, kMorning), u"Sun, Jan, 09, 2005");
}

TEST(DatePictures, DigitalClock) {
    EXPECT_EQ(TimeIn(kPictureClockTime, kAfternoon), u"02:05");
    EXPECT_EQ(TimeIn(kPictureClockSeconds, kAfternoon), u"09 PM");
}

TEST(DatePictures, ShortDateFitsTheBufferOfARestriction) {
    locale::UsEnglishLocale device;
    EXPECT_EQ(device.GetDateFormatW(LocaleId::System, kAfternoon, kPictureShortDate, kShortDateBuffer), u"9/15/2004");
}

} // namespace

} // namespace tavo
