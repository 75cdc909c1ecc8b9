// Measuring and drawing of text.
#include "tests/memory_host/face.h"

#include "host/bare/characters.h"
#include "host/locale/utf.h"

#include <algorithm>
#include <cstdlib>

namespace tavo::memory {

namespace {

constexpr int kBoldWeight = 600;

// What only joins or varies its neighbours is not seen; a tab or a line break is as wide as a blank and looks like one.
std::string MakeDrawable(std::u16string_view text) {
    std::u16string drawable(text);
    std::erase_if(drawable, [](char16_t unit) { return unit == u'\u200D' || unit == u'\uFE0F'; });
    std::replace_if(
        drawable.begin(), drawable.end(), [](char16_t unit) { return unit < u' '; }, u' ');
    return locale::ToUtf8(drawable);
}

double WidthOf(cairo_t* font, std::u16string_view text) {
    cairo_text_extents_t extents;
    cairo_text_extents(font, MakeDrawable(text).c_str(), &extents);
    return extents.x_advance;
}

} // namespace

Context MakeContext(int width, int height) {
    cairo_surface_t* picture = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
    Context context(cairo_create(picture));
    cairo_surface_destroy(picture); // the context keeps it
    cairo_font_options_t* unhinted = cairo_font_options_create();
    cairo_font_options_set_hint_style(unhinted, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(unhinted, CAIRO_HINT_METRICS_OFF);
    cairo_set_font_options(context.get(), unhinted);
    cairo_font_options_destroy(unhinted);
    return context;
}

Face::Face(const LogFont& description) {
    const auto weight = description.Weight >= kBoldWeight ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL;
    const double height = std::abs(description.Height);
    cairo_select_font_face(Measure.get(), locale::ToUtf8(description.FaceName).c_str(), CAIRO_FONT_SLANT_NORMAL,
                           weight);
    cairo_set_font_size(Measure.get(), height);
    if (description.Width != 0) {
        cairo_matrix_t stretched;
        cairo_matrix_init_scale(&stretched, height * std::abs(description.Width) / WidthOf(Measure.get(), u"0"),
                                height);
        cairo_set_font_matrix(Measure.get(), &stretched);
    }
    cairo_font_extents(Measure.get(), &Heights);
}

const std::vector<double>& Face::Ends(std::u16string_view text) {
    Found.clear();
    double sum = 0;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = bare::FindCharacterEnd(text, start);
        Found.resize(end - 1, sum);
        sum += WidthOf(Measure.get(), text.substr(start, end - start));
        Found.push_back(sum);
        start = end;
    }
    return Found;
}

void Face::Draw(cairo_t* on, const shell::PlacedLine& line) const {
    cairo_matrix_t size;
    cairo_get_font_matrix(Measure.get(), &size);
    cairo_set_font_face(on, cairo_get_font_face(Measure.get()));
    cairo_set_font_matrix(on, &size);
    cairo_move_to(on, line.Left, line.Baseline);
    cairo_show_text(on, MakeDrawable(line.Text).c_str());
}

} // namespace tavo::memory
