// Reads and writes lines of the registry file; what it does not understand it leaves alone.
#include "host/files/registry_text.h"

#include "host/locale/case_folding.h"
#include "host/locale/utf.h"

#include <algorithm>
#include <charconv>

namespace tavo::files {

namespace {

constexpr std::uint32_t kText = 1; // REG_SZ
constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kHexBegin = "hex(";
constexpr std::string_view kHexDigits = "0123456789abcdef";

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool IsSection(std::string_view line) {
    return line.starts_with('[') && line.ends_with(']');
}

bool IsSameName(std::string_view written, std::u16string_view name) {
    return locale::EqualWithoutCase(locale::ToUtf16(written), locale::ToUtf16(WriteRegistryName(name)));
}

// What stands behind "=", if the line is that value's.
std::optional<std::string_view> FindWritten(std::string_view line, std::u16string_view name) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos || line.starts_with('#') || line.starts_with(';') ||
        !IsSameName(Trim(line.substr(0, equals)), name)) {
        return std::nullopt;
    }
    return Trim(line.substr(equals + 1));
}

// The text of a value that can be shown in quotes: whole UTF-16 characters, none of them a control character.
std::optional<std::string> ShowAsText(const RegistryValue& value) {
    if (value.Type != kText || value.Data.size() % 2 != 0) {
        return std::nullopt;
    }
    std::u16string text;
    for (std::size_t i = 0; i < value.Data.size(); i += 2) {
        const auto unit = static_cast<char16_t>(value.Data[i] | value.Data[i + 1] << 8);
        if (unit < 0x20 || unit == 0x7F) {
            return std::nullopt;
        }
        text += unit;
    }
    return locale::ToUtf8Exactly(text);
}

std::string ShowAsHex(const RegistryValue& value) {
    std::string shown = std::string(kHexBegin) + std::to_string(value.Type) + "):";
    for (std::size_t i = 0; i < value.Data.size(); ++i) {
        if (i > 0) {
            shown += ',';
        }
        shown += kHexDigits[value.Data[i] >> 4];
        shown += kHexDigits[value.Data[i] & 15];
    }
    return shown;
}

std::optional<RegistryValue> ReadText(std::string_view quoted) {
    const std::optional<std::u16string> text = locale::ToUtf16Exactly(quoted.substr(1, quoted.size() - 2));
    if (!text) {
        return std::nullopt;
    }
    RegistryValue value{kText, {}};
    for (const char16_t unit : *text) {
        value.Data.push_back(static_cast<std::uint8_t>(unit & 0xFF));
        value.Data.push_back(static_cast<std::uint8_t>(unit >> 8));
    }
    return value;
}

template <class Number> bool ReadWhole(std::string_view text, Number& number, int base) {
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, base);
    return error == std::errc() && stop == end;
}

std::optional<RegistryValue> ReadHex(std::string_view written) {
    const std::size_t colon = written.find("):");
    RegistryValue value;
    if (colon == std::string_view::npos ||
        !ReadWhole(written.substr(kHexBegin.size(), colon - kHexBegin.size()), value.Type, 10)) {
        return std::nullopt;
    }
    std::string_view digits = written.substr(colon + 2);
    while (!digits.empty()) {
        const std::string_view pair = digits.substr(0, digits.find(','));
        std::uint8_t byte = 0;
        if (pair.size() != 2 || !ReadWhole(pair, byte, 16)) {
            return std::nullopt;
        }
        value.Data.push_back(byte);
        digits.remove_prefix(pair.size());
        if (digits.size() == 1) {
            return std::nullopt; // a comma with nothing behind it
        }
        digits.remove_prefix(std::min<std::size_t>(1, digits.size()));
    }
    return value;
}

} // namespace

RegistryText::RegistryText(std::string_view text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF"; // some editors put it
    if (text.starts_with(kByteOrderMark)) {
        text.remove_prefix(kByteOrderMark.size());
    }
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        Lines.emplace_back(line);
        text.remove_prefix(std::min(line.size() + 1, text.size()));
    }
}

std::string RegistryText::ToText() const {
    std::string text;
    for (const std::string& line : Lines) {
        text += line + '\n';
    }
    return text;
}

