// Reads the lines of a calendar file: folded lines joined, the place of each remembered.
#include "host/exchange/line_reader.h"

#include "host/locale/utf.h"

#include <algorithm>
#include <cstring>

namespace tavo::exchange {
namespace {

constexpr std::size_t kWindowSize = std::size_t{64} * 1024;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kLittleEndianMark = "\xFF\xFE";
constexpr std::string_view kBigEndianMark = "\xFE\xFF";

} // namespace

LineReader::LineReader(IByteSource& source) : Source(source), Window(kWindowSize) {
    Refill();
    FindEncoding();
    bool hasReturn = false;
    for (std::size_t at = Position; at + UnitSize() <= Filled && LineEnd != '\n'; at += UnitSize()) {
        hasReturn = hasReturn || UnitAt(at) == '\r';
        LineEnd = UnitAt(at) == '\n' ? '\n' : LineEnd;
    }
    LineEnd = hasReturn ? LineEnd : '\n';
}

void LineReader::FindEncoding() {
    const std::string_view begin(Window.data(), Filled);
    const auto isZero = [begin](std::size_t at) { return begin[at] == '\0'; };
    if (begin.starts_with(kByteOrderMark)) {
        Position = kByteOrderMark.size();
    } else if (begin.starts_with(kLittleEndianMark)) {
        Text = Encoding::Utf16LittleEndian;
        Position = kLittleEndianMark.size();
    } else if (begin.starts_with(kBigEndianMark)) {
        Text = Encoding::Utf16BigEndian;
        Position = kBigEndianMark.size();
    } else if (begin.size() >= 4 && isZero(1) && isZero(3) && !isZero(0) && !isZero(2)) {
        Text = Encoding::Utf16LittleEndian;
    } else if (begin.size() >= 4 && isZero(0) && isZero(2) && !isZero(1) && !isZero(3)) {
        Text = Encoding::Utf16BigEndian;
    }
}

bool LineReader::Read(CalendarLine& line) {
    line.Offset = GetOffset();
    line.Number = NextNumber;
    line.Cut = false;
    std::string_view text;
    if (!ReadPhysical(text, line.Cut)) {
        return false;
    }
    if (Filled - Position < UnitSize() && !AtEnd) {
        Joined.assign(text); // looking further moves the window
        text = Joined;
        Refill();
    }
    if (!IsFoldNext()) {
        line.Text = text;
        return true;
    }
    if (text.data() != Joined.data()) {
        Joined.assign(text);
    }
    while (IsFoldNext()) {
        Position += UnitSize();
        if (!ReadPhysical(text, line.Cut)) {
            break;
        }
        const std::size_t room = kLongestLine - std::min(kLongestLine, Joined.size());
        line.Cut = line.Cut || text.size() > room;
        Joined.append(text.substr(0, room));
        if (Filled - Position < UnitSize() && !AtEnd) {
            Refill();
        }
    }
    line.Text = Joined;
    return true;
}

void LineReader::MoveTo(std::int64_t offset, int number) {
    WindowOffset = offset;
    Position = 0;
    Filled = 0;
    NextNumber = number;
    AtEnd = false;
    Refill();
}

bool LineReader::ReadPhysical(std::string_view& text, bool& cut) {
    std::size_t searched = 0;
    for (;;) {
        const char* begin = Window.data() + Position;
        const std::size_t length = Filled - Position;
        if (const std::optional<std::size_t> end = FindLineEnd(Position + searched)) {
            text = std::string_view(begin, *end - Position);
            Position = *end + UnitSize();
            break;
        }
        if (AtEnd) {
            if (length < UnitSize()) {
                return false;
            }
            text = std::string_view(begin, length);
            Position = Filled;
            break;
        }
        if (length >= kLongestLine) {
            Long.assign(begin, kLongestLine);
            text = Long;
            cut = true;
            SkipRestOfLine();
            break;
        }
        searched = length - length % UnitSize();
        Refill();
    }
    ++NextNumber;
    if (Text != Encoding::Utf8) {
        text = Decode(text);
    }
    if (LineEnd == '\n' && text.ends_with('\r')) {
        text.remove_suffix(1);
    }
    return true;
}

std::optional<std::size_t> LineReader::FindLineEnd(std::size_t from) const {
    if (Text == Encoding::Utf8) {
        const void* end = Filled > from ? std::memchr(Window.data() + from, LineEnd, Filled - from) : nullptr;
        return end == nullptr ? std::nullopt
                              : std::optional(static_cast<std::size_t>(static_cast<const char*>(end) - Window.data()));
    }
    for (std::size_t at = from; at + UnitSize() <= Filled; at += UnitSize()) {
        if (UnitAt(at) == static_cast<char16_t>(LineEnd)) {
            return at;
        }
    }
    return std::nullopt;
}

void LineReader::SkipRestOfLine() {
    for (;;) {
        if (const std::optional<std::size_t> end = FindLineEnd(Position)) {
            Position = *end + UnitSize();
            return;
        }
        Position = AtEnd ? Filled : Filled - (Filled - Position) % UnitSize();
        if (AtEnd) {
            return;
        }
        Refill();
    }
}

bool LineReader::IsFoldNext() const {
    if (Filled - Position < UnitSize()) {
        return false;
    }
    const char16_t next = UnitAt(Position);
    return next == ' ' || next == '\t';
}

char16_t LineReader::UnitAt(std::size_t position) const {
    const auto byte = [this](std::size_t at) { return static_cast<unsigned char>(Window[at]); };
    switch (Text) {
    case Encoding::Utf8:
        break;
    case Encoding::Utf16LittleEndian:
        return static_cast<char16_t>(byte(position) | byte(position + 1) << 8);
    case Encoding::Utf16BigEndian:
        return static_cast<char16_t>(byte(position) << 8 | byte(position + 1));
    }
    return byte(position);
}

std::string_view LineReader::Decode(std::string_view units) {
    const std::size_t high = Text == Encoding::Utf16LittleEndian ? 1 : 0;
    std::u16string text;
    text.reserve(units.size() / 2);
    for (std::size_t at = 0; at + 1 < units.size(); at += 2) {
        text += static_cast<char16_t>(static_cast<unsigned char>(units[at + high]) << 8 |
                                      static_cast<unsigned char>(units[at + 1 - high]));
    }
    Decoded = locale::ToUtf8(text);
    return Decoded;
}

// Keeps what is not read yet and adds what follows it; a line longer than the window makes the window grow.
void LineReader::Refill() {
    std::copy(Window.begin() + static_cast<std::ptrdiff_t>(Position),
              Window.begin() + static_cast<std::ptrdiff_t>(Filled), Window.begin());
    WindowOffset += static_cast<std::int64_t>(Position);
    Filled -= Position;
    Position = 0;
    if (Filled == Window.size()) {
        Window.resize(Window.size() * 2);
    }
    const std::ptrdiff_t count =
        Source.ReadAt(WindowOffset + static_cast<std::int64_t>(Filled), Window.data() + Filled, Window.size() - Filled);
    Failed = Failed || count < 0;
    AtEnd = count <= 0;
    Filled += count > 0 ? static_cast<std::size_t>(count) : 0;
}

} // namespace tavo::exchange
