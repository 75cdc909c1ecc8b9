// Reads the lines of a calendar file: folded lines joined, the place of each remembered.
#include "host/exchange/line_reader.h"

#include <algorithm>
#include <cstring>

namespace tavo::exchange {
namespace {

constexpr std::size_t kWindowSize = std::size_t{64} * 1024;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

} // namespace

LineReader::LineReader(IByteSource& source) : Source(source), Window(kWindowSize) {
    Refill();
    if (std::string_view(Window.data(), Filled).starts_with(kByteOrderMark)) {
        Position = kByteOrderMark.size();
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
    if (Position == Filled && !AtEnd) {
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
        ++Position;
        if (!ReadPhysical(text, line.Cut)) {
            break;
        }
        const std::size_t room = kLongestLine - std::min(kLongestLine, Joined.size());
        line.Cut = line.Cut || text.size() > room;
        Joined.append(text.substr(0, room));
        if (Position == Filled && !AtEnd) {
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
        const void* end = length > searched ? std::memchr(begin + searched, '\n', length - searched) : nullptr;
        if (end != nullptr) {
            text = std::string_view(begin, static_cast<std::size_t>(static_cast<const char*>(end) - begin));
            Position += text.size() + 1;
            break;
        }
        if (AtEnd) {
            if (length == 0) {
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
        searched = length;
        Refill();
    }
    ++NextNumber;
    if (text.ends_with('\r')) {
        text.remove_suffix(1);
    }
    return true;
}

void LineReader::SkipRestOfLine() {
    for (;;) {
        const char* begin = Window.data() + Position;
        const void* end = Filled > Position ? std::memchr(begin, '\n', Filled - Position) : nullptr;
        if (end != nullptr) {
            Position += static_cast<std::size_t>(static_cast<const char*>(end) - begin) + 1;
            return;
        }
        Position = Filled;
        if (AtEnd) {
            return;
        }
        Refill();
    }
}

bool LineReader::IsFoldNext() const {
    return Position < Filled && (Window[Position] == ' ' || Window[Position] == '\t');
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
