// The values that options of several commands take.
#pragma once

#include "tools/arguments.h"
#include "tools/when.h"
#include "tools/word_reader.h"

namespace tavo::tools {

// Each takes the option's value. False, with a sentence in `error`, when there is none or it is none of these.
bool TakeDay(WordReader& reader, std::string_view option, std::optional<Day>& day, std::string& error);
bool TakeKind(WordReader& reader, std::optional<ExportKind>& kind, std::string& error);
bool TakeItem(WordReader& reader, std::vector<std::int32_t>& items, std::string& error);
bool TakeWhen(WordReader& reader, std::optional<When>& when, std::string& error);
bool TakeText(WordReader& reader, std::optional<std::string>& text, std::string& error);

// --tsv or --json. False, without a sentence in `error` for another option.
bool TakeFormat(WordReader& reader, std::string_view option, ListFormat& format, std::string& error);

// A day as people write it, without a time. Nothing, with a sentence in `error`, for anything else.
std::optional<Day> ReadDay(std::string_view text, std::string_view whatFor, std::string& error);

// The number of an item: 1 or more.
bool ReadItemNumber(std::string_view text, std::vector<std::int32_t>& items, std::string& error);

} // namespace tavo::tools
