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
    for (; number > 0 || digits.empty(); number /= 10) {
        digits += static_cast<char16_t>(u'0' + number % 10);
    }
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
            if (at == picture.size() || picture[at] != u'\'') {
                return;
            }
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
        if (!appendField(text, letter, end - at)) {
            text += picture.substr(at, end - at);
        }
        at = end;
    }
    return text;
}

} // namespace

std::optional<std::u16string> FormatDate(const SYSTEMTIME& date, std::u16string_view picture) {
    if (date.Year < kFirstPictureYear || date.Year > kLastPictureYear || !IsDate(date.Year, date.Month, date.Day)) {
        return std::nullopt;
    }
    const auto weekday = static_cast<std::size_t>(WeekdayOfDayNumber(DayNumberOf(date.Year, date.Month, date.Day)));
    return FormatPicture(picture, [&](std::u16string& text, char16_t letter, std::size_t letters) {
        switch (letter) {
        case u'd':
            if (letters < kAbbreviationLength) {
                AppendShortNumber(text, date.Day, letters);
            } else {
                AppendName(text, kDayNames[weekday], letters);
            }
            return true;
        case u'M':
            if (letters < kAbbreviationLength) {
                AppendShortNumber(text, date.Month, letters);
            } else {
                AppendName(text, kMonthNames[date.Month - 1u], letters);
            }
            return true;
        case u'y':
            if (letters <= 2) {
                AppendShortNumber(text, date.Year % 100, letters);
            } else {
                AppendNumber(text, date.Year, 4);
            }
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
    if (time.Hour > 23 || time.Minute > 59 || time.Second > 59 || time.Milliseconds > 999) {
        return std::nullopt;
    }
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
            if (letters > 1) {
                text += u'M';
            }
            return true;
        default:
            return false;
        }
    });
}

} // namespace tavo::locale
