// The series by which the iCalendar standard explains its rules, from a file through the store to a listing.
#include "host/exchange/calendar_file.h"
#include "host/exchange/store_sink.h"
#include "host/outlook/occurrence_reader.h"
#include "tests/outlook/store_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <sstream>

namespace tavo::outlook::test {
namespace {

struct StandardSeries {
    const char* Name;
    const char* Start; // at 09:00
    const char* Lines;
    // The days, "19970902" or from one to another "19970902-19970911"; " ..." at the end when more follow.
    const char* Days;
};

constexpr StandardSeries kSeries[] = {
    {"Daily for ten times", "19970902", "RRULE:FREQ=DAILY;COUNT=10", "19970902-19970911"},
    {"Daily until Christmas Eve", "19970902", "RRULE:FREQ=DAILY;UNTIL=19971224T000000Z", "19970902-19971223"},
    {"Every other day", "19970902", "RRULE:FREQ=DAILY;INTERVAL=2", "19970902 19970904 19970906 19970908 19970910 ..."},
    {"Every ten days, five times", "19970902", "RRULE:FREQ=DAILY;INTERVAL=10;COUNT=5",
     "19970902 19970912 19970922 19971002 19971012"},
    {"Every day in January for three years", "19980101",
     "RRULE:FREQ=YEARLY;UNTIL=20000131T140000Z;BYMONTH=1;BYDAY=SU,MO,TU,WE,TH,FR,SA",
     "19980101-19980131 19990101-19990131 20000101-20000131"},
    {"The same by days", "19980101", "RRULE:FREQ=DAILY;UNTIL=20000131T140000Z;BYMONTH=1",
     "19980101-19980131 19990101-19990131 20000101-20000131"},
    {"Weekly for ten times", "19970902", "RRULE:FREQ=WEEKLY;COUNT=10",
     "19970902 19970909 19970916 19970923 19970930 19971007 19971014 19971021 19971028 19971104"},
    {"Weekly until Christmas Eve", "19970902", "RRULE:FREQ=WEEKLY;UNTIL=19971224T000000Z",
     "19970902 19970909 19970916 19970923 19970930 19971007 19971014 19971021 19971028 19971104 19971111 19971118 "
     "19971125 19971202 19971209 19971216 19971223"},
    {"Every other week", "19970902", "RRULE:FREQ=WEEKLY;INTERVAL=2;WKST=SU",
     "19970902 19970916 19970930 19971014 19971028 19971111 19971125 19971209 19971223 19980106 19980120 ..."},
    {"Tuesdays and Thursdays for five weeks", "19970902",
     "RRULE:FREQ=WEEKLY;UNTIL=19971007T000000Z;WKST=SU;BYDAY=TU,TH",
     "19970902 19970904 19970909 19970911 19970916 19970918 19970923 19970925 19970930 19971002"},
    {"The same by number", "19970902", "RRULE:FREQ=WEEKLY;COUNT=10;WKST=SU;BYDAY=TU,TH",
     "19970902 19970904 19970909 19970911 19970916 19970918 19970923 19970925 19970930 19971002"},
    {"Three days of every other week until Christmas Eve", "19970901",
     "RRULE:FREQ=WEEKLY;INTERVAL=2;UNTIL=19971224T000000Z;WKST=SU;BYDAY=MO,WE,FR",
     "19970901 19970903 19970905 19970915 19970917 19970919 19970929 19971001 19971003 19971013 19971015 19971017 "
     "19971027 19971029 19971031 19971110 19971112 19971114 19971124 19971126 19971128 19971208 19971210 19971212 "
     "19971222"},
    {"Tuesday and Thursday of every other week, eight times", "19970902",
     "RRULE:FREQ=WEEKLY;INTERVAL=2;COUNT=8;WKST=SU;BYDAY=TU,TH",
     "19970902 19970904 19970916 19970918 19970930 19971002 19971014 19971016"},
    {"The first Friday, ten times", "19970905", "RRULE:FREQ=MONTHLY;COUNT=10;BYDAY=1FR",
     "19970905 19971003 19971107 19971205 19980102 19980206 19980306 19980403 19980501 19980605"},
    {"The first Friday until Christmas Eve", "19970905", "RRULE:FREQ=MONTHLY;UNTIL=19971224T000000Z;BYDAY=1FR",
     "19970905 19971003 19971107 19971205"},
    {"The first and the last Sunday of every other month", "19970907",
     "RRULE:FREQ=MONTHLY;INTERVAL=2;COUNT=10;BYDAY=1SU,-1SU",
     "19970907 19970928 19971102 19971130 19980104 19980125 19980301 19980329 19980503 19980531"},
    {"The last Monday but one", "19970922", "RRULE:FREQ=MONTHLY;COUNT=6;BYDAY=-2MO",
     "19970922 19971020 19971117 19971222 19980119 19980216"},
    {"The last day but two", "19970928", "RRULE:FREQ=MONTHLY;BYMONTHDAY=-3",
     "19970928 19971029 19971128 19971229 19980129 19980226 ..."},
    {"The 2nd and the 15th", "19970902", "RRULE:FREQ=MONTHLY;COUNT=10;BYMONTHDAY=2,15",
     "19970902 19970915 19971002 19971015 19971102 19971115 19971202 19971215 19980102 19980115"},
    {"The first and the last day", "19970930", "RRULE:FREQ=MONTHLY;COUNT=10;BYMONTHDAY=1,-1",
     "19970930 19971001 19971031 19971101 19971130 19971201 19971231 19980101 19980131 19980201"},
    {"The 10th to the 15th every 18 months", "19970910",
     "RRULE:FREQ=MONTHLY;INTERVAL=18;COUNT=10;BYMONTHDAY=10,11,12,13,14,15", "19970910-19970915 19990310-19990313"},
    {"Every Tuesday of every other month", "19970902", "RRULE:FREQ=MONTHLY;INTERVAL=2;BYDAY=TU",
     "19970902 19970909 19970916 19970923 19970930 19971104 19971111 19971118 19971125 19980106 19980113 19980120 "
     "19980127 19980303 19980310 19980317 19980324 19980331 ..."},
    {"June and July", "19970610", "RRULE:FREQ=YEARLY;COUNT=10;BYMONTH=6,7",
     "19970610 19970710 19980610 19980710 19990610 19990710 20000610 20000710 20010610 20010710"},
    {"The first months of every other year", "19970310", "RRULE:FREQ=YEARLY;INTERVAL=2;COUNT=10;BYMONTH=1,2,3",
     "19970310 19990110 19990210 19990310 20010110 20010210 20010310 20030110 20030210 20030310"},
    {"The 1st, 100th and 200th day of every third year", "19970101",
     "RRULE:FREQ=YEARLY;INTERVAL=3;COUNT=10;BYYEARDAY=1,100,200",
     "19970101 19970410 19970719 20000101 20000409 20000718 20030101 20030410 20030719 20060101"},
    {"The 20th Monday of the year", "19970519", "RRULE:FREQ=YEARLY;BYDAY=20MO", "19970519 19980518 19990517 ..."},
    {"Monday of week 20", "19970512", "RRULE:FREQ=YEARLY;BYWEEKNO=20;BYDAY=MO", "19970512 19980511 19990517 ..."},
    {"Every Thursday in March", "19970313", "RRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=TH",
     "19970313 19970320 19970327 19980305 19980312 19980319 19980326 19990304 19990311 19990318 19990325 ..."},
    {"Every Thursday in summer", "19970605", "RRULE:FREQ=YEARLY;BYDAY=TH;BYMONTH=6,7,8",
     "19970605 19970612 19970619 19970626 19970703 19970710 19970717 19970724 19970731 19970807 19970814 19970821 "
     "19970828 19980604 19980611 ..."},
    {"Friday the 13th", "19970902", "EXDATE:19970902T090000\nRRULE:FREQ=MONTHLY;BYDAY=FR;BYMONTHDAY=13",
     "19980213 19980313 19981113 19990813 20001013 ..."},
    {"The Saturday after the first Sunday", "19970913", "RRULE:FREQ=MONTHLY;BYDAY=SA;BYMONTHDAY=7,8,9,10,11,12,13",
     "19970913 19971011 19971108 19971213 19980110 19980207 19980307 19980411 19980509 19980613 ..."},
    {"An election every four years", "19961105",
     "RRULE:FREQ=YEARLY;INTERVAL=4;BYMONTH=11;BYDAY=TU;BYMONTHDAY=2,3,4,5,6,7,8", "19961105 20001107 20041102 ..."},
    {"The third of three weekdays", "19970904", "RRULE:FREQ=MONTHLY;COUNT=3;BYDAY=TU,WE,TH;BYSETPOS=3",
     "19970904 19971007 19971106"},
    {"The last weekday but one", "19970929", "RRULE:FREQ=MONTHLY;BYDAY=MO,TU,WE,TH,FR;BYSETPOS=-2",
     "19970929 19971030 19971127 19971230 19980129 19980226 19980330 ..."},
    {"Weeks that begin on Monday", "19970805", "RRULE:FREQ=WEEKLY;INTERVAL=2;COUNT=4;BYDAY=TU,SU;WKST=MO",
     "19970805 19970810 19970819 19970824"},
    {"Weeks that begin on Sunday", "19970805", "RRULE:FREQ=WEEKLY;INTERVAL=2;COUNT=4;BYDAY=TU,SU;WKST=SU",
     "19970805 19970817 19970819 19970831"},
    {"A day that February does not have", "20070115", "RRULE:FREQ=MONTHLY;BYMONTHDAY=15,30;COUNT=5",
     "20070115 20070130 20070215 20070315 20070330"},
    {"A 31st that is left out", "20140131", "RRULE:RSCALE=GREGORIAN;FREQ=MONTHLY;COUNT=4",
     "20140131 20140331 20140531 20140731"},
    {"A 31st that becomes the day before", "20140131", "RRULE:RSCALE=GREGORIAN;FREQ=MONTHLY;SKIP=BACKWARD;COUNT=4",
     "20140131 20140228 20140331 20140430"},
    {"A 31st that becomes the day after", "20140131", "RRULE:RSCALE=GREGORIAN;FREQ=MONTHLY;SKIP=FORWARD;COUNT=4",
     "20140131 20140301 20140331 20140501"},
    {"A leap day that becomes the day before", "20160229", "RRULE:RSCALE=GREGORIAN;FREQ=YEARLY;SKIP=BACKWARD;COUNT=5",
     "20160229 20170228 20180228 20190228 20200229"},
    {"A leap day that becomes the day after", "20160229", "RRULE:RSCALE=GREGORIAN;FREQ=YEARLY;SKIP=FORWARD;COUNT=5",
     "20160229 20170301 20180301 20190301 20200229"},
};

std::ostream& operator<<(std::ostream& stream, const StandardSeries& series) {
    return stream << series.Name;
}

DayNumber DayOfDigits(const std::string& digits) {
    return DayFromCivil(std::stoi(digits.substr(0, 4)), std::stoi(digits.substr(4, 2)), std::stoi(digits.substr(6, 2)));
}

struct Expected {
    std::vector<DayNumber> Days;
    bool GoesOn = false;
};

Expected ReadDays(const char* text) {
    Expected expected;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        if (word == "...") {
            expected.GoesOn = true;
            continue;
        }
        const DayNumber first = DayOfDigits(word);
        const DayNumber last = word.size() > 8 ? DayOfDigits(word.substr(9)) : first;
        for (DayNumber day = first; day <= last; ++day) {
            expected.Days.push_back(day);
        }
    }
    return expected;
}

} // namespace

