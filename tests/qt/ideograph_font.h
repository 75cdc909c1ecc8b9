// A font of ideographs made for a test: no machine need have one.
#pragma once

#include <QByteArray>

namespace tavo::qt {

// Boxes for U+4E00 to U+9FFF, as wide as the font is high; but every hundredth has three fifths of that width, and
// every thousandth is missing.
QByteArray MakeIdeographFont();

} // namespace tavo::qt
