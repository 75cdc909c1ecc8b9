// Characters of scripts that no font of this machine has.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QString>

#include <unordered_map>

namespace tavo::qt {

// The toolkit draws nothing of a text in which it finds no font for one script, and at scale 1 boxes wider than it
// measured. So a sign that every font has stands in for each such character.
class MissingCharacters {
  public:
    explicit MissingCharacters(const QFont& font);

    // As many UTF-16 units as before.
    void Replace(QString& text);

  private:
    using Answers = std::unordered_map<char32_t, bool>;

    static Answers& AnswersOf(const QString& family);
    bool IsMissing(char32_t character);

    QFontMetricsF Metrics;
    Answers& Known; // by all fonts of the family, in any size
};

} // namespace tavo::qt
