// Measuring parts of texts, each once.
#include "host/qt/character_widths.h"

#include "host/qt/ideographs.h"

#include <QFontMetricsF>
#include <QTextBoundaryFinder>
#include <QTextLayout>

#include <algorithm>
#include <cstddef>
#include <optional>

namespace tavo::qt {
namespace {

constexpr std::size_t kMostKnown = 20'000;
constexpr std::size_t kLongestWord = 64;
constexpr std::size_t kManyIdeographs = 64; // of one kind in a text: fewer are laid out sooner than found alike
constexpr char32_t kTatweel = 0x0640;       // stretches a word of Arabic and belongs to no script

std::u16string_view ViewOf(const QString& text) {
    return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())};
}

char32_t FirstOf(std::u16string_view character) {
    if (character.size() > 1 && QChar::isHighSurrogate(character[0]) && QChar::isLowSurrogate(character[1])) {
        return QChar::surrogateToUcs4(character[0], character[1]);
    }
    return character[0];
}

// The text in parts that are as wide in any surroundings: characters, and words of scripts that join their letters.
std::vector<std::u16string_view> SplitParts(const QString& text) {
    const std::u16string_view view = ViewOf(text);
    std::vector<std::u16string_view> parts;
    bool isWordOpen = false;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    std::size_t start = 0;
    while (start < view.size()) {
        const qsizetype boundary = finder.toNextBoundary();
        const std::size_t end = boundary < 0 ? view.size() : static_cast<std::size_t>(boundary);
        const std::u16string_view character = view.substr(start, end - start);
        const bool joins = !StandsAlone(FirstOf(character));
        if (joins && isWordOpen && parts.back().size() + character.size() <= kLongestWord) {
            parts.back() = view.substr(start - parts.back().size(), parts.back().size() + character.size());
        } else {
            parts.push_back(character);
        }
        isWordOpen = joins;
        start = end;
    }
    return parts;
}

bool IsBlank(std::u16string_view part) {
    return QChar::isSpace(FirstOf(part));
}

IdeographKind KindOfPart(std::u16string_view part) {
    const char32_t first = FirstOf(part);
    return part.size() == (first > 0xFFFF ? 2U : 1U) ? KindOfIdeograph(first) : IdeographKind::None;
}

// Puts the first ideograph of a kind in the place of those that are as wide: laying out is what takes long, and a text
// may have thousands of different ones.
void ReplaceAlike(const QFont& font, IdeographKind kind, std::vector<std::u16string_view>& parts) {
    QString ideographs;
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (KindOfPart(parts[i]) == kind) {
            ideographs += QStringView(parts[i].data(), static_cast<qsizetype>(parts[i].size()));
            places.push_back(i);
        }
    }
    if (places.size() < kManyIdeographs) {
        return;
    }
    const std::vector<bool> alike = FindAlike(font, ideographs);
    std::optional<std::u16string_view> first;
    for (std::size_t i = 0; i < std::min(alike.size(), places.size()); ++i) {
        if (alike[i]) {
            std::u16string_view& part = parts[places[i]];
            first = first.value_or(part);
            part = *first;
        }
    }
}

} // namespace

bool StandsAlone(char32_t character) {
    switch (QChar::script(character)) {
    case QChar::Script_Common:
        return character != kTatweel;
    case QChar::Script_Unknown:
    case QChar::Script_Latin:
    case QChar::Script_Greek:
    case QChar::Script_Cyrillic:
    case QChar::Script_Armenian:
    case QChar::Script_Georgian:
    case QChar::Script_Hebrew:
    case QChar::Script_Thai:
    case QChar::Script_Han:
    case QChar::Script_Hiragana:
    case QChar::Script_Katakana:
    case QChar::Script_Bopomofo:
    case QChar::Script_Hangul:
    case QChar::Script_Ethiopic:
    case QChar::Script_Cherokee:
        return true;
    default:
        return false;
    }
}

std::vector<double> CharacterWidths::FindEnds(const QString& text) {
    std::vector<std::u16string_view> parts = SplitParts(text);
    if (parts.size() >= kManyIdeographs) {
        for (const IdeographKind kind : {IdeographKind::Hangul, IdeographKind::Han, IdeographKind::RareHan}) {
            ReplaceAlike(Found, kind, parts);
        }
    }
    std::vector<std::u16string_view> unknown;
    if (Known.size() > kMostKnown) {
        Known.clear();
    }
    for (const std::u16string_view part : parts) {
        if (Known.find(part) == Known.end()) {
            Known.emplace(part, Advances(part.size(), 0.0));
            unknown.push_back(part);
        }
    }
    if (!unknown.empty()) {
        Learn(unknown);
    }
    std::vector<double> ends;
    ends.reserve(static_cast<std::size_t>(text.size()));
    double end = 0;
    for (const std::u16string_view part : parts) {
        for (const double advance : Known.find(part)->second) {
            end += advance;
            ends.push_back(end);
        }
    }
    return ends;
}

// Lays all parts out at once, every character on a line of its own: the toolkit shapes a long text in one go, but takes
// as long as a long text for each place that it is asked for on a line.
void CharacterWidths::Learn(const std::vector<std::u16string_view>& parts) {
    const QFontMetricsF metrics(Found);
    QString text;
    std::vector<Advances*> owners; // by unit of the text laid out; null between parts
    std::vector<std::size_t> starts;
    for (const std::u16string_view part : parts) {
        const QStringView words(part.data(), static_cast<qsizetype>(part.size()));
        Advances& advances = Known.find(part)->second;
        if (IsBlank(part)) { // lines swallow them
            advances.back() = metrics.horizontalAdvance(words.toString());
            continue;
        }
        const auto start = static_cast<std::size_t>(text.size());
        owners.insert(owners.end(), part.size(), &advances);
        starts.insert(starts.end(), part.size(), start);
        owners.push_back(nullptr);
        starts.push_back(start);
        text += words;
        text += u' ';
    }
    QTextLayout layout(text, Found);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAnywhere);
    option.setUseDesignMetrics(true);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setNumColumns(1);
        int end = line.textStart() + line.textLength(); // with the blanks that the line swallowed
        while (end > line.textStart() && owners[static_cast<std::size_t>(end) - 1] == nullptr) {
            --end;
        }
        if (end > line.textStart()) {
            const auto last = static_cast<std::size_t>(end) - 1;
            (*owners[last])[last - starts[last]] = std::max(0.0, line.horizontalAdvance());
        }
    }
    layout.endLayout();
}

} // namespace tavo::qt
