// Drawing: fonts, surfaces, and bringing a finished surface to a window.
#pragma once

#include "platform/geometry.h"
#include "platform/handles.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavo {

// Text placement; the values are the device's own.
constexpr std::uint32_t DT_LEFT = 0x0000;
constexpr std::uint32_t DT_TOP = 0x0000;
constexpr std::uint32_t DT_CENTER = 0x0001;
constexpr std::uint32_t DT_RIGHT = 0x0002;
constexpr std::uint32_t DT_VCENTER = 0x0004;
constexpr std::uint32_t DT_BOTTOM = 0x0008;
constexpr std::uint32_t DT_WORDBREAK = 0x0010;
constexpr std::uint32_t DT_SINGLELINE = 0x0020;
constexpr std::uint32_t DT_NOPREFIX = 0x0800;

struct LogFont {
    std::u16string_view FaceName;
    int Height = 0; // negative: the height of the characters in pixels
    int Width = 0;  // average character width in pixels, sign ignored; 0 is the font's own
    int Weight = 400;
};

struct Pen {
    Color Ink;
    int Width = 1;
};

struct TextStyle {
    FontHandle Font = FontHandle::None;
    Color Ink;
    std::uint32_t Format = 0; // DT_ bits
};

enum class PaintedRole { Text, Header, Row, Cell, Tab, Button, Picture };

// What something painted is, for assistive technology and tests.
struct PaintedItem {
    Rect Bounds;
    PaintedRole Role = PaintedRole::Text;
    std::u16string Name;
    int Id = 0; // its number among its kind, as the painter counts
    bool Selected = false;
    bool Pressed = false;
    bool Enabled = true;
    std::u16string Description = {}; // what more is to be said than its name; may be empty

    friend bool operator==(const PaintedItem&, const PaintedItem&) = default;
};

// An off-screen picture of logical size, held at the resolution of the screen. White when made.
// All edges are sharp: x lies at round(x * scale).
class ISurface {
  public:
    virtual ~ISurface() = default;
    virtual Size GetSize() const = 0;
    virtual void FillRect(const Rect& area, Color color) = 0;
    // From the first point up to, not including, the second.
    virtual void DrawLine(Point from, Point to, const Pen& pen) = 0;
    // The background stays; text is cut at the rectangle.
    virtual void DrawTextW(std::u16string_view text, const Rect& area, const TextStyle& style) = 0;
    // Copies the part `source` of the picture with this resource number, unscaled, to `at`.
    virtual void DrawBitmap(int bitmap, Point at, const Rect& source) = 0;
};

class IDrawing {
  public:
    virtual ~IDrawing() = default;
    virtual int LogicalPixelsPerInch() = 0;
    virtual FontHandle CreateFontIndirectW(const LogFont& font) = 0;
    virtual void DeleteObject(FontHandle font) = 0;
    // widths[i]: of the first i + 1 UTF-16 units in pixels at scale 1; what is seen as one character counts at its end.
    virtual void GetTextExtentExPointW(FontHandle font, std::u16string_view text, std::vector<int>& widths) = 0;
    virtual std::unique_ptr<ISurface> CreateCompatibleSurface(Size size) = 0;
    // Shows the surface in the window at its top left corner, together with what is painted on it.
    virtual void Present(WindowHandle window, const ISurface& surface, std::span<const PaintedItem> items) = 0;
};

} // namespace tavo