class SeriesFileTest : public StoreTest {
  protected:
    // An event at 09:00 with these lines; gives the line of what was mended, 0 for nothing.
    int Import(const std::string& start, const std::string& lines) {
        int mended = 0;
        Import("BEGIN:VCALENDAR\nVERSION:2.0\nBEGIN:VEVENT\nUID:1\nDTSTART:" + start + "T090000\n" + lines +
                   "\nEND:VEVENT\nEND:VCALENDAR\n",
               mended);
        return mended;
    }

    std::vector<Seconds> ListTimes(DayNumber first, DayNumber last) {
        std::vector<Seconds> times;
        EXPECT_EQ(
            OccurrenceReader(Store).ListStarts(MidnightOf(first), MidnightOf(last + 1) - 1,
                                               [&times](const ListedOccurrence& line) { times.push_back(line.Start); }),
            Status::Ok);
        return times;
    }

  private:
    void Import(const std::string& file, int& mended) {
        exchange::MemorySource source(file);
        ImportWriter writer(Store);
        ASSERT_EQ(writer.Begin(u"File"), Status::Ok);
        exchange::StoreSink sink(writer, std::nullopt, [](std::int64_t) { return true; });
        exchange::FileFault fault;
        ASSERT_EQ(exchange::ReadCalendarFile(source, sink, exchange::Manner::Lenient, fault),
                  exchange::FileOutcome::Read)
            << fault.Reason;
        ASSERT_EQ(writer.Commit(), Status::Ok);
        ASSERT_EQ(sink.GetCounts().New, 1);
        mended = sink.GetRemarks().empty() ? 0 : sink.GetRemarks().front().Line;
    }
};

