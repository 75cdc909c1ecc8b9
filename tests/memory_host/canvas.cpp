// Painting with the drawing library.
#include "tests/memory_host/canvas.h"

#include <librsvg/rsvg.h>

#include <algorithm>
#include <numbers>

namespace tavo::memory {

namespace {

constexpr double kQuarter = std::numbers::pi / 2;

// Whatever stood there before is no part of the new shape.
void BeginShape(cairo_t* target, shell::Argb ink) {
    const auto share = [ink](int shift) { return ((ink >> shift) & 0xFF) / 255.0; };
    cairo_set_source_rgba(target, share(16), share(8), share(0), share(24));
    cairo_new_path(target);
}

void Outline(cairo_t* target, const Rect& area, double inset, double radius) {
    const double reach = inset + radius;
    cairo_new_sub_path(target);
    cairo_arc(target, area.Right - reach, area.Top + reach, radius, -kQuarter, 0);
    cairo_arc(target, area.Right - reach, area.Bottom - reach, radius, 0, kQuarter);
    cairo_arc(target, area.Left + reach, area.Bottom - reach, radius, kQuarter, 2 * kQuarter);
    cairo_arc(target, area.Left + reach, area.Top + reach, radius, 2 * kQuarter, 3 * kQuarter);
    cairo_close_path(target);
}

void Outline(cairo_t* target, const Rect& area) {
    cairo_rectangle(target, area.Left, area.Top, area.Width(), area.Height());
}

} // namespace

Canvas::Canvas(Size size, int scale) : Scale(scale), Target(MakeContext(size.Width * scale, size.Height * scale)) {
    cairo_surface_set_device_scale(Pixels(), scale, scale);
    Fill({Rect::Whole(size), 0, 0xFFFFFFFF});
}

void Canvas::Fill(const shell::RoundedFillPiece& piece) {
    BeginShape(Target.get(), piece.Ink);
    Outline(Target.get(), piece.Area, 0, piece.Radius);
    cairo_fill(Target.get());
}

// What lies between two outlines.
void Canvas::Frame(const shell::FramePiece& piece) {
    BeginShape(Target.get(), piece.Ink);
    Outline(Target.get(), piece.Area, 0, piece.Radius);
    Outline(Target.get(), piece.Area, 1, std::max(piece.Radius - 1, 0.0));
    cairo_set_fill_rule(Target.get(), CAIRO_FILL_RULE_EVEN_ODD);
    cairo_fill(Target.get());
}

void Canvas::Polygon(const shell::PolygonPiece& piece) {
    BeginShape(Target.get(), piece.Ink);
    for (const shell::Spot& corner : piece.Corners) {
        cairo_line_to(Target.get(), corner.X + 0.5, corner.Y + 0.5);
    }
    cairo_close_path(Target.get());
    cairo_fill_preserve(Target.get());
    cairo_set_line_width(Target.get(), piece.Width);
    cairo_set_line_join(Target.get(), CAIRO_LINE_JOIN_ROUND);
    cairo_stroke(Target.get());
}

void Canvas::Picture(const shell::PicturePiece& piece) {
    const std::string path = TAVO_PICTURES "/bitmap_" + std::to_string(piece.Bitmap) + ".svg";
    const std::unique_ptr<RsvgHandle, Releaser<g_object_unref>> picture(
        rsvg_handle_new_from_file(path.c_str(), nullptr));
    RsvgRectangle whole{0.0 + piece.At.X - piece.Source.Left, 0.0 + piece.At.Y - piece.Source.Top, 0, 0};
    if (picture == nullptr ||
        rsvg_handle_get_intrinsic_size_in_pixels(picture.get(), &whole.width, &whole.height) == FALSE) {
        return;
    }
    cairo_push_group(Target.get());
    rsvg_handle_render_document(picture.get(), Target.get(), &whole, nullptr);
    cairo_pop_group_to_source(Target.get());
    cairo_save(Target.get());
    Outline(Target.get(), Rect::FromSize(piece.At.X, piece.At.Y, piece.Source.Width(), piece.Source.Height()));
    cairo_clip(Target.get());
    cairo_paint_with_alpha(Target.get(), piece.Opacity);
    cairo_restore(Target.get());
}

void Canvas::Write(shell::ITextFace& face, const shell::PlacedLine& line, const Rect& area, shell::Argb ink) {
    cairo_save(Target.get());
    Outline(Target.get(), area);
    cairo_clip(Target.get());
    BeginShape(Target.get(), ink);
    static_cast<Face&>(face).Draw(Target.get(), line);
    cairo_restore(Target.get());
}

void Canvas::Put(cairo_surface_t* picture, const Rect& area) {
    cairo_set_source_surface(Target.get(), picture, area.Left, area.Top);
    Outline(Target.get(), area);
    cairo_fill(Target.get());
}

void Canvas::Put(const ICanvas& other, const Rect& area) {
    Put(static_cast<const Canvas&>(other).Pixels(), area);
}

void Canvas::Put(const ink::Picture& paper, const Rect& area) {
    ink::Picture copy = paper; // the library asks for pixels that it may write on
    cairo_surface_t* picture =
        cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(copy.Row(0)), CAIRO_FORMAT_RGB24,
                                            copy.Width(), copy.Height(), 4 * copy.Width());
    cairo_surface_set_device_scale(picture, Scale, Scale);
    Put(picture, area);
    cairo_surface_destroy(picture);
}

} // namespace tavo::memory
