// Reads restriction text: a small recursive descent over alternatives, conjunctions, comparisons and values.
#include "host/rules/restriction.h"

#include <array>
#include <cstddef>
#include <optional>

namespace tavo::rules {

namespace {

constexpr std::size_t kMaxTextLength = 1 << 16;
constexpr int kLowestYear = 1601;
constexpr int kHighestYear = 9999;
constexpr int kFirstYearOfThisCentury = 30; // two digits below this are years from 2000

enum class ValueKind { Text, Date, Number, Boolean };

struct KnownProperty {
    std::u16string_view Name;
    Property Id;
    ValueKind Kind;
};

constexpr std::array kProperties{
    KnownProperty{u"START", Property::Start, ValueKind::Date},
    KnownProperty{u"END", Property::End, ValueKind::Date},
    KnownProperty{u"SUBJECT", Property::Subject, ValueKind::Text},
    KnownProperty{u"LOCATION", Property::Location, ValueKind::Text},
    KnownProperty{u"CATEGORIES", Property::Categories, ValueKind::Text},
    KnownProperty{u"BODY", Property::Body, ValueKind::Text},
    KnownProperty{u"REMINDERSOUNDFILE", Property::ReminderSoundFile, ValueKind::Text},
    KnownProperty{u"OID", Property::Oid, ValueKind::Number},
    KnownProperty{u"DURATION", Property::Duration, ValueKind::Number},
    KnownProperty{u"ALLDAYEVENT", Property::AllDayEvent, ValueKind::Boolean},
    KnownProperty{u"BUSYSTATUS", Property::BusyStatus, ValueKind::Number},
    KnownProperty{u"SENSITIVITY", Property::Sensitivity, ValueKind::Number},
    KnownProperty{u"REMINDERSET", Property::ReminderSet, ValueKind::Boolean},
    KnownProperty{u"REMINDERMINUTESBEFORESTART", Property::ReminderMinutesBeforeStart, ValueKind::Number},
    KnownProperty{u"REMINDEROPTIONS", Property::ReminderOptions, ValueKind::Number},
    KnownProperty{u"ISRECURRING", Property::IsRecurring, ValueKind::Boolean},
};

// What a value says: one number or, for a date without a time, all seconds of its day.
struct ValueRange {
    std::int64_t Low = 0;
    std::int64_t High = 0;
    bool WholeDay = false;
};

char16_t ToUpper(char16_t c) {
    return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - u'a' + u'A') : c;
}

bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

bool IsLetter(char16_t c) {
    return ToUpper(c) >= u'A' && ToUpper(c) <= u'Z';
}

class Parser {
  public:
    explicit Parser(std::u16string_view text) : Text(text) {}

    bool ParseAll(Restriction& restriction) {
        do {
            restriction.Alternatives.emplace_back();
            if (!ParseConjunction(restriction.Alternatives.back())) {
                return false;
            }
        } while (TakeWord(u"OR"));
        SkipBlanks();
        return At == Text.size();
    }

  private:
    bool ParseConjunction(Conjunction& conjunction) {
        do {
            conjunction.emplace_back();
            if (!ParseComparison(conjunction.back())) {
                return false;
            }
        } while (TakeWord(u"AND"));
        return true;
    }

    bool ParseComparison(Condition& condition) {
        const KnownProperty* property = ParseProperty();
        std::optional<Comparison> comparison;
        if (property == nullptr || !(comparison = ParseOperator())) {
            return false;
        }
        SkipBlanks();
        condition.Subject = property->Id;
        condition.Text = *comparison;
        if (property->Kind == ValueKind::Text) {
            return ParseText(condition.Value);
        }
        ValueRange value;
        const bool read = property->Kind == ValueKind::Date      ? ParseDate(value)
                          : property->Kind == ValueKind::Boolean ? ParseBoolean(value)
                                                                 : ParseNumber(value);
        if (read) {
            SetRange(condition, *comparison, value);
        }
        return read;
    }

    static void SetRange(Condition& condition, Comparison comparison, const ValueRange& value) {
        condition.WholeDays = value.WholeDay;
        condition.Low = kLowestTime;
        condition.High = kHighestTime;
        switch (comparison) {
        case Comparison::Less:
            condition.High = value.Low - 1;
            break;
        case Comparison::LessOrEqual:
            condition.High = value.High;
            break;
        case Comparison::Greater:
            condition.Low = value.High + 1;
            break;
        case Comparison::GreaterOrEqual:
            condition.Low = value.Low;
            break;
        case Comparison::Equal:
        case Comparison::NotEqual:
            condition.Low = value.Low;
            condition.High = value.High;
            condition.Outside = comparison == Comparison::NotEqual;
            break;
        }
    }

    const KnownProperty* ParseProperty() {
        SkipBlanks();
        if (!Take(u'[')) {
            return nullptr;
        }
        const std::size_t end = Text.find(u']', At);
        if (end == std::u16string_view::npos) {
            return nullptr;
        }
        const std::u16string_view name = Text.substr(At, end - At);
        At = end + 1;
        for (const KnownProperty& property : kProperties) {
            if (EqualsWord(name, property.Name)) {
                return &property;
            }
        }
        return nullptr;
    }

