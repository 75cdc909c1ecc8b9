// The texts of a print that do not come from the store.
#pragma once

#include "host/outlook/occurrence_reader.h"
#include "host/rules/wall_time.h"

#include <string>
#include <string_view>

namespace tavo::print {

using rules::DayNumber;

// By a picture of the device's locale, such as u"dddd, MMMM d, yyyy".
std::u16string WriteDate(DayNumber day, std::u16string_view picture);

// What stands before a subject so that its kind is seen without colours; empty for appointments.
std::u16string_view SignOf(outlook::MirroredKind kind);

// "* holiday   + anniversary   ! alarm"
extern const std::u16string_view kLegend;

} // namespace tavo::print
