// How wide the characters of any script are, each as people see it: a letter with its marks, a joined emoji.
#pragma once

#include <QFont>
#include <QString>

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tavo::qt {

// Whether a character looks the same, and is as wide, whatever its neighbours: those of most scripts do.
bool StandsAlone(char32_t character);

class CharacterWidths {
  public:
    explicit CharacterWidths(const QFont& font) : Found(font) {}

    // Where the first i + 1 UTF-16 units end, at scale 1, in reading order whatever the direction. A character counts
    // with its last unit. Takes time in proportion to the text.
    std::vector<double> FindEnds(const QString& text);

  private:
    struct Hash {
        using is_transparent = void; // NOLINT(readability-identifier-naming): the library's name

        std::size_t operator()(std::u16string_view text) const { return std::hash<std::u16string_view>()(text); }
    };

    // Of a part of a text, by unit; nothing for a unit in the middle of a character.
    using Advances = std::vector<double>;

    void Learn(const std::vector<std::u16string_view>& parts);

    QFont Found;
    std::unordered_map<std::u16string, Advances, Hash, std::equal_to<>> Known;
};

} // namespace tavo::qt
