// The picture language: runs of one letter stand for fields, text in single quotes for itself.
#include "host/locale/date_pictures.h"

#include <algorithm>
#include <array>

namespace tavo::locale {

namespace {

constexpr std::array<std::u16string_view, 7> kDayNames{u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                                       u"Thursday", u"Friday", u"Saturday"};
constexpr std::array<std::u16string_view, 12> kMonthNames{u"January",   u"February", u"March",    u"April",
                                                          u"May",       u"June",     u"July",     u"August",
                                                          u"September", u"October",  u"November", u"December"};
constexpr std::size_t kAbbreviationLength = 3; // of day and month names
constexpr std::u16string_view kEra = u"A.D.";

void AppendNumber(std::u16string& text, int number, std::size_t leastDigits) {
    std::u16string digits;
    for (; number > 0 || digits.empty(); number /= 10)
        digits += static_cast<char16_t>(u'0' + number % 10);
    digits.append(leastDigits > digits.size() ? leastDigits - digits.size() : 0, u'0');
    text.append(digits.rbegin(), digits.rend());
}

// A number of one or two digits: one letter of the picture asks for as few as will do, more for two.
void AppendShortNumber(std::u16string& text, int number, std::size_t letters) {
    AppendNumber(text, number, std::min<std::size_t>(letters, 2));
}

void AppendName(std::u16string& text, std::u16string_view name, std::size_t letters) {
    text += letters == kAbbreviationLength ? name.substr(0, kAbbreviationLength) : name;
}

// The quoted text that begins at `at`, moving `at` behind it. A doubled quote inside is one quote; a quote that is
// never closed reaches to the end.
void AppendQuoted(std::u16string& text, std::u16string_view picture, std::size_t& at) {
    for (++at; at < picture.size(); ++at) {
        if (picture[at] == u'\'') {
            ++at;
            if (at == picture.size() || picture[at] != u'\'')
                return;
        }
        text += picture[at];
    }
}

// Walks the picture; `appendField(text, letter, letters)` says whether the letter is a field of this picture.
template <class AppendField> std::u16string FormatPicture(std::u16string_view picture, AppendField appendField) {
    std::u16string text;
    for (std::size_t at = 0; at < picture.size();) {
        const char16_t letter = picture[at];
        if (letter == u'\'') {
            AppendQuoted(text, picture, at);
            continue;
        }
        const std::size_t end = std::min(picture.find_first_not_of(letter, at), picture.size());
        if (!appendField(text, letter, end - at))
            text += picture.substr(at, end - at);
        at = end;
    }
    return text;
}

std::u16string_view TrimBlanks(std::u16string_view text) {
    constexpr std::u16string_view kBlanks = u" \t\r\n";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::u16string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Takes the digits that `text` begins with, at most four; the number of digits is returned.
std::size_t TakeDigits(std::u16string_view& text, int& number) {
    std::size_t digits = 0;
    number = 0;
    for (; digits < std::min<std::size_t>(text.size(), 4) && text[digits] >= u'0' && text[digits] <= u'9'; ++digits)
        number = number * 10 + (text[digits] - u'0');
    text.remove_prefix(digits);
    return digits;
}

bool TakeSlash(std::u16string_view& text) {
    if (!text.starts_with(u'/'))
        return false;
    text.remove_prefix(1);
    return true;
}

// A year of two digits lies in the hundred years that end with this one.
constexpr int kLastYearOfTwoDigits = 2029;

int YearOfTwoDigits(int number) {
    const int year = kLastYearOfTwoDigits / 100 * 100 + number;
    return year > kLastYearOfTwoDigits ? year - 100 : year;
}

} // namespace

std::optional<std::u16string> FormatDate(const SYSTEMTIME& date, std::u16string_view picture) {
    if (date.Year < kFirstPictureYear || date.Year > kLastPictureYear || !IsDate(date.Year, date.Month, date.Day))
        return std::nullopt;
    const auto weekday = static_cast<std::size_t>(WeekdayOfDayNumber(DayNumberOf(date.Year, date.Month, date.Day)));
    return FormatPicture(picture, [&](std::u16string& text, char16_t letter, std::size_t letters) {
        switch (letter) {
        case u'd':
            if (letters < kAbbreviationLength)
                AppendShortNumber(text, date.Day, letters);
            else
                AppendName(text, kDayNames[weekday], letters);
            return true;
        case u'M':
            if (letters < kAbbreviationLength)
                AppendShortNumber(text, date.Month, letters);
            else
                AppendName(text, kMonthNames[date.Month - 1u], letters);
            return true;
        case u'y':
            if (letters <= 2)
                AppendShortNumber(text, date.Year % 100, letters);
            else
                AppendNumber(text, date.Year, 4);
            return true;
        case u'g':
            text += kEra;
            return true;
        default:
            return false;
        }
    });
}

std::optional<std::u16string> FormatTime(const SYSTEMTIME& time, std::u16string_view picture) {
    if (time.Hour > 23 || time.Minute > 59 || time.Second > 59 || time.Milliseconds > 999)
        return std::nullopt;
    return FormatPicture(picture, [&](std::u16string& text, char16_t letter, std::size_t letters) {
        switch (letter) {
        case u'h':
            AppendShortNumber(text, time.Hour % 12 == 0 ? 12 : time.Hour % 12, letters);
            return true;
        case u'H':
            AppendShortNumber(text, time.Hour, letters);
            return true;
        case u'm':
            AppendShortNumber(text, time.Minute, letters);
            return true;
        case u's':
            AppendShortNumber(text, time.Second, letters);
            return true;
        case u't':
            text += time.Hour < 12 ? u'A' : u'P';
            if (letters > 1)
                text += u'M';
            return true;
        default:
            return false;
        }
    });
}

std::optional<CivilDate> ParseShortDate(std::u16string_view text) {
    text = TrimBlanks(text);
    CivilDate date;
    const std::size_t monthDigits = TakeDigits(text, date.Month);
    const bool hasDay = TakeSlash(text);
    const std::size_t dayDigits = TakeDigits(text, date.Day);
    const bool hasYear = TakeSlash(text);
    const std::size_t yearDigits = TakeDigits(text, date.Year);
    if (!hasDay || !hasYear || !text.empty() || monthDigits > 2 || dayDigits > 2 ||
        (yearDigits != 2 && yearDigits != 4))
        return std::nullopt;
    if (yearDigits == 2)
        date.Year = YearOfTwoDigits(date.Year);
    if (date.Year < kFirstPictureYear || !IsDate(date.Year, date.Month, date.Day))
        return std::nullopt;
    return date;
}

} // namespace tavo::locale
