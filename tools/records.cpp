// Tab-separated lines and JSON.
#include "tools/records.h"

#include "host/locale/harmless_text.h"
#include "host/locale/utf.h"

#include <array>

namespace tavo::tools {
namespace {

constexpr bool IsHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

void AppendNumber(char16_t unit, std::string& text) {
    constexpr std::array<char, 16> digits = {'0', '1', '2', '3', '4', '5', '6', '7',
                                             '8', '9', 'a', 'b', 'c', 'd', 'e', 'f'};
    text += "\\u";
    for (const int shift : {12, 8, 4, 0}) {
        text += digits[static_cast<std::size_t>(unit >> shift & 0xF)];
    }
}

} // namespace

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

// Other programs read it, but a terminal may show it: what a terminal would obey is written as its number.
void Records::AddQuoted(std::string_view value) {
    const std::u16string text = locale::ToUtf16(value);
    Text += '"';
    for (std::size_t place = 0; place < text.size(); ++place) {
        const bool isPair = IsHighSurrogate(text[place]) && place + 1 < text.size();
        const std::u16string_view letter = std::u16string_view(text).substr(place, isPair ? 2 : 1);
        const std::string bytes = locale::ToUtf8(letter);
        if (bytes == "\"" || bytes == "\\") {
            Text += '\\' + bytes;
        } else if (bytes == "\n") {
            Text += "\\n";
        } else if (locale::IsHarmless(bytes)) {
            Text += bytes;
        } else {
            for (const char16_t unit : letter) {
                AppendNumber(unit, Text);
            }
        }
        place += letter.size() - 1;
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
