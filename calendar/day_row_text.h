// The words of a row of the day list.
#pragma once

#include "platform/locale.h"
#include "store/appointment_data.h"

#include <string>

namespace tavo {

struct DayRowText {
    std::u16string Heading;    // the subject, with the location in brackets
    std::u16string Times;      // when it takes place
    std::u16string Recurrence; // how it repeats; empty when it does not

    friend bool operator==(const DayRowText&, const DayRowText&) = default;
};

DayRowText DescribeDayRow(const AppointmentData& record, ILocale& locale);

} // namespace tavo
