// Ink in an entry: a picture for others, and its own bytes.
#include "host/exchange/ink_lines.h"

#include "host/exchange/calendar_lines.h"
#include "host/exchange/own_properties.h"

#include <algorithm>

namespace tavo::exchange {
namespace {

// Bytes of ink that a line takes: three at a time, so that lines join without signs that fill them up, and short enough
// for every reader.
constexpr std::size_t kInkInLine = std::size_t{3} * 100 * 1024;

} // namespace

void AppendInk(std::span<const std::uint8_t> ink, const InkDrawing& draw, std::string& file) {
    if (ink.empty()) {
        return;
    }
    if (const std::string drawing = draw(ink); !drawing.empty()) {
        AppendFolded("ATTACH;" + std::string(kOwnPicture) + "=1;FMTTYPE=image/svg+xml;ENCODING=BASE64;VALUE=BINARY:" +
                         EncodeBase64({reinterpret_cast<const std::uint8_t*>(drawing.data()), drawing.size()}),
                     file);
    }
    for (std::size_t at = 0; at < ink.size(); at += kInkInLine) {
        const std::span<const std::uint8_t> rest = ink.subspan(at);
        AppendFolded(std::string(kOwnInk) + ":" + EncodeBase64(rest.first(std::min(kInkInLine, rest.size()))), file);
    }
}

} // namespace tavo::exchange
