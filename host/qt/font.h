// One font of the device: measured unhinted at scale 1, drawn at any scale from the same measures.
#pragma once

#include "host/qt/character_widths.h"
#include "host/qt/missing_characters.h"
#include "host/qt/scale.h"
#include "host/shell/chrome/text_face.h"
#include "platform/drawing.h"

#include <QGlyphRun>
#include <QList>
#include <QPainter>
#include <QRawFont>

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tavo::qt {

// Glyphs of one text that come from the same font file.
struct ShapedRun {
    int Face = 0; // index into the font's faces
    QList<quint32> Glyphs;
    QList<QPointF> Places; // from the start of the baseline, at scale 1, before stretching
};

// A text as glyphs. Ends[i] is where the first i + 1 UTF-16 units end, at scale 1 and stretched, counted in reading
// order. What a person sees as one character (a letter with its marks, a surrogate pair, a joined emoji) counts with
// its last unit: whoever cuts where the widths grow never cuts through one.
struct ShapedText {
    std::vector<ShapedRun> Runs;
    std::vector<double> Ends;

    double Width() const { return Ends.empty() ? 0.0 : Ends.back(); }
};

class Font final : public shell::ITextFace {
  public:
    // The font file is looked for when the font is first used: many are made that the first page does not need.
    explicit Font(const LogFont& description);
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;

    int Ascent() override;
    int LineHeight() override;

    // Both stay valid until the next call. The second is for whoever does not draw: it takes time in proportion to the
    // text, and what it gives is the first one's Ends.
    const ShapedText& Shape(std::u16string_view text);
    const std::vector<double>& Ends(std::u16string_view text) override;

    // Draws in the painter's pen; the baseline starts at a point in real pixels.
    void Draw(QPainter& painter, const ShapedText& text, QPointF baseline, Scale scale);

  private:
    struct Face {
        QRawFont Measured; // at scale 1
        QRawFont Drawn;    // at the scale drawn last
        double DrawnFactor = 0.0;
    };

    struct Hash {
        using is_transparent = void; // NOLINT(readability-identifier-naming): the library's name

        std::size_t operator()(std::u16string_view text) const { return std::hash<std::u16string_view>()(text); }
    };

    void Load();
    ShapedText& Find(std::u16string_view text); // without runs when they are not needed for the widths
    bool ShapeSimply(const QString& text, ShapedText& shaped) const;
    void ShapeFully(const QString& text, ShapedText& shaped);
    int FaceOf(const QRawFont& rawFont);
    const QRawFont& FaceAt(int face, Scale scale);

    std::u16string FaceName;
    LogFont Wish;            // its name is the string above
    QFont Found;             // for texts of several fonts
    std::vector<Face> Faces; // the first is the font itself, the others stand in for characters it lacks
    double Stretch = 1.0;
    int AscentPixels = 0;
    int LinePixels = 0;
    std::optional<CharacterWidths> Widths;    // of texts of several fonts
    std::optional<MissingCharacters> Missing; // likewise
    std::unordered_map<std::u16string, ShapedText, Hash, std::equal_to<>> Shaped;
    std::size_t ShapedUnits = 0;
};

} // namespace tavo::qt
