// What typed characters make of a date or time, and when it is complete.
#include "host/shell/picker_entry.h"

#include "platform/messages.h"

#include <gtest/gtest.h>

#include <string_view>

namespace tavo::shell {
namespace {

class PickerEntryTest : public testing::Test {
  protected:
    // Types into a picker as one comes to it. Gives its text; "!" where it was complete at the end.
    std::u16string Typed(PickerFields kind, std::u16string_view characters) {
        Entry = PickerEntry{};
        bool isComplete = false;
        for (const char16_t character : characters) {
            PickerKeys keys(kind, Value, Entry);
            keys.Type(character);
            isComplete = keys.IsComplete();
        }
        PickerKeys(kind, Value, Entry).TakeTyped();
        return FaceOf(kind, Value, Entry).Text + (isComplete ? u"!" : u"");
    }

    std::u16string Date(std::u16string_view characters) {
        Value = {2026, 12, 6, 5, 14, 45, 30, 0};
        return Typed(PickerFields::Date, characters);
    }

    std::u16string Time(std::u16string_view characters) {
        Value = {2026, 12, 6, 5, 14, 45, 30, 0};
        return Typed(PickerFields::Time, characters);
    }

    std::u16string Seconds(std::u16string_view characters) {
        Value = {2026, 12, 6, 5, 14, 45, 30, 0};
        return Typed(PickerFields::TimeWithSeconds, characters);
    }

    // What stands in the picker before it is left.
    std::u16string OnTheWay(PickerFields kind, std::u16string_view characters) {
        Value = {2026, 12, 6, 5, 14, 45, 30, 0};
        Entry = PickerEntry{};
        for (const char16_t character : characters) {
            PickerKeys(kind, Value, Entry).Type(character);
        }
        return FaceOf(kind, Value, Entry).Text;
    }

