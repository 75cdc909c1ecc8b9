// Reading the widths that a font file states.
#include "host/qt/ideographs.h"

#include <QByteArray>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QRawFont>
#include <QTextLayout>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace tavo::qt {
namespace {

constexpr qsizetype kSampled = 8;            // characters that are laid out, to see which file they come from
constexpr double kSameWidth = 1.0 / 64;      // the toolkit's own step
constexpr qsizetype kWidthsCountOffset = 34; // of numberOfHMetrics in the hhea table
constexpr qsizetype kWidthsStep = 4;         // from one glyph's width to the next in the hmtx table

// The widths of a font file's glyphs, in its own units.
class StatedWidths {
  public:
    explicit StatedWidths(const QRawFont& font) : Table(font.fontTable("hmtx")) {
        const QByteArray header = font.fontTable("hhea");
        if (header.size() >= kWidthsCountOffset + 2) {
            Count = std::min<qsizetype>(qFromBigEndian<quint16>(header.constData() + kWidthsCountOffset),
                                        Table.size() / kWidthsStep);
        }
    }

    // Of all glyphs from the last that has one on, it is the last's. Nothing for a glyph that stands for none.
    std::optional<std::uint16_t> Find(quint32 glyph) const {
        if (glyph == 0 || Count == 0) {
            return std::nullopt;
        }
        const qsizetype row = std::min<qsizetype>(glyph, Count - 1);
        return qFromBigEndian<quint16>(Table.constData() + row * kWidthsStep);
    }

  private:
    QByteArray Table;
    qsizetype Count = 0;
};

// The first few characters as the toolkit draws them: one run for each file that they come from.
QList<QGlyphRun> LayOutSample(const QFont& font, const QString& ideographs) {
    qsizetype end = std::min(kSampled, ideographs.size());
    if (ideographs[end - 1].isHighSurrogate()) {
        --end;
    }
    QTextLayout layout(ideographs.left(end), font);
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    option.setUseDesignMetrics(true);
    layout.setTextOption(option);
    layout.beginLayout();
    static_cast<void>(layout.createLine());
    layout.endLayout();
    return layout.glyphRuns();
}

bool StandEvenly(const QList<QPointF>& places) {
    for (qsizetype i = 1; i < places.size(); ++i) {
        const double distance = places[i].x() - places[i - 1].x();
        if (std::abs(distance - (places[1].x() - places[0].x())) > kSameWidth) {
            return false;
        }
    }
    return true;
}

bool HaveOneWidth(const QList<quint32>& glyphs, const StatedWidths& widths) {
    const std::optional<std::uint16_t> first = widths.Find(glyphs.front());
    return first.has_value() &&
           std::all_of(glyphs.begin(), glyphs.end(), [&](quint32 glyph) { return widths.Find(glyph) == first; });
}

// The toolkit draws the same sign for each of them.
std::vector<bool> FindMissing(const QFont& font, const QString& ideographs) {
    const QFontMetricsF metrics(font);
    std::vector<bool> missing;
    for (const uint character : ideographs.toUcs4()) {
        missing.push_back(!metrics.inFontUcs4(character));
    }
    return missing;
}

// What this file has too is not known to come from another.
void LeaveOut(const QRawFont& file, const QString& ideographs, std::vector<bool>& alike) {
    const QList<quint32> glyphs = file.glyphIndexesForString(ideographs);
    for (std::size_t i = 0; i < alike.size(); ++i) {
        alike[i] = alike[i] && glyphs[static_cast<qsizetype>(i)] == 0;
    }
}

} // namespace

IdeographKind KindOfIdeograph(char32_t character) {
    if (character >= 0xAC00 && character <= 0xD7A3) {
        return IdeographKind::Hangul;
    }
    if ((character >= 0x4E00 && character <= 0x9FFF) || (character >= 0x3400 && character <= 0x4DBF)) {
        return IdeographKind::Han;
    }
    return character >= 0x20000 && character <= 0x3FFFD ? IdeographKind::RareHan : IdeographKind::None;
}

std::vector<bool> FindAlike(const QFont& font, const QString& ideographs) {
    const QList<QGlyphRun> runs = LayOutSample(font, ideographs);
    const auto most = std::max_element(runs.begin(), runs.end(), [](const QGlyphRun& one, const QGlyphRun& other) {
        return one.glyphIndexes().size() < other.glyphIndexes().size();
    });
    if (most == runs.end() || most->glyphIndexes().isEmpty() || !StandEvenly(most->positions())) {
        return {};
    }
    const QList<quint32> sampled = most->glyphIndexes();
    if (std::all_of(sampled.begin(), sampled.end(), [](quint32 glyph) { return glyph == 0; })) {
        return FindMissing(font, ideographs);
    }
    const QRawFont file = most->rawFont();
    const StatedWidths widths(file);
    const QList<quint32> glyphs = file.glyphIndexesForString(ideographs);
    const QList<quint32> plain = glyphs.first(std::min(kSampled, glyphs.size()));
    const bool areDrawnPlain =
        std::all_of(sampled.begin(), sampled.end(), [&](quint32 glyph) { return plain.contains(glyph); });
    if (!areDrawnPlain || !HaveOneWidth(sampled, widths)) {
        return {};
    }
    const std::optional<std::uint16_t> width = widths.Find(sampled.front());
    std::vector<bool> alike;
    alike.reserve(static_cast<std::size_t>(glyphs.size()));
    for (const quint32 glyph : glyphs) {
        alike.push_back(widths.Find(glyph) == width);
    }
    // Another file may come before this one.
    for (auto run = runs.begin(); run != runs.end(); ++run) {
        if (run != most) {
            LeaveOut(run->rawFont(), ideographs, alike);
        }
    }
    return alike;
}

} // namespace tavo::qt