class StandardSeriesTest : public SeriesFileTest, public ::testing::WithParamInterface<StandardSeries> {
  protected:
    std::vector<DayNumber> List(DayNumber first, DayNumber last) {
        std::vector<DayNumber> days;
        for (const Seconds time : ListTimes(first, last)) {
            days.push_back(DayOf(time));
        }
        return days;
    }
};

TEST_P(StandardSeriesTest, TakesPlaceOnTheseDays) {
    const StandardSeries& series = GetParam();
    EXPECT_EQ(Import(series.Start, series.Lines), 0);
    const Expected expected = ReadDays(series.Days);
    const DayNumber last = expected.Days.back();
    EXPECT_EQ(List(DayOfDigits("19900101"), last), expected.Days);
    constexpr DayNumber kTenYears = 3653;
    EXPECT_EQ(!List(last + 1, last + kTenYears).empty(), expected.GoesOn);
}

// The same, of series that take place several times a day.
class StandardTimesTest : public SeriesFileTest {
  protected:
    // The first few from the second of September 1997, "02 09:00".
    std::vector<std::string> Times(const std::string& lines, std::size_t most, int mended = 0) {
        EXPECT_EQ(Import("19970902", lines), mended);
        std::vector<std::string> texts;
        for (const Seconds time : ListTimes(DayOfDigits("19970902"), DayOfDigits("19970930"))) {
            texts.push_back(TextOf(time).substr(8));
        }
        texts.resize(std::min(texts.size(), most));
        return texts;
    }
};

