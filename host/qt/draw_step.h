// What drawing consists of, as plain values: they can be compared, and carried out later.
#pragma once

#include "platform/drawing.h"

#include <QRect>
#include <QRgb>

#include <memory>
#include <string>
#include <variant>

namespace tavo::qt {

class Font;

struct FillStep {
    QRgb Color;

    friend bool operator==(const FillStep&, const FillStep&) = default;
};

// A line that is neither level nor upright.
struct LineStep {
    Point From;
    Point To;
    int Width;
    QRgb Color;

    friend bool operator==(const LineStep&, const LineStep&) = default;
};

struct TextStep {
    std::shared_ptr<Font> Face;
    std::u16string Text;
    Rect Area;
    QRgb Color;
    std::uint32_t Format; // DT_ bits

    friend bool operator==(const TextStep&, const TextStep&) = default;
};

struct PictureStep {
    int Bitmap;
    Rect Source;
    QRect Target; // real pixels

    friend bool operator==(const PictureStep&, const PictureStep&) = default;
};

struct DrawStep {
    QRect Covers; // real pixels; nothing outside of them changes
    std::variant<FillStep, LineStep, TextStep, PictureStep> What;

    friend bool operator==(const DrawStep&, const DrawStep&) = default;
};

} // namespace tavo::qt
