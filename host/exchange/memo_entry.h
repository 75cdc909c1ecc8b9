// Handwritten memos of days as the journal entries that other calendars read.
#pragma once

#include "host/exchange/event_writer.h"
#include "host/exchange/item_writer.h"
#include "host/exchange/memo_folder.h"
#include "host/exchange/piece_reader.h"
#include "host/rules/wall_time.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::exchange {

struct MemoEntry {
    std::string Name; // of its file: "20260503_090000.pwi"
    std::vector<std::uint8_t> Ink;
};

// The day of a memo of that name; nothing when no memo of a day is called so.
std::optional<rules::DayNumber> FindMemoDay(std::string_view name);

// Adds the entry to `file`.
void WriteMemoEntry(const MemoEntry& memo, std::string_view uid, const EventWords& words, std::string& file);

// Whether a journal entry is one that an export of ours wrote.
bool IsMemoEntry(const CalendarPiece& piece);
// What such a one says; nothing, and the reason for people, when it is no memo.
std::optional<MemoEntry> ReadMemoEntry(const CalendarPiece& piece, std::string& reason);

// Puts it into the folder, under a name beside its own where another memo has that. Unchanged when it is there.
ErrorCode KeepMemo(IMemoFolder& folder, const MemoEntry& memo, ImportResult& result);

} // namespace tavo::exchange