TEST_F(StandardTimesTest, EveryThreeHoursOfADay) {
    EXPECT_EQ(Times("RRULE:FREQ=HOURLY;INTERVAL=3;UNTIL=19970902T170000Z", 9),
              (std::vector<std::string>{"02 09:00", "02 12:00", "02 15:00"}));
}

TEST_F(StandardTimesTest, EveryTwentyMinutesOfTheDayByTheDay) {
    const std::vector<std::string> times = Times("RRULE:FREQ=DAILY;BYHOUR=9,10,11,12,13,14,15,16;BYMINUTE=0,20,40", 26);
    ASSERT_EQ(times.size(), 26U);
    EXPECT_EQ(times[0], "02 09:00");
    EXPECT_EQ(times[1], "02 09:20");
    EXPECT_EQ(times[23], "02 16:40");
    EXPECT_EQ(times[24], "03 09:00");
}

// They are kept for who understands them.
class RulesByTheMinuteTest : public StandardTimesTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(RulesByTheMinuteTest, TakePlaceOnceAndItIsSaid) {
    EXPECT_EQ(Times(GetParam(), 9, 6), std::vector<std::string>{"02 09:00"});
}

INSTANTIATE_TEST_SUITE_P(Standard, RulesByTheMinuteTest,
                         ::testing::Values("RRULE:FREQ=MINUTELY;INTERVAL=15;COUNT=6",
                                           "RRULE:FREQ=MINUTELY;INTERVAL=90;COUNT=4",
                                           "RRULE:FREQ=MINUTELY;INTERVAL=20;BYHOUR=9,10,11,12,13,14,15,16"));

INSTANTIATE_TEST_SUITE_P(Standard, StandardSeriesTest, ::testing::ValuesIn(kSeries));

} // namespace tavo::outlook::test