    std::optional<Comparison> ParseOperator() {
        SkipBlanks();
        if (Take(u'<')) {
            return Take(u'=') ? Comparison::LessOrEqual : Take(u'>') ? Comparison::NotEqual : Comparison::Less;
        }
        if (Take(u'>')) {
            return Take(u'=') ? Comparison::GreaterOrEqual : Comparison::Greater;
        }
        if (Take(u'=')) {
            return Comparison::Equal;
        }
        return std::nullopt;
    }

    // In double quotes; two of them inside stand for one.
    bool ParseText(std::u16string& value) {
        if (!Take(u'"')) {
            return false;
        }
        while (At < Text.size()) {
            const char16_t c = Text[At++];
            if (c == u'"' && !Take(u'"')) {
                return true;
            }
            value.push_back(c);
        }
        return false;
    }

    bool ParseNumber(ValueRange& value) {
        const bool negative = Take(u'-');
        int digits = 0;
        if (!ParseDigits(value.Low, digits, 10)) {
            return false;
        }
        value.Low = negative ? -value.Low : value.Low;
        value.High = value.Low;
        return true;
    }

    bool ParseBoolean(ValueRange& value) {
        const bool isTrue = TakeWord(u"TRUE");
        if (isTrue || TakeWord(u"FALSE")) {
            value.Low = isTrue ? 1 : 0;
        } else if (ParseNumber(value)) {
            value.Low = value.Low != 0 ? 1 : 0; // true is -1 on the device
        } else {
            return false;
        }
        value.High = value.Low;
        return true;
    }

    // Month/day/year as the device's locale writes it, perhaps with a time.
    bool ParseDate(ValueRange& value) {
        std::int64_t month = 0;
        std::int64_t day = 0;
        std::int64_t year = 0;
        int digits = 0;
        int yearDigits = 0;
        if (!ParseDigits(month, digits, 2) || !Take(u'/') || !ParseDigits(day, digits, 2) || !Take(u'/') ||
            !ParseDigits(year, yearDigits, 4)) {
            return false;
        }
        if (yearDigits <= 2) {
            year += year < kFirstYearOfThisCentury ? 2000 : 1900;
        }
        if (year < kLowestYear || year > kHighestYear || month < 1 || month > 12 || day < 1 ||
            day > DaysInMonth(static_cast<int>(year), static_cast<int>(month))) {
            return false;
        }
        value.Low = MakeTime(static_cast<int>(year), static_cast<int>(month), static_cast<int>(day));
        value.High = value.Low + kSecondsPerDay - 1;
        value.WholeDay = true;
        const std::size_t dateEnd = At;
        SkipBlanks();
        if (At == dateEnd || At == Text.size() || !IsDigit(Text[At])) {
            return true;
        }
        std::int64_t time = 0;
        if (!ParseTime(time)) {
            return false;
        }
        value = {value.Low + time, value.Low + time, false};
        return true;
    }

    // 14:05, 14:05:09, 2:05 PM
    bool ParseTime(std::int64_t& seconds) {
        std::int64_t hour = 0;
        std::int64_t minute = 0;
        std::int64_t second = 0;
        int digits = 0;
        if (!ParseDigits(hour, digits, 2) || !Take(u':') || !ParseDigits(minute, digits, 2) ||
            (Take(u':') && !ParseDigits(second, digits, 2))) {
            return false;
        }
        const bool afternoon = TakeWord(u"PM");
        if (afternoon || TakeWord(u"AM")) {
            if (hour < 1 || hour > 12) {
                return false;
            }
            hour = hour % 12 + (afternoon ? 12 : 0);
        }
        seconds = hour * 3600 + minute * 60 + second;
        return hour < 24 && minute < 60 && second < 60;
    }

    bool ParseDigits(std::int64_t& number, int& digits, int most) {
        number = 0;
        for (digits = 0; At < Text.size() && IsDigit(Text[At]); ++digits, ++At) {
            if (digits == most) {
                return false;
            }
            number = number * 10 + (Text[At] - u'0');
        }
        return digits > 0;
    }

    static bool EqualsWord(std::u16string_view text, std::u16string_view upper) {
        if (text.size() != upper.size()) {
            return false;
        }
        for (std::size_t index = 0; index < text.size(); ++index) {
            if (ToUpper(text[index]) != upper[index]) {
                return false;
            }
        }
        return true;
    }

    bool TakeWord(std::u16string_view upper) {
        SkipBlanks();
        const std::size_t end = At + upper.size();
        if (end > Text.size() || !EqualsWord(Text.substr(At, upper.size()), upper) ||
            (end < Text.size() && (IsLetter(Text[end]) || IsDigit(Text[end])))) {
            return false;
        }
        At = end;
        return true;
    }

    bool Take(char16_t wanted) {
        const bool there = At < Text.size() && Text[At] == wanted;
        At += there ? 1 : 0;
        return there;
    }

    void SkipBlanks() {
        while (At < Text.size() && (Text[At] == u' ' || Text[At] == u'\t' || Text[At] == u'\r' || Text[At] == u'\n')) {
            ++At;
        }
    }

    std::u16string_view Text;
    std::size_t At = 0;
};

} // namespace

Status ParseRestriction(std::u16string_view text, Restriction& restriction) {
    Restriction parsed;
    if (text.size() > kMaxTextLength || !Parser(text).ParseAll(parsed)) {
        return Status::InvalidArgument;
    }
    restriction = std::move(parsed);
    return Status::Ok;
}

} // namespace tavo::rules
