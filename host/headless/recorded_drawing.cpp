// Fonts, surfaces and the frames that windows show.
#include "host/headless/recorded_drawing.h"

#include "host/headless/recorded_surface.h"
#include "host/headless/text_metrics.h"
#include "host/locale/utf.h"

#include <utility>

namespace tavo::headless {

namespace {
constexpr int kPixelsPerInch = 96;
}

int RecordedDrawing::LogicalPixelsPerInch() {
    return kPixelsPerInch;
}

FontHandle RecordedDrawing::CreateFontIndirectW(const LogFont& font) {
    const FontHandle handle{++LastFont};
    Fonts[handle] = {std::u16string(font.FaceName), font.Height, font.Width, font.Weight};
    return handle;
}

void RecordedDrawing::DeleteObject(FontHandle font) {
    Fonts.erase(font);
}

void RecordedDrawing::GetTextExtentExPointW(FontHandle font, std::u16string_view text, std::vector<int>& widths) {
    static const Font systemFont{{}, -13, 0, 400};
    const auto found = Fonts.find(font);
    const Font& used = found == Fonts.end() ? systemFont : found->second;
    MeasureText(used.Height, used.Width, used.Weight, text, widths);
}

std::unique_ptr<ISurface> RecordedDrawing::CreateCompatibleSurface(Size size) {
    ++SurfaceCount;
    return std::make_unique<RecordedSurface>(size, *this);
}

void RecordedDrawing::Present(WindowHandle window, const ISurface& surface, std::span<const PaintedItem> items) {
    const auto& recorded = static_cast<const RecordedSurface&>(surface);
    Frame& frame = Frames[window];
    frame.Calls = recorded.TakeCalls();
    frame.Picture = recorded.Picture();
    frame.Items.assign(items.begin(), items.end());
    ++frame.Count;
    frame.ItemCounts.push_back(items.size());
}

const Frame* RecordedDrawing::LastFrame(WindowHandle window) const {
    const auto found = Frames.find(window);
    return found == Frames.end() ? nullptr : &found->second;
}

std::string RecordedDrawing::DescribeFont(FontHandle font) const {
    const auto found = Fonts.find(font);
    if (found == Fonts.end()) {
        return {};
    }
    std::string text = locale::ToUtf8(found->second.FaceName) + ' ' + std::to_string(found->second.Height) + ' ' +
                       std::to_string(found->second.Weight);
    if (found->second.Width != 0) {
        text += ' ' + std::to_string(found->second.Width);
    }
    return text;
}

void RecordedSurface::FillRect(const Rect& area, Color color) {
    OwnPicture.Fill(area, color);
    DrawCall call;
    call.Kind = DrawKind::Fill;
    call.Area = area;
    call.Ink = color;
    Calls.push_back(std::move(call));
}

void RecordedSurface::DrawLine(Point from, Point to, const Pen& pen) {
    OwnPicture.Line(from, to, pen);
    DrawCall call;
    call.Kind = DrawKind::Line;
    call.From = from;
    call.To = to;
    call.Ink = pen.Ink;
    call.PenWidth = pen.Width;
    Calls.push_back(std::move(call));
}

void RecordedSurface::DrawTextW(std::u16string_view text, const Rect& area, const TextStyle& style) {
    Placed placed;
    placed.Area = area;
    placed.Text = text;
    placed.Ink = style.Ink;
    OwnPicture.Place(std::move(placed));
    DrawCall call;
    call.Kind = DrawKind::Text;
    call.Area = area;
    call.Ink = style.Ink;
    call.Text = text;
    call.Font = Drawing.DescribeFont(style.Font);
    call.Format = style.Format;
    Calls.push_back(std::move(call));
}

void RecordedSurface::DrawBitmap(int bitmap, Point at, const Rect& source) {
    Placed placed;
    placed.Area = Rect::FromSize(at.X, at.Y, source.Width(), source.Height());
    placed.Bitmap = bitmap;
    placed.Source = source;
    DrawCall call;
    call.Kind = DrawKind::Bitmap;
    call.Area = placed.Area;
    call.Bitmap = bitmap;
    call.Source = source;
    OwnPicture.Place(std::move(placed));
    Calls.push_back(std::move(call));
}

} // namespace tavo::headless
