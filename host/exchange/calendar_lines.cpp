// Content lines as a calendar file holds them.
#include "host/exchange/calendar_lines.h"

#include "host/locale/utf.h"

namespace tavo::exchange {
namespace {

constexpr std::size_t kLongestFolded = 75; // bytes, without the end of the line

// Two of them: 0 to 99.
void AppendDigits(std::string& text, int number) {
    text += static_cast<char>('0' + number / 10);
    text += static_cast<char>('0' + number % 10);
}

bool IsContinuation(char character) {
    return (static_cast<unsigned char>(character) & 0xC0) == 0x80;
}

} // namespace

void AppendFolded(std::string_view line, std::string& file) {
    std::size_t room = kLongestFolded;
    while (line.size() > room) {
        std::size_t cut = room;
        while (cut > 1 && IsContinuation(line[cut])) {
            --cut;
        }
        file.append(line.substr(0, cut)).append("\r\n ");
        line.remove_prefix(cut);
        room = kLongestFolded - 1; // the blank counts
    }
    file.append(line).append("\r\n");
}

std::string EscapeText(std::u16string_view text) {
    std::string escaped;
    for (const char character : locale::ToUtf8(text)) {
        if (character == '\n') {
            escaped += "\\n";
        } else if (character == '\\' || character == ';' || character == ',') {
            escaped += '\\';
            escaped += character;
        } else if (static_cast<unsigned char>(character) >= 0x20 || character == '\t') {
            escaped += character;
        }
    }
    return escaped;
}

std::string WriteDate(rules::Seconds time) {
    const rules::CivilDate date = rules::CivilFromDay(rules::DayOf(time));
    std::string text;
    AppendDigits(text, date.Year / 100);
    AppendDigits(text, date.Year % 100);
    AppendDigits(text, date.Month);
    AppendDigits(text, date.Day);
    return text;
}

std::string WriteDateTime(rules::Seconds time) {
    const auto ofDay = static_cast<int>(rules::TimeOfDay(time));
    std::string text = WriteDate(time) + 'T';
    AppendDigits(text, ofDay / 3600);
    AppendDigits(text, ofDay / 60 % 60);
    AppendDigits(text, ofDay % 60);
    return text;
}

std::string WriteMoment(std::chrono::system_clock::time_point moment) {
    const auto sinceEpoch = std::chrono::duration_cast<std::chrono::seconds>(moment.time_since_epoch());
    return WriteDateTime(sinceEpoch.count() + rules::MidnightOf(rules::kUnixEpochDay)) + "Z";
}

std::string EncodeBase64(std::span<const std::uint8_t> bytes) {
    constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - at);
        std::uint32_t group = 0;
        for (std::size_t index = 0; index < 3; ++index) {
            group = group << 8 | (index < count ? bytes[at + index] : 0U);
        }
        for (std::size_t index = 0; index < 4; ++index) {
            text += index <= count ? digits[group >> (18 - 6 * index) & 63] : '=';
        }
    }
    return text;
}

} // namespace tavo::exchange
