// Tab-separated lines and JSON.
#include "tools/records.h"

#include "host/locale/harmless_text.h"
#include "host/locale/utf.h"

#include <array>

namespace tavo::tools {

void Records::Begin() {
    HasFields = false;
    if (Format == ListFormat::Json) {
        Text += HasRecords ? ",\n {" : "[\n {";
    }
    HasRecords = true;
}

void Records::BeginField(std::string_view name) {
    if (Format == ListFormat::Json) {
        Text += HasFields ? ", " : "";
        AddQuoted(name);
        Text += ": ";
    } else {
        Text += HasFields ? "\t" : "";
    }
    HasFields = true;
}

// Other programs read it, not a terminal: what is no text at all becomes the character for that.
void Records::AddQuoted(std::string_view value) {
    constexpr std::array<char, 16> digits = {'0', '1', '2', '3', '4', '5', '6', '7',
                                             '8', '9', 'a', 'b', 'c', 'd', 'e', 'f'};
    constexpr unsigned char firstPrintable = 0x20;
    constexpr unsigned char deleted = 0x7F;
    Text += '"';
    for (const char unit : locale::ToUtf8(locale::ToUtf16(value))) {
        const auto byte = static_cast<unsigned char>(unit);
        if (unit == '"' || unit == '\\') {
            Text += '\\';
            Text += unit;
        } else if (unit == '\n') {
            Text += "\\n";
        } else if (byte < firstPrintable || byte == deleted) {
            Text += "\\u00";
            Text += digits[byte >> 4];
            Text += digits[byte & 0xF];
        } else {
            Text += unit;
        }
    }
    Text += '"';
}

void Records::Add(std::string_view name, std::string_view value) {
    BeginField(name);
    if (Format == ListFormat::Json) {
        AddQuoted(value);
    } else {
        locale::AppendHarmless(value, Text);
    }
}

void Records::Add(std::string_view name, std::int64_t value) {
    BeginField(name);
    Text += std::to_string(value);
}

void Records::Add(std::string_view name, bool value) {
    BeginField(name);
    Text += Format == ListFormat::Json ? (value ? "true" : "false") : (value ? "1" : "0");
}

void Records::End() {
    Text += Format == ListFormat::Json ? "}" : "\n";
}

void Records::Finish() {
    if (Format == ListFormat::Json) {
        Text += HasRecords ? "\n]\n" : "[]\n";
    }
}

} // namespace tavo::tools