    SYSTEMTIME Value;
    PickerEntry Entry;
};

TEST_F(PickerEntryTest, OneDigitIsEnoughWhereNoOtherCanFollow) {
    EXPECT_EQ(Date(u"24"), u"2/4/2026");
    EXPECT_EQ(Date(u"2431"), u"2/4/1931"); // the year has begun
    EXPECT_EQ(Date(u"11"), u"11/5/2026");
    EXPECT_EQ(Date(u"1130"), u"11/30/2026");
    EXPECT_EQ(Date(u"135"), u"1/3/2005"); // no month 13: the 3 is the day's, and no 35th
    EXPECT_EQ(Date(u"01022027"), u"1/2/2027!");
}

TEST_F(PickerEntryTest, SeparatorsEndAPartAndNothingElse) {
    EXPECT_EQ(Date(u"1/2/2027"), u"1/2/2027!");
    EXPECT_EQ(Date(u"11/25/2027"), u"11/25/2027!"); // after a full part they are passed over
    EXPECT_EQ(Date(u"3.7.2027"), u"3/7/2027!");
    EXPECT_EQ(Date(u"/5"), u"5/5/2026");
    EXPECT_EQ(Time(u"1:05 pm"), u"1:05 PM");
    EXPECT_EQ(Time(u"x5"), u"5:45 PM");
}

TEST_F(PickerEntryTest, AYearOfTwoDigitsIsThatOfTheTimes) {
    EXPECT_EQ(Date(u"1/2/27"), u"1/2/2027");
    EXPECT_EQ(Date(u"1/2/29"), u"1/2/2029");
    EXPECT_EQ(Date(u"1/2/30"), u"1/2/1930");
    EXPECT_EQ(Date(u"1/2/202"), u"1/2/2026"); // no year of the calendar
    EXPECT_EQ(Date(u"1/2/1600"), u"1/2/2026!");
    EXPECT_EQ(Date(u"1/2/1601"), u"1/2/1601!");
}

TEST_F(PickerEntryTest, NumbersThatDoNotExistAreNotTaken) {
    EXPECT_EQ(Date(u"0/0/"), u"12/5/2026");
    EXPECT_EQ(Date(u"00"), u"12/5/2026");
}

TEST_F(PickerEntryTest, ADayThatTheMonthLacksIsItsLastUntilTheYearIsTyped) {
    EXPECT_EQ(Date(u"2/29/2028"), u"2/29/2028!");
    EXPECT_EQ(Value.Day, 29);
    EXPECT_EQ(Date(u"2/31"), u"2/31/2026"); // as typed; what it stands for is a day that exists
    EXPECT_EQ(Value.Day, 28);
    Value = {2026, 1, 6, 31, 0, 0, 0, 0};
    EXPECT_EQ(Typed(PickerFields::Date, u"4"), u"4/30/2026");
}

TEST_F(PickerEntryTest, AnHourKeepsItsHalfOfTheDay) {
    EXPECT_EQ(Time(u"3"), u"3:45 PM");
    EXPECT_EQ(Time(u"12"), u"12:45 PM");
    EXPECT_EQ(Time(u"12a"), u"12:45 AM!");
    EXPECT_EQ(Value.Hour, 0);
    EXPECT_EQ(Time(u"1030a"), u"10:30 AM!");
    EXPECT_EQ(Time(u"ap"), u"2:45 PM!");
    EXPECT_EQ(Value.Second, 30); // what is not shown stays
}

TEST_F(PickerEntryTest, AnHourMayBeOneOfTwentyFour) {
    EXPECT_EQ(Time(u"0815"), u"8:15 PM"); // the half of the day is not typed
    EXPECT_EQ(Time(u"15:20"), u"3:20 PM");
    EXPECT_EQ(Time(u"2030"), u"8:30 PM");
    EXPECT_EQ(Time(u"00:20"), u"12:20 AM");
    EXPECT_EQ(Time(u"25"), u"2:05 PM"); // no hour 25: the 5 is the minute's
}

TEST_F(PickerEntryTest, ThreeDigitsInARowAreAnHourOfOneDigit) {
    EXPECT_EQ(Time(u"230p"), u"2:30 PM!");
    EXPECT_EQ(Time(u"115"), u"1:15 PM");
    EXPECT_EQ(Time(u"11:5"), u"11:05 PM"); // the separator says where the hour ends
    EXPECT_EQ(Time(u"1105"), u"11:05 PM");
    EXPECT_EQ(Time(u"930a"), u"9:30 AM!");
}

TEST_F(PickerEntryTest, TheHourOfThreeDigitsLeavesTheHalfAsItWas) {
    const auto morning = [this](std::u16string_view characters) {
        Value = {2026, 12, 6, 5, 9, 45, 30, 0};
        return Typed(PickerFields::Time, characters);
    };
    EXPECT_EQ(morning(u"230"), u"2:30 AM"); // the 23 on the way to it lies in the evening
    EXPECT_EQ(morning(u"130"), u"1:30 AM");
    EXPECT_EQ(morning(u"230p"), u"2:30 PM!");
    EXPECT_EQ(morning(u"23:5"), u"11:05 PM");
}

TEST_F(PickerEntryTest, ThreeDigitsInARowAreShownAsWhatTheyStandFor) {
    EXPECT_EQ(OnTheWay(PickerFields::Time, u"11"), u"11:45 PM");
    EXPECT_EQ(OnTheWay(PickerFields::Time, u"110"), u"1:10 PM");
    EXPECT_EQ(Time(u"110"), u"1:10 PM"); // and so it stays when the picker is left
    EXPECT_EQ(OnTheWay(PickerFields::Time, u"1100"), u"11:00 PM");
    EXPECT_EQ(OnTheWay(PickerFields::Time, u"230"), u"2:30 PM");
    EXPECT_EQ(OnTheWay(PickerFields::Time, u"11:0"), u"11:0 PM");
    EXPECT_EQ(Time(u"11:0"), u"11:00 PM");
    EXPECT_EQ(OnTheWay(PickerFields::TimeWithSeconds, u"110"), u"1:10:30 PM");
    OnTheWay(PickerFields::Time, u"110");
    const PickerFace face = FaceOf(PickerFields::Time, Value, Entry);
    EXPECT_EQ(face.Parts[1].First, 2); // the minute has the keys still
    EXPECT_EQ(face.Parts[1].Last, 4);
    EXPECT_EQ(Entry.Part, 1);
}

TEST_F(PickerEntryTest, ATimeWithSecondsHasAPartForThem) {
    EXPECT_EQ(FieldsOf(ControlKind::TimePicker, u"hh':'mm':'ss tt"), PickerFields::TimeWithSeconds);
    EXPECT_EQ(FieldsOf(ControlKind::TimePicker, u"hh':'mm tt"), PickerFields::Time);
    EXPECT_EQ(FieldsOf(ControlKind::TimePicker, u""), PickerFields::Time);
    EXPECT_EQ(FieldsOf(ControlKind::DatePicker, u"ss"), PickerFields::Date);
    EXPECT_EQ(Seconds(u""), u"2:45:30 PM");
    EXPECT_EQ(Seconds(u"1059"), u"10:59:30 PM"); // seconds that nobody types stay
    EXPECT_EQ(Seconds(u"105907"), u"10:59:07 PM");
    EXPECT_EQ(Seconds(u"10590"), u"10:59:00 PM");
    EXPECT_EQ(Seconds(u"105908a"), u"10:59:08 AM!");
    EXPECT_EQ(Seconds(u"7:05:9 a"), u"7:05:09 AM!");
    EXPECT_EQ(Seconds(u"730a"), u"7:30:30 AM!");
    EXPECT_EQ(Seconds(u"73015"), u"7:30:15 PM");
    EXPECT_EQ(Seconds(u"1:2:7"), u"1:02:07 PM");
    EXPECT_EQ(Seconds(u"1059075"), u"10:59:07 PM"); // the half of the day takes no digits
}

TEST_F(PickerEntryTest, ATimeWithSecondsIsWalkedAndSteppedThroughFourParts) {
    Value = {2026, 12, 6, 5, 23, 59, 59, 0};
    PickerKeys keys(PickerFields::TimeWithSeconds, Value, Entry);
    EXPECT_TRUE(keys.Press(VK_END));
    EXPECT_EQ(Entry.Part, 3);
    keys.Step(1);
    EXPECT_EQ(Value.Hour, 11);
    EXPECT_TRUE(keys.Press(VK_RIGHT)); // already at the last
    EXPECT_EQ(Entry.Part, 3);
    EXPECT_TRUE(keys.Press(VK_LEFT));
    EXPECT_EQ(Entry.Part, 2);
    keys.Step(1);
    EXPECT_EQ(Value.Second, 0);
    EXPECT_EQ(Value.Minute, 59); // the part alone
    keys.Step(-1);
    EXPECT_EQ(Value.Second, 59);
    EXPECT_TRUE(keys.IsComplete());
    EXPECT_TRUE(Entry.Untold);
    const PickerFace face = FaceOf(PickerFields::TimeWithSeconds, Value, Entry);
    EXPECT_EQ(face.Text, u"11:59:59 AM");
    EXPECT_EQ(PartAt(face, 2), 0);
    EXPECT_EQ(PartAt(face, 4), 1);
    EXPECT_EQ(PartAt(face, 7), 2);
    EXPECT_EQ(PartAt(face, 9), 3);
}

TEST_F(PickerEntryTest, StepsBeginAnewBeyondTheEndOfTheirPart) {
    const auto step = [this](PickerFields kind, const SYSTEMTIME& from, int part, int by) {
        Value = from;
        Entry = PickerEntry{};
        Entry.Part = part;
        PickerKeys keys(kind, Value, Entry);
        keys.Step(by);
        EXPECT_TRUE(keys.IsComplete());
        return FaceOf(kind, Value, Entry).Text;
    };
    const SYSTEMTIME last{2027, 12, 0, 31, 23, 59, 0, 0};
    EXPECT_EQ(step(PickerFields::Date, last, 0, 1), u"1/31/2027");
    EXPECT_EQ(step(PickerFields::Date, last, 1, 1), u"12/1/2027");
    EXPECT_EQ(step(PickerFields::Date, last, 2, 1), u"12/31/2028");
    EXPECT_EQ(step(PickerFields::Time, last, 0, 1), u"12:59 AM");
    EXPECT_EQ(step(PickerFields::Time, last, 1, 1), u"11:00 PM");
    EXPECT_EQ(step(PickerFields::Time, last, 2, 1), u"11:59 AM");
    const SYSTEMTIME first{1601, 1, 0, 1, 0, 0, 0, 0};
    EXPECT_EQ(step(PickerFields::Date, first, 0, -1), u"12/1/1601");
    EXPECT_EQ(step(PickerFields::Date, first, 1, -1), u"1/31/1601");
    EXPECT_EQ(step(PickerFields::Date, first, 2, -1), u"1/1/1601");
    EXPECT_EQ(step(PickerFields::Time, first, 0, -1), u"11:00 PM");
    EXPECT_EQ(step(PickerFields::Time, first, 1, -1), u"12:59 AM");
    const SYSTEMTIME march{2028, 3, 0, 31, 0, 0, 0, 0};
    EXPECT_EQ(step(PickerFields::Date, march, 0, -1), u"2/29/2028");
    const SYSTEMTIME leap{2028, 2, 0, 29, 0, 0, 0, 0};
    EXPECT_EQ(step(PickerFields::Date, leap, 2, 1), u"2/28/2029");
    EXPECT_EQ(step(PickerFields::Date, {9999, 5, 0, 1, 0, 0, 0, 0}, 2, 1), u"5/1/9999");
}

TEST_F(PickerEntryTest, PartsAreFoundByTheirCharacters) {
    const PickerFace date = FaceOf(PickerFields::Date, {2026, 12, 6, 5, 0, 0, 0, 0}, {});
    EXPECT_EQ(date.Text, u"12/5/2026");
    const int parts[] = {0, 0, 0, 1, 1, 2, 2, 2, 2, 2};
    for (int character = 0; character < 10; ++character) {
        EXPECT_EQ(PartAt(date, character), parts[character]) << character;
    }
    EXPECT_EQ(FaceOf(PickerFields::Time, {2026, 1, 0, 1, 0, 5, 0, 0}, {}).Text, u"12:05 AM");
}

TEST_F(PickerEntryTest, KeysThatMeanNothingAreLeft) {
    Value = {2026, 12, 6, 5, 14, 45, 30, 0};
    PickerKeys keys(PickerFields::Date, Value, Entry);
    EXPECT_FALSE(keys.Press(VK_RETURN));
    EXPECT_FALSE(keys.Press(VK_TAB));
    EXPECT_FALSE(keys.Type(u'a')); // only a time has halves
    EXPECT_TRUE(keys.Press(VK_DELETE));
    EXPECT_TRUE(keys.Press(VK_LEFT)); // already at the first part
    EXPECT_EQ(Entry.Part, 0);
    EXPECT_FALSE(keys.IsComplete());
    EXPECT_FALSE(Entry.Untold);
}

} // namespace
} // namespace tavo::shell
