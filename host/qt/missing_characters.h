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
    explicit MissingCharacters(const QFont& font) : Metrics(font) {}

    // As many UTF-16 units as before.
    void Replace(QString& text);

  private:
    bool IsMissing(char32_t character);

    QFontMetricsF Metrics;
    std::unordered_map<char32_t, bool> Known;
};

} // namespace tavo::qt
