// The tables of an OpenType file, written one by one.
#include "tests/qt/ideograph_font.h"

#include <QString>
#include <QtEndian>

#include <utility>
#include <vector>

namespace tavo::qt {
namespace {

constexpr quint32 kFirst = 0x4E00;
constexpr quint32 kLast = 0x9FFF;
constexpr int kGlyphs = static_cast<int>(kLast - kFirst) + 2; // the first stands for none
constexpr int kUnits = 1000;
constexpr int kNarrow = 600;
constexpr int kAscent = 880;
constexpr int kDescent = 120;

class Bytes {
  public:
    template <class Integer> Bytes& Put(int value) {
        const Integer swapped = qToBigEndian(static_cast<Integer>(value));
        Data.append(reinterpret_cast<const char*>(&swapped), sizeof swapped);
        return *this;
    }

    Bytes& Short(int value) { return Put<qint16>(value); }

    Bytes& Long(int value) { return Put<qint32>(value); }

    Bytes& Zeros(int count) {
        Data.append(count, '\0');
        return *this;
    }

    Bytes& Text(const QByteArray& text) {
        Data.append(text);
        return *this;
    }

    QByteArray Data;
};

bool IsMissing(quint32 character) {
    return character % 1000 == 0;
}

int WidthOf(int glyph) {
    return (kFirst + static_cast<quint32>(glyph) - 1) % 100 == 7 ? kNarrow : kUnits;
}

QByteArray MakeHead() {
    Bytes table;
    table.Long(0x00010000).Long(0x00010000).Long(0).Long(0x5F0F3CF5).Short(3).Short(kUnits).Zeros(16);
    table.Short(0).Short(0).Short(kUnits).Short(kAscent).Short(0).Short(8).Short(2).Short(1).Short(0);
    return table.Data;
}

QByteArray MakeHorizontalHeader() {
    Bytes table;
    table.Long(0x00010000).Short(kAscent).Short(-kDescent).Short(0).Short(kUnits).Zeros(6).Short(1).Zeros(14);
    table.Short(kGlyphs);
    return table.Data;
}

QByteArray MakeProfile() {
    Bytes table;
    table.Long(0x00010000).Short(kGlyphs).Short(4).Short(1).Zeros(4).Short(2).Zeros(14);
    return table.Data;
}

QByteArray MakeMetrics() {
    Bytes table;
    table.Short(4).Short(kUnits).Short(400).Short(5).Short(0).Zeros(20).Zeros(2).Zeros(10);
    table.Zeros(4).Long(0x08000000).Zeros(8); // the range of ideographs
    table.Text("TEST").Short(0x40).Put<quint16>(static_cast<int>(kFirst)).Put<quint16>(static_cast<int>(kLast));
    table.Short(kAscent).Short(-kDescent).Short(0).Short(kAscent).Short(kDescent);
    table.Long(0x001E0000).Long(0).Short(0).Short(0).Short(0).Short(0).Short(1); // Chinese, Japanese, Korean
    return table.Data;
}

QByteArray MakeCharacterMap() {
    std::vector<std::pair<quint32, quint32>> groups;
    for (quint32 character = kFirst; character <= kLast; ++character) {
        if (IsMissing(character)) {
            continue;
        }
        if (groups.empty() || groups.back().second + 1 != character) {
            groups.emplace_back(character, character);
        }
        groups.back().second = character;
    }
    const int count = static_cast<int>(groups.size());
    Bytes table;
    table.Short(0).Short(1).Short(3).Short(10).Long(12);
    table.Short(12).Short(0).Long(16 + 12 * count).Long(0).Long(count);
    for (const auto& [first, last] : groups) {
        table.Long(static_cast<int>(first)).Long(static_cast<int>(last)).Long(static_cast<int>(first - kFirst + 1));
    }
    return table.Data;
}

QByteArray MakeBox(int width) {
    Bytes glyph;
    glyph.Short(1).Short(0).Short(0).Short(width).Short(kAscent).Short(3).Short(0).Text("\1\1\1\1");
    glyph.Short(0).Short(0).Short(width).Short(0).Short(0).Short(kAscent).Short(0).Short(-kAscent).Zeros(2);
    return glyph.Data;
}

QByteArray MakeNames() {
    const QByteArray names[] = {"Ideographs For Tests", "Regular"};
    Bytes table;
    table.Short(0).Short(2).Short(6 + 2 * 12);
    int offset = 0;
    for (int i = 0; i < 2; ++i) {
        const int length = static_cast<int>(names[i].size());
        table.Short(1).Short(0).Short(0).Short(i + 1).Short(length).Short(offset);
        offset += length;
    }
    table.Text(names[0]).Text(names[1]);
    return table.Data;
}

} // namespace

QByteArray MakeIdeographFont() {
    Bytes widths;
    Bytes places;
    Bytes glyphs;
    for (int glyph = 0; glyph < kGlyphs; ++glyph) {
        widths.Short(WidthOf(glyph)).Short(0);
        places.Long(static_cast<int>(glyphs.Data.size()));
        glyphs.Text(MakeBox(WidthOf(glyph)));
    }
    places.Long(static_cast<int>(glyphs.Data.size()));
    const std::pair<QByteArray, QByteArray> tables[] = {{"OS/2", MakeMetrics()},
                                                        {"cmap", MakeCharacterMap()},
                                                        {"glyf", glyphs.Data},
                                                        {"head", MakeHead()},
                                                        {"hhea", MakeHorizontalHeader()},
                                                        {"hmtx", widths.Data},
                                                        {"loca", places.Data},
                                                        {"maxp", MakeProfile()},
                                                        {"name", MakeNames()},
                                                        {"post", Bytes().Long(0x00030000).Zeros(28).Data}};
    const int count = static_cast<int>(std::size(tables));
    Bytes file;
    file.Long(0x00010000).Short(count).Short(128).Short(3).Short(count * 16 - 128);
    int offset = 12 + 16 * count;
    for (const auto& [name, data] : tables) {
        file.Text(name).Long(0).Long(offset).Long(static_cast<int>(data.size()));
        offset += static_cast<int>((data.size() + 3) / 4 * 4);
    }
    for (const auto& [name, data] : tables) {
        file.Text(data).Zeros(static_cast<int>((4 - data.size() % 4) % 4));
    }
    return file.Data;
}

} // namespace tavo::qt
