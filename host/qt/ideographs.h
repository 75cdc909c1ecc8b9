// Measuring the characters of scripts that have thousands of them, without loading the outline of each.
#pragma once

#include <QFont>
#include <QString>

#include <vector>

namespace tavo::qt {

// The ideographs and syllables of Han and Hangul, by what mostly comes from one font file. None stands in for any other
// character: one glyph each, whatever its neighbours.
enum class IdeographKind { None, Hangul, Han, RareHan };

IdeographKind KindOfIdeograph(char32_t character);

// Which of these ideographs, all of one kind, are as wide as each other, in the order of the text: those that one font
// file has, and for which it states the same width; or those that no font has. The others are to be laid out, as are
// all where the result is empty. The first few decide which file, or none, it is: what most of them come from.
std::vector<bool> FindAlike(const QFont& font, const QString& ideographs);

} // namespace tavo::qt
