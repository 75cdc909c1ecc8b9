// Digits, letters and arrows on their way to a date or time.
#include "host/shell/picker_entry.h"

#include "platform/messages.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <string_view>

namespace tavo::shell {

namespace {

constexpr int kMonth = 0; // parts of a date
constexpr int kDay = 1;
constexpr int kYear = 2;
constexpr int kHour = 0; // parts of a time
constexpr int kMinute = 1;
constexpr int kSecond = 2; // where there are seconds; the half of the day comes last

constexpr int kFirstYear = 1601;
constexpr int kLastYear = 9999;
constexpr int kLastShortYear = 29; // as with dates that are read: 0 to 29 lie in this century, 30 to 99 in the last
constexpr int kHalfDay = 12;       // hours
constexpr int kDayOfHours = 24;
constexpr int kHourOfMinutes = 60;
constexpr int kMinuteOfSeconds = 60;

struct PartLimit {
    int Highest;
    std::size_t Digits;
};

// The hour also as others count it, from 0 to 23.
constexpr std::array<PartLimit, 3> kDateLimits{{{12, 2}, {31, 2}, {kLastYear, 4}}};
constexpr std::array<PartLimit, 3> kTimeLimits{{{23, 2}, {59, 2}, {59, 2}}};

int ToNumber(std::u16string_view digits) {
    int number = 0;
    for (const char16_t digit : digits) {
        number = number * 10 + (digit - u'0');
    }
    return number;
}

std::u16string ToText(int number, std::size_t digits = 1) {
    const std::string plain = std::to_string(number);
    std::u16string text(plain.begin(), plain.end());
    return text.size() < digits ? std::u16string(digits - text.size(), u'0') + text : text;
}

int LengthOfMonth(int year, int month) {
    const auto last = std::chrono::year{year} / std::chrono::month{static_cast<unsigned>(month)} / std::chrono::last;
    return static_cast<int>(static_cast<unsigned>(last.day()));
}

// Of `count` numbers from `first` on.
int Wrap(int number, int first, int count) {
    return ((number - first) % count + count) % count + first;
}

// The last part's number: how many come before it.
constexpr int LastPartOf(PickerFields fields) {
    return fields == PickerFields::TimeWithSeconds ? 3 : 2;
}

// The minute of three digits in a row, which are an hour of one and a minute of two: "230" is half past two, not
// twenty-three. -1 where they are none.
int MinuteOfThreeDigits(const PickerEntry& entry) {
    if (entry.Part != kMinute || entry.Typed.size() != 1 || entry.HourRun.size() != 2) {
        return -1;
    }
    const int minute = ToNumber(entry.HourRun.substr(1) + entry.Typed);
    return minute < kHourOfMinutes ? minute : -1;
}

std::vector<std::u16string> PartsOfTime(const SYSTEMTIME& time, bool withSeconds) {
    const int hour = time.Hour % kHalfDay;
    std::vector<std::u16string> parts{ToText(hour == 0 ? kHalfDay : hour), ToText(time.Minute, 2)};
    if (withSeconds) {
        parts.push_back(ToText(time.Second, 2));
    }
    parts.emplace_back(time.Hour < kHalfDay ? u"AM" : u"PM");
    return parts;
}

} // namespace

PickerFields FieldsOf(ControlKind kind, std::u16string_view picture) {
    if (kind != ControlKind::TimePicker) {
        return PickerFields::Date;
    }
    return picture.find(u"ss") == std::u16string_view::npos ? PickerFields::Time : PickerFields::TimeWithSeconds;
}

PickerFace FaceOf(PickerFields fields, const SYSTEMTIME& time, const PickerEntry& entry) {
    const bool isTime = fields != PickerFields::Date;
    if (isTime && MinuteOfThreeDigits(entry) >= 0) {
        SYSTEMTIME taken = time;
        PickerEntry after = entry;
        PickerKeys(fields, taken, after).TakeTyped();
        return FaceOf(fields, taken, after);
    }
    std::vector<std::u16string> parts;
    if (isTime) {
        parts = PartsOfTime(time, fields == PickerFields::TimeWithSeconds);
    } else {
        parts = {ToText(time.Month), ToText(entry.TypedDay != 0 ? entry.TypedDay : time.Day), ToText(time.Year)};
    }
    if (!entry.Typed.empty()) {
        parts[static_cast<std::size_t>(entry.Part)] = entry.Typed;
    }
    PickerFace face;
    for (std::size_t part = 0; part < parts.size(); ++part) {
        const int first = static_cast<int>(face.Text.size());
        face.Text += parts[part];
        face.Parts.push_back({first, static_cast<int>(face.Text.size())});
        if (part + 1 < parts.size()) {
            const bool isBeforeHalf = part + 2 == parts.size();
            face.Text += isTime ? (isBeforeHalf ? u" " : u":") : u"/";
        }
    }
    return face;
}

int PartAt(const PickerFace& face, int character) {
    const int last = static_cast<int>(face.Parts.size()) - 1;
    for (int part = 0; part < last; ++part) {
        if (character <= face.Parts[static_cast<std::size_t>(part)].Last) {
            return part;
        }
    }
    return last;
}

int PickerKeys::LastPart() const {
    return LastPartOf(Fields);
}

void PickerKeys::GoTo(int part) {
    TakeTyped();
    Entry.Part = std::clamp(part, 0, LastPart());
    Entry.HourRun.clear();
}

bool PickerKeys::Press(int key) {
    switch (key) {
    case VK_LEFT:
        GoTo(Entry.Part - 1);
        return true;
    case VK_RIGHT:
        GoTo(Entry.Part + 1);
        return true;
    case VK_HOME:
        GoTo(0);
        return true;
    case VK_END:
        GoTo(LastPart());
        return true;
    case VK_UP:
        Step(1);
        return true;
    case VK_DOWN:
        Step(-1);
        return true;
    case VK_BACK:
        if (!Entry.Typed.empty()) {
            Entry.Typed.pop_back();
        }
        return true;
    case VK_DELETE:
        Entry.Typed.clear();
        return true;
    default:
        return false;
    }
}

bool PickerKeys::Type(char16_t character) {
    if (character >= u'0' && character <= u'9') {
        TypeDigit(character);
        return true;
    }
    const bool isMorning = character == u'a' || character == u'A';
    if (IsTime() && (isMorning || character == u'p' || character == u'P')) {
        ChooseHalf(!isMorning);
        return true;
    }
    constexpr std::u16string_view separators = u"/:.-, ";
    if (separators.find(character) == std::u16string_view::npos) {
        return false;
    }
    Entry.HourRun.clear();
    if (!Entry.Typed.empty()) { // else the part before it was full, and this one has begun by itself
        Advance();
        Entry.HourRun.clear();
    }
    return true;
}

void PickerKeys::TypeDigit(char16_t digit) {
    if (IsHalf()) {
        return;
    }
    const auto part = static_cast<std::size_t>(Entry.Part);
    const PartLimit& limit = IsTime() ? kTimeLimits[part] : kDateLimits[part];
    const std::u16string typed = Entry.Typed + digit;
    if (!Entry.Typed.empty() && ToNumber(typed) > limit.Highest) {
        Advance(); // it begins the next part
        TypeDigit(digit);
        return;
    }
    Entry.Typed = typed;
    const bool isFull = typed.size() == limit.Digits || ToNumber(typed) * 10 > limit.Highest;
    if (isFull) {
        Advance();
    }
}

// To the next part; from the last one nowhere, and all is typed.
void PickerKeys::Advance() {
    const std::u16string typed = Entry.Typed;
    const int hourBefore = Time.Hour;
    TakeTyped();
    if (Entry.Part == LastPart()) {
        Complete = true;
        return;
    }
    Entry.HourRun = IsTime() && Entry.Part == kHour ? typed : std::u16string();
    Entry.HourBefore = hourBefore;
    ++Entry.Part;
}

void PickerKeys::ChooseHalf(bool afternoon) {
    TakeTyped();
    SYSTEMTIME chosen = Time;
    chosen.Hour = static_cast<std::uint16_t>(chosen.Hour % kHalfDay + (afternoon ? kHalfDay : 0));
    Put(chosen);
    Entry.Part = LastPart();
    Complete = true;
}

void PickerKeys::TakeTyped() {
    if (Entry.Typed.empty()) {
        return;
    }
    const int number = ToNumber(Entry.Typed);
    const std::size_t digits = Entry.Typed.size();
    const int minute = IsTime() ? MinuteOfThreeDigits(Entry) : -1;
    Entry.Typed.clear();
    if (!IsTime()) {
        TakeDatePart(number, digits);
    } else if (minute >= 0) {
        Entry.Part = kHour;
        Time.Hour = static_cast<std::uint16_t>(Entry.HourBefore); // its half of the day, not that of "23"
        TakeTimePart(Entry.HourRun[0] - u'0');
        Entry.Part = kMinute;
        TakeTimePart(minute);
    } else {
        TakeTimePart(number);
    }
}

void PickerKeys::TakeDatePart(int number, std::size_t digits) {
    const int day = Entry.TypedDay != 0 ? Entry.TypedDay : Time.Day;
    if (Entry.Part == kMonth && number >= 1) {
        PutDate(Time.Year, number, day);
    } else if (Entry.Part == kDay && number >= 1) {
        Entry.TypedDay = number;
        PutDate(Time.Year, Time.Month, number);
    } else if (Entry.Part == kYear) {
        constexpr int century = 100;
        if (digits <= 2) {
            number += number <= kLastShortYear ? 20 * century : 19 * century;
        }
        if (number >= kFirstYear) {
            PutDate(number, Time.Month, day);
        }
    }
}

void PickerKeys::TakeTimePart(int number) {
    SYSTEMTIME taken = Time;
    if (Entry.Part == kMinute) {
        taken.Minute = static_cast<std::uint16_t>(number);
    } else if (Entry.Part == kSecond) {
        taken.Second = static_cast<std::uint16_t>(number);
    } else if (number == 0 || number > kHalfDay) {
        taken.Hour = static_cast<std::uint16_t>(number);
    } else {
        taken.Hour = static_cast<std::uint16_t>(number % kHalfDay + (Time.Hour < kHalfDay ? 0 : kHalfDay));
    }
    Put(taken);
}

void PickerKeys::Step(int by) {
    TakeTyped();
    Entry.HourRun.clear();
    Entry.TypedDay = 0;
    SYSTEMTIME stepped = Time;
    if (IsTime()) {
        if (IsHalf()) {
            stepped.Hour = static_cast<std::uint16_t>(Wrap(Time.Hour + kHalfDay, 0, kDayOfHours));
        } else if (Entry.Part == kSecond) {
            stepped.Second = static_cast<std::uint16_t>(Wrap(Time.Second + by, 0, kMinuteOfSeconds));
        } else if (Entry.Part == kMinute) {
            stepped.Minute = static_cast<std::uint16_t>(Wrap(Time.Minute + by, 0, kHourOfMinutes));
        } else {
            stepped.Hour = static_cast<std::uint16_t>(Wrap(Time.Hour + by, 0, kDayOfHours));
        }
        Put(stepped);
    } else if (Entry.Part == kMonth) {
        PutDate(Time.Year, Wrap(Time.Month + by, 1, 12), Time.Day);
    } else if (Entry.Part == kDay) {
        PutDate(Time.Year, Time.Month, Wrap(Time.Day + by, 1, LengthOfMonth(Time.Year, Time.Month)));
    } else {
        PutDate(std::clamp(Time.Year + by, kFirstYear, kLastYear), Time.Month, Time.Day);
    }
    Complete = true;
}

// A day that the month lacks becomes its last.
void PickerKeys::PutDate(int year, int month, int day) {
    SYSTEMTIME date = Time;
    date.Year = static_cast<std::uint16_t>(year);
    date.Month = static_cast<std::uint16_t>(month);
    date.Day = static_cast<std::uint16_t>(std::min(day, LengthOfMonth(year, month)));
    Put(date);
}

void PickerKeys::Put(const SYSTEMTIME& time) {
    Entry.Untold = Entry.Untold || time != Time;
    Time = time;
}

} // namespace tavo::shell
