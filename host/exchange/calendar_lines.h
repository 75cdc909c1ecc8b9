// Content lines as a calendar file holds them: folded, and each with its end.
#pragma once

#include "host/rules/wall_time.h"

#include <chrono>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tavo::exchange {

// Puts a line behind `file`: cut where it is longer than 75 bytes, never within a character.
void AppendFolded(std::string_view line, std::string& file);

// A text as its value is written: its line ends and the four signs that mean something escaped. Characters that the
// format forbids are left out.
std::string EscapeText(std::u16string_view text);

// "20260503", or "20260503T090000".
std::string WriteDate(rules::Seconds time);
std::string WriteDateTime(rules::Seconds time);
// In universal time: "20260503T090000Z".
std::string WriteMoment(std::chrono::system_clock::time_point moment);

std::string EncodeBase64(std::span<const std::uint8_t> bytes);

} // namespace tavo::exchange
