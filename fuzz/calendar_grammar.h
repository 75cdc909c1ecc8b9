// Calendars that a fuzzer's bytes choose by a grammar: of all that they may hold, with what is odd and what is hostile.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace tavo::fuzz {

// Turns the bytes into decisions; at their end everything is the first choice.
class Choices {
  public:
    Choices(const std::uint8_t* data, std::size_t size) : Data(data), Size(size) {}

    int Below(int limit) { return At < Size ? Data[At++] % limit : 0; }

    bool Once(int in) { return Below(in) == in - 1; }

    template <std::size_t Count> std::string Of(const std::array<const char*, Count>& words) {
        return words[static_cast<std::size_t>(Below(static_cast<int>(Count)))];
    }

    // Bytes as they are, as the value of a line.
    std::string Raw(int most) {
        std::string text;
        for (int left = Below(most); left > 0 && At < Size; --left) {
            const char byte = static_cast<char>(Data[At++]);
            text.push_back(byte == '\r' || byte == '\n' || byte == '\0' ? '?' : byte);
        }
        return text;
    }

  private:
    const std::uint8_t* Data;
    std::size_t Size;
    std::size_t At = 0;
};

// The value of an RRULE or EXRULE, with the end of its line.
std::string MakeRule(Choices& choices);
// A line with a list of dates, from one day of the week to the next or from day to day, perhaps long.
std::string MakeDateList(Choices& choices, const char* name);
// A whole file.
std::string MakeCalendar(Choices& choices);

} // namespace tavo::fuzz
