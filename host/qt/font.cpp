// Shaping and drawing of text.
#include "host/qt/font.h"

#include "host/qt/font_preparation.h"

#include <QTextLayout>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tavo::qt {
namespace {

constexpr std::size_t kMostShapedTexts = 512;
constexpr std::size_t kMostShapedUnits = 100'000; // of them together
constexpr qsizetype kAverageWidthOffset = 2;      // of xAvgCharWidth in the OS/2 table

// The average character width as the font file states it, at the size of the font.
double GetAverageWidth(const QRawFont& font) {
    const QByteArray table = font.fontTable("OS/2");
    if (table.size() >= kAverageWidthOffset + 2 && font.unitsPerEm() > 0) {
        const auto units = qFromBigEndian<qint16>(table.constData() + kAverageWidthOffset);
        if (units > 0) {
            return units * font.pixelSize() / font.unitsPerEm();
        }
    }
    return font.averageCharWidth();
}

// Whether the character is one glyph, left to right, whatever its neighbours.
bool IsSimple(QChar character) {
    const char16_t unit = character.unicode();
    return (unit >= 0x20 && unit < 0x300) || (unit >= 0x370 && unit < 0x483) || (unit >= 0x48A && unit < 0x530) ||
           (unit >= 0x1E00 && unit < 0x1F00) || (unit >= 0x2010 && unit < 0x2028) || (unit >= 0x20A0 && unit < 0x20D0);
}

// What has no picture of its own, as a tab or a line break, is as wide as a blank and looks like one.
QString MakeDrawable(std::u16string_view text) {
    QString drawable = QStringView(text.data(), static_cast<qsizetype>(text.size())).toString();
    const auto isBare = [](QChar character) {
        const QChar::Category category = character.category();
        return category == QChar::Other_Control || category == QChar::Separator_Line ||
               category == QChar::Separator_Paragraph;
    };
    if (std::any_of(drawable.cbegin(), drawable.cend(), isBare)) {
        std::replace_if(drawable.begin(), drawable.end(), isBare, u' ');
    }
    return drawable;
}

// What PrepareFonts chose for the face; asked for by its own name, a font is found much sooner.
QString ResolveFamily(const QString& face) {
    return QFont::substitutes(face).value(0, face);
}

QFont MakeFont(const LogFont& description) {
    QFont font(ResolveFamily(
        QString::fromUtf16(description.FaceName.data(), static_cast<qsizetype>(description.FaceName.size()))));
    font.setPixelSize(std::max(1, std::abs(description.Height)));
    font.setWeight(static_cast<QFont::Weight>(std::clamp(description.Weight, 1, 1000)));
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    font.setKerning(false);
    return font;
}

} // namespace

Font::Font(const LogFont& description) : FaceName(description.FaceName), Wish(description) {
    Wish.FaceName = FaceName;
}

void Font::Load() {
    if (!Faces.empty()) {
        return;
    }
    static_cast<void>(PrepareFonts()); // whoever started the program says that there are none
    Found = MakeFont(Wish);
    Widths.emplace(Found);
    Missing.emplace(Found);
    QFont alone = Found;
    alone.setStyleStrategy(QFont::StyleStrategy(Found.styleStrategy() | QFont::NoFontMerging)); // found sooner
    Faces.push_back({QRawFont::fromFont(alone), {}});
    QRawFont& face = Faces.front().Measured;
    if (Wish.Height > 0) { // a positive height is the line's, not the characters'
        const double line = face.ascent() + face.descent();
        if (line > 0) {
            face.setPixelSize(std::max(1.0, face.pixelSize() * Wish.Height / line));
        }
    }
    if (Wish.Width != 0) {
        if (const double average = GetAverageWidth(face); average > 0) {
            Stretch = std::abs(Wish.Width) / average;
        }
    }
    AscentPixels = static_cast<int>(std::lround(face.ascent()));
    LinePixels = AscentPixels + static_cast<int>(std::lround(face.descent()));
}

int Font::Ascent() {
    Load();
    return AscentPixels;
}

int Font::LineHeight() {
    Load();
    return LinePixels;
}

const ShapedText& Font::Shape(std::u16string_view text) {
    ShapedText& shaped = Find(text);
    if (shaped.Runs.empty()) {
        QString drawable = MakeDrawable(text);
        Missing->Replace(drawable);
        ShapeFully(drawable, shaped);
    }
    return shaped;
}

