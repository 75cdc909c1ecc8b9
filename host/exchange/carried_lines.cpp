// Lines that are kept as they came, as far as they are text.
#include "host/exchange/carried_lines.h"

#include "host/exchange/calendar_text.h"
#include "host/locale/utf.h"
#include "host/rules/save_rules.h"

#include <algorithm>

namespace tavo::exchange {
namespace {

// So that what began can end.
constexpr std::size_t kKeptForFrames = rules::kMaxCarriedBytes / 16;

} // namespace

void AppendCarried(std::string& lines, std::string_view line) {
    if (!lines.empty()) {
        lines += '\n';
    }
    const auto isPlain = [](char character) { return static_cast<signed char>(character) > 0 && character != '\r'; };
    if (std::all_of(line.begin(), line.end(), isPlain)) {
        lines += line;
        return;
    }
    std::string text(line);
    std::erase_if(text, [](char character) { return character == '\0' || character == '\r'; });
    lines += locale::ToUtf8(DecodeText(text));
}

void AppendCarriedLines(std::string& lines, std::string_view others) {
    lines += lines.empty() || others.empty() ? "" : "\n";
    lines += others;
}

void CarriedLines::Clear() {
    *this = CarriedLines();
}

bool CarriedLines::Add(std::string& lines, std::string_view line, bool isFrame) {
    const std::size_t most = rules::kMaxCarriedBytes - (isFrame ? 0 : kKeptForFrames);
    const std::size_t before = lines.size();
    bool fits = !IsFull && line.size() < most;
    if (fits) {
        AppendCarried(lines, line); // Latin-1 grows
        fits = Size + lines.size() - before < most;
    }
    if (fits) {
        Size += lines.size() - before + 1;
        return true;
    }
    lines.resize(before);
    if (isFrame && !IsFull) {
        *this = CarriedLines();
        IsFull = true;
    }
    return false;
}

std::string CarriedLines::Join(const std::vector<std::size_t>& alarms) const {
    std::string lines = Own;
    for (const std::size_t place : alarms) {
        if (place < Alarms.size()) { // fewer where they were too many to be kept
            AppendCarriedLines(lines, Alarms[place]);
        }
    }
    return lines;
}

} // namespace tavo::exchange
