// One item in words.
#pragma once

#include "host/rules/stored_item.h"
#include "tools/arguments.h"

#include <string>

namespace tavo::tools {

// "Wed 2 December 2026 15:00 - 16:00", "Wed 2 December 2026, all day".
std::string DescribeSpan(const rules::StoredItem& item);

// The same behind its subject, made harmless, and with how it repeats, reminds and what kind it is:
// "Dentist, Wed 2 December 2026 15:00 - 16:00, weekly on Wed, reminder 15 minutes before".
std::string DescribeItem(const rules::StoredItem& item, ExportKind kind);

// Made harmless; what has none is "(no subject)".
std::string DescribeSubject(const rules::StoredItem& item);

// "reminder at its start", "reminder 15 minutes before"; "" without one.
std::string DescribeReminder(const rules::StoredItem& item);

// "with Bell.wav"; "" of a reminder without a sound.
std::string DescribeSound(const rules::StoredItem& item);

// Why FindOccurrence found nothing on the day, as the end of a sentence.
std::string DescribeNoOccurrence(Oid item, Day day, Status why);

// "2026-12-02T15:00"
std::string WriteIsoTime(rules::Seconds time);

// "Alarm"
std::string_view NameKind(ExportKind kind);

} // namespace tavo::tools