const std::vector<double>& Font::Ends(std::u16string_view text) {
    return Find(text).Ends;
}

ShapedText& Font::Find(std::u16string_view text) {
    Load();
    if (const auto known = Shaped.find(text); known != Shaped.end()) {
        return known->second;
    }
    if (Shaped.size() >= kMostShapedTexts || ShapedUnits > kMostShapedUnits) {
        Shaped.clear();
        ShapedUnits = 0;
    }
    ShapedUnits += text.size();
    ShapedText shaped;
    QString drawable = MakeDrawable(text);
    if (!ShapeSimply(drawable, shaped)) {
        Missing->Replace(drawable);
        shaped.Ends = Widths->FindEnds(drawable);
        for (double& end : shaped.Ends) {
            end *= Stretch;
        }
    }
    return Shaped.emplace(text, std::move(shaped)).first->second;
}

bool Font::ShapeSimply(const QString& text, ShapedText& shaped) const {
    if (!std::all_of(text.begin(), text.end(), IsSimple)) {
        return false;
    }
    const QRawFont& face = Faces.front().Measured;
    ShapedRun run;
    run.Glyphs = face.glyphIndexesForString(text);
    if (run.Glyphs.size() != text.size() || run.Glyphs.contains(0)) {
        return false;
    }
    const QList<QPointF> advances =
        face.advancesForGlyphIndexes(run.Glyphs, QRawFont::UseDesignMetrics | QRawFont::SeparateAdvances);
    double x = 0;
    run.Places.reserve(run.Glyphs.size());
    shaped.Ends.reserve(static_cast<std::size_t>(text.size()));
    for (const QPointF& advance : advances) {
        run.Places.append({x, 0});
        x += advance.x();
        shaped.Ends.push_back(x * Stretch);
    }
    shaped.Runs.push_back(std::move(run));
    return true;
}

void Font::ShapeFully(const QString& text, ShapedText& shaped) {
    QTextLayout layout(text, Found);
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    option.setUseDesignMetrics(true);
    layout.setTextOption(option);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    const double ascent = line.isValid() ? line.ascent() : 0;
    for (const QGlyphRun& glyphs : layout.glyphRuns()) {
        ShapedRun run;
        run.Face = FaceOf(glyphs.rawFont());
        run.Glyphs = glyphs.glyphIndexes();
        for (const QPointF& place : glyphs.positions()) {
            run.Places.append({place.x(), place.y() - ascent});
        }
        shaped.Runs.push_back(std::move(run));
    }
}

int Font::FaceOf(const QRawFont& rawFont) {
    const auto known =
        std::find_if(Faces.begin(), Faces.end(), [&](const Face& face) { return face.Measured == rawFont; });
    if (known == Faces.end()) {
        Faces.push_back({rawFont, {}});
        return static_cast<int>(Faces.size()) - 1;
    }
    return static_cast<int>(known - Faces.begin());
}

const QRawFont& Font::FaceAt(int face, Scale scale) {
    Face& found = Faces[static_cast<std::size_t>(face)];
    if (found.DrawnFactor != scale.Factor) {
        found.Drawn = found.Measured;
        if (scale.Factor != 1.0) {
            found.Drawn.setPixelSize(found.Measured.pixelSize() * scale.Factor);
        }
        found.DrawnFactor = scale.Factor;
    }
    return found.Drawn;
}

void Font::Draw(QPainter& painter, const ShapedText& text, QPointF baseline, Scale scale) {
    const QTransform before = painter.worldTransform();
    if (Stretch != 1.0) {
        painter.translate(baseline);
        painter.scale(Stretch, 1.0);
        baseline = {};
    }
    QGlyphRun glyphs;
    for (const ShapedRun& run : text.Runs) {
        QList<QPointF> places = run.Places;
        for (QPointF& place : places) {
            place *= scale.Factor;
        }
        glyphs.setRawFont(FaceAt(run.Face, scale));
        glyphs.setGlyphIndexes(run.Glyphs);
        glyphs.setPositions(places);
        painter.drawGlyphRun(baseline, glyphs);
    }
    if (Stretch != 1.0) {
        painter.setWorldTransform(before);
    }
}

} // namespace tavo::qt
