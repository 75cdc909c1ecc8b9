// Text from outside for a small screen.
#include "host/exchange/short_text.h"

#include "host/locale/harmless_text.h"
#include "host/locale/utf.h"

namespace tavo::exchange {

std::u16string ShortenForPeople(const std::string& text, std::size_t longest) {
    std::u16string line = locale::ToUtf16(locale::MakeHarmless(text));
    if (line.size() > longest) {
        line.resize(longest);
        if ((line.back() & 0xFC00) == 0xD800) {
            line.pop_back(); // half a character
        }
        line += u"...";
    }
    return line;
}

} // namespace tavo::exchange
