// Recorded calls as text.
#include "host/headless/draw_call.h"

#include "host/locale/utf.h"

#include <iomanip>
#include <ostream>
#include <sstream>

namespace tavo::headless {

namespace {

void Write(std::ostream& out, const Rect& area) {
    out << ' ' << area.Left << ',' << area.Top << ',' << area.Right << ',' << area.Bottom;
}

void Write(std::ostream& out, Color color) {
    constexpr int redShift = 16;
    constexpr int greenShift = 8;
    const int value = (color.Red() << redShift) | (color.Green() << greenShift) | color.Blue();
    out << " #" << std::hex << std::uppercase << std::setw(6) << std::setfill('0') << value << std::dec;
}

} // namespace

std::string ToText(const DrawCall& call) {
    std::ostringstream out;
    switch (call.Kind) {
    case DrawKind::Fill:
        out << "fill";
        Write(out, call.Area);
        Write(out, call.Ink);
        break;
    case DrawKind::Line:
        out << "line " << call.From.X << ',' << call.From.Y << " to " << call.To.X << ',' << call.To.Y << " pen "
            << call.PenWidth;
        Write(out, call.Ink);
        break;
    case DrawKind::Text:
        out << "text";
        Write(out, call.Area);
        Write(out, call.Ink);
        out << " format " << call.Format << " [" << call.Font << "] \"" << locale::ToUtf8(call.Text) << '"';
        break;
    case DrawKind::Bitmap:
        out << "bitmap " << call.Bitmap;
        Write(out, call.Area);
        out << " from";
        Write(out, call.Source);
        break;
    }
    return out.str();
}

std::string ToText(const Transcript& transcript) {
    std::string text;
    for (const DrawCall& call : transcript) {
        text += ToText(call);
        text += '\n';
    }
    return text;
}

} // namespace tavo::headless
