// Dates in the device's language, and the signs of the kinds.
#include "host/print/page_words.h"

#include "host/locale/us_english_locale.h"

namespace tavo::print {

const std::u16string_view kLegend = u"* holiday   + anniversary   ! alarm";

std::u16string WriteDate(DayNumber day, std::u16string_view picture) {
    constexpr int room = 80;
    const rules::CivilDate civil = rules::CivilFromDay(day);
    SYSTEMTIME date;
    date.Year = static_cast<std::uint16_t>(civil.Year);
    date.Month = static_cast<std::uint16_t>(civil.Month);
    date.Day = static_cast<std::uint16_t>(civil.Day);
    date.DayOfWeek = static_cast<std::uint16_t>(rules::WeekdayOf(day));
    return locale::UsEnglishLocale().GetDateFormatW(LocaleId::User, date, picture, room).value_or(u"");
}

std::u16string_view SignOf(outlook::MirroredKind kind) {
    switch (kind) {
    case outlook::MirroredKind::Holiday:
        return u"* ";
    case outlook::MirroredKind::Anniversary:
        return u"+ ";
    case outlook::MirroredKind::Alarm:
        return u"! ";
    default:
        return u"";
    }
}

} // namespace tavo::print
