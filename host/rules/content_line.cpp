// Splits lines at what stands outside quotes.
#include "host/rules/content_line.h"

#include "host/locale/ascii.h"

#include <algorithm>
#include <cstddef>

namespace tavo::rules {

namespace {

bool IsOfName(char character) {
    const char upper = locale::ToUpperAscii(character);
    return (upper >= 'A' && upper <= 'Z') || (character >= '0' && character <= '9') || character == '-' ||
           character == '_'; // the last as some programs write names of their own
}

// Takes a name off the front; empty when there is none.
std::string TakeName(std::string_view& rest) {
    const auto end = std::find_if_not(rest.begin(), rest.end(), IsOfName);
    std::string name(rest.begin(), end);
    std::transform(name.begin(), name.end(), name.begin(), locale::ToUpperAscii);
    rest.remove_prefix(name.size());
    return name;
}

// "^n" is a line end, "^'" a quotation mark and "^^" the sign itself; before anything else it stands for itself.
std::string Decode(std::string_view text) {
    std::string decoded;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char next = text[at] == '^' && at + 1 < text.size() ? text[at + 1] : '\0';
        if (next == 'n' || next == '\'' || next == '^') {
            decoded += next == 'n' ? '\n' : next == '\'' ? '"' : '^';
            ++at;
        } else {
            decoded += text[at];
        }
    }
    return decoded;
}

// Takes one value off the front, up to a comma, semicolon or colon.
std::string TakeParameterValue(std::string_view& rest) {
    std::string value;
    if (!rest.empty() && rest.front() == '"') {
        const std::size_t end = std::min(rest.find('"', 1), rest.size());
        value = Decode(rest.substr(1, end - 1));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    const std::size_t end = std::min(rest.find_first_of(",;:"), rest.size());
    value += Decode(rest.substr(0, end)); // behind a quoted value only blanks make sense, and they mean nothing
    rest.remove_prefix(end);
    return value;
}

} // namespace

const std::string* ContentLine::FindParameter(std::string_view upperName) const {
    for (const ContentParameter& parameter : Parameters) {
        if (parameter.Name == upperName && !parameter.Values.empty()) {
            return &parameter.Values.front();
        }
    }
    return nullptr;
}

std::optional<ContentLine> ReadContentLine(std::string_view line) {
    ContentLine read;
    read.Name = TakeName(line);
    if (read.Name.empty()) {
        return std::nullopt;
    }
    while (!line.empty() && line.front() == ';') {
        line.remove_prefix(1);
        ContentParameter parameter{TakeName(line), {}};
        if (parameter.Name.empty() || line.empty() || line.front() != '=') {
            return std::nullopt;
        }
        do {
            line.remove_prefix(1);
            parameter.Values.push_back(TakeParameterValue(line));
        } while (!line.empty() && line.front() == ',');
        read.Parameters.push_back(std::move(parameter));
    }
    if (line.empty() || line.front() != ':') {
        return std::nullopt;
    }
    read.Value = line.substr(1);
    return read;
}

std::string TakeUnfoldedLine(std::string_view& text) {
    std::string line;
    bool isFolded = true;
    while (isFolded) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        line += text.substr(0, end);
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        text.remove_prefix(std::min(end + 1, text.size()));
        isFolded = !text.empty() && (text.front() == ' ' || text.front() == '\t');
        if (isFolded) {
            text.remove_prefix(1);
        }
    }
    return line;
}

} // namespace tavo::rules
