// Text that came from outside, made harmless for whatever shows it: a terminal, a notification, a settings file.
#pragma once

#include <string>
#include <string_view>

namespace tavo::locale {

// Appends UTF-8 in which nothing ends a line, commands a terminal, turns letters round or is refused as no text:
// - control characters become their symbols (U+2400 to U+2421), everything that ends a line behind ASCII U+2424, and
//   the upper controls, which have no symbols, U+FFFD;
// - characters that are none (U+FDD0 to U+FDEF, the last two of every plane) become U+FFFD, and so does each fault of
//   malformed bytes, half surrogate pairs among them;
// - embeddings, overrides and isolates of the direction and U+FEFF are left out: they show nothing of themselves.
// All else stays as it is, the marks of a direction (U+200E, U+200F, U+061C) included.
void AppendHarmless(std::string_view bytes, std::string& text);
std::string MakeHarmless(std::string_view bytes);

// Whether MakeHarmless would leave it as it is.
bool IsHarmless(std::string_view bytes);

} // namespace tavo::locale