std::optional<int> RegistryText::FindNumber(std::u16string_view section, std::u16string_view name) const {
    const std::optional<std::size_t> line = FindLine(section, name);
    int number = 0;
    if (!line || !ReadWhole(FindWritten(Trim(Lines[*line]), name).value_or(std::string_view()), number, 10)) {
        return std::nullopt;
    }
    return number;
}

void RegistryText::SetNumber(std::u16string_view section, std::u16string_view name, int number) {
    SetLine(section, name, std::to_string(number));
}

std::optional<RegistryValue> RegistryText::FindValue(std::u16string_view section, std::u16string_view name) const {
    const std::optional<std::size_t> line = FindLine(section, name);
    if (!line) {
        return std::nullopt;
    }
    const std::string_view written = FindWritten(Trim(Lines[*line]), name).value_or(std::string_view());
    if (written.size() >= 2 && written.starts_with('"') && written.ends_with('"')) {
        return ReadText(written);
    }
    return written.starts_with(kHexBegin) ? ReadHex(written) : std::nullopt;
}

void RegistryText::SetValue(std::u16string_view section, std::u16string_view name, const RegistryValue& value) {
    const std::optional<std::string> text = ShowAsText(value);
    SetLine(section, name, text ? '"' + *text + '"' : ShowAsHex(value));
}

void RegistryText::AddSection(std::u16string_view section) {
    if (HasSection(section)) {
        return;
    }
    if (!Lines.empty() && !Trim(Lines.back()).empty()) {
        Lines.emplace_back();
    }
    Lines.push_back('[' + WriteRegistryName(section) + ']');
}

std::optional<std::size_t> RegistryText::FindSection(std::u16string_view section) const {
    for (std::size_t i = 0; i < Lines.size(); ++i) {
        const std::string_view line = Trim(Lines[i]);
        if (IsSection(line) && IsSameName(Trim(line.substr(1, line.size() - 2)), section)) {
            return i;
        }
    }
    return std::nullopt;
}

std::optional<std::size_t> RegistryText::FindLine(std::u16string_view section, std::u16string_view name) const {
    const std::optional<std::size_t> begin = FindSection(section);
    if (!begin) {
        return std::nullopt;
    }
    for (std::size_t i = *begin + 1; i < Lines.size() && !IsSection(Trim(Lines[i])); ++i) {
        if (FindWritten(Trim(Lines[i]), name)) {
            return i;
        }
    }
    return std::nullopt;
}

void RegistryText::SetLine(std::u16string_view section, std::u16string_view name, const std::string& written) {
    const std::string whole = WriteRegistryName(name) + '=' + written;
    if (const std::optional<std::size_t> line = FindLine(section, name)) {
        Lines[*line] = whole;
        return;
    }
    AddSection(section);
    // Behind the section's last line that says something.
    std::size_t after = *FindSection(section) + 1;
    for (std::size_t i = after; i < Lines.size() && !IsSection(Trim(Lines[i])); ++i) {
        if (!Trim(Lines[i]).empty()) {
            after = i + 1;
        }
    }
    Lines.insert(Lines.begin() + static_cast<std::ptrdiff_t>(after), whole);
}

std::string WriteRegistryName(std::u16string_view name) {
    constexpr std::u16string_view kBreaking = u"=[]%#;\"";
    std::string written;
    std::u16string plain;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const char16_t unit = name[i];
        const bool isBlankAtEdge = unit == u' ' && (i == 0 || i + 1 == name.size());
        const bool isHalf = unit >= 0xD800 && unit <= 0xDFFF; // pairs are written unit by unit too, which is simpler
        if (unit >= 0x20 && unit != 0x7F && !isBlankAtEdge && !isHalf &&
            kBreaking.find(unit) == std::u16string_view::npos) {
            plain += unit;
            continue;
        }
        written += locale::ToUtf8(plain) + '%';
        plain.clear();
        for (int shift = 12; shift >= 0; shift -= 4) {
            written += kHexDigits[unit >> shift & 15];
        }
    }
    return written + locale::ToUtf8(plain);
}

} // namespace tavo::files
