// Asking for each character once.
#include "host/qt/missing_characters.h"

#include "host/qt/character_widths.h"

#include <QChar>

#include <cstddef>
#include <map>

namespace tavo::qt {
namespace {

constexpr char16_t kBox = 0x25A1;     // a white square
constexpr char16_t kNothing = 0x200B; // a blank without width, for the second unit of a pair
constexpr std::size_t kMostKnown = 20'000;

// What stands alone has a sign for what is missing in every font; a mark goes with what it is on.
bool HasOwnBox(char32_t character) {
    return StandsAlone(character) || QChar::script(character) == QChar::Script_Inherited;
}

} // namespace

MissingCharacters::MissingCharacters(const QFont& font) : Metrics(font), Known(AnswersOf(font.family())) {}

// To ask means to open every font file of the machine in the size that is asked for, and all of them have the same
// answer.
MissingCharacters::Answers& MissingCharacters::AnswersOf(const QString& family) {
    static std::map<QString, Answers> byFamily;
    return byFamily[family];
}

void MissingCharacters::Replace(QString& text) {
    for (qsizetype at = 0; at < text.size(); ++at) {
        const bool isPair = text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
        const char32_t character = isPair ? QChar::surrogateToUcs4(text[at], text[at + 1]) : text[at].unicode();
        if (HasOwnBox(character) || !IsMissing(character)) {
            at += isPair ? 1 : 0;
            continue;
        }
        text[at] = QChar(kBox);
        if (isPair) {
            text[++at] = QChar(kNothing);
        }
    }
}

bool MissingCharacters::IsMissing(char32_t character) {
    if (Known.size() > kMostKnown) {
        Known.clear();
    }
    const auto [found, isNew] = Known.try_emplace(character, false);
    if (isNew) {
        found->second = !Metrics.inFontUcs4(character);
    }
    return found->second;
}

} // namespace tavo::qt
