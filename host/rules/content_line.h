// The lines of iCalendar text: NAME;PARAMETER=VALUE,"VALUE":value.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::rules {

struct ContentParameter {
    std::string Name; // in upper case
    std::vector<std::string> Values;
};

struct ContentLine {
    std::string Name; // in upper case
    std::vector<ContentParameter> Parameters;
    std::string_view Value; // as it stands in the line that was read

    // Of several values the first; null when the line has no such parameter.
    const std::string* FindParameter(std::string_view upperName) const;
};

// Reads an unfolded line. Nothing for one that has not this form. What is not a name of letters, digits and hyphens is
// no name; a quote that stays open ends with the line.
std::optional<ContentLine> ReadContentLine(std::string_view line);

// Takes the next line of a text off it, folded lines joined, without its end.
std::string TakeUnfoldedLine(std::string_view& text);

} // namespace tavo::rules
