// Breaking and aligning text.
#include "host/shell/chrome/text_placement.h"

#include "platform/drawing.h"

#include <utility>

namespace tavo::shell {
namespace {

// Takes the marks out of "&Open": "Open", with the O underlined. "&&" stays one "&".
PlacedLine TakePrefixOut(std::u16string_view text) {
    PlacedLine line;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'&' && i + 1 < text.size()) {
            ++i;
            if (text[i] != u'&') {
                line.Underlined = static_cast<int>(line.Text.size());
            }
        }
        line.Text += text[i];
    }
    return line;
}

// The number of UTF-16 units that go on one line of this width: whole words, or at least one character.
std::size_t CountFitting(ITextFace& font, std::u16string_view text, int width) {
    const std::vector<double>& ends = font.Ends(text);
    std::size_t count = 0;
    while (count < text.size() && ends[count] < width + 0.5) {
        ++count;
    }
    if (count == text.size() || text[count] == u' ') {
        return count;
    }
    if (const std::size_t blank = text.substr(0, count).rfind(u' '); blank != std::u16string_view::npos) {
        return blank;
    }
    // Back to the end of a character, or on to the first one's: the widths grow only there.
    while (count > 0 && ends[count - 1] <= (count > 1 ? ends[count - 2] : 0.0)) {
        --count;
    }
    while (count == 0 || (count < text.size() && ends[count - 1] <= 0.0)) {
        ++count;
    }
    return count;
}

// The same, without placing all the rest of a long text anew for each of its lines.
std::size_t CountOnLine(ITextFace& font, std::u16string_view text, int width) {
    constexpr std::size_t longestLine = 4096; // units; hardly a line of them is wide enough for more
    const std::size_t count = CountFitting(font, text.substr(0, longestLine), width);
    return count < longestLine ? count : CountFitting(font, text, width);
}

void AppendWrapped(ITextFace& font, std::u16string_view text, int width, std::vector<PlacedLine>& lines) {
    while (true) {
        const std::size_t count = CountOnLine(font, text, width);
        lines.push_back({std::u16string(text.substr(0, count))});
        if (count >= text.size()) {
            return;
        }
        text.remove_prefix(text[count] == u' ' ? count + 1 : count);
    }
}

std::vector<PlacedLine> SplitLines(ITextFace& font, std::u16string_view text, int width, bool wraps) {
    std::vector<PlacedLine> lines;
    while (true) {
        const std::size_t end = text.find(u'\n');
        std::u16string_view line = text.substr(0, end);
        if (line.ends_with(u'\r')) {
            line.remove_suffix(1);
        }
        if (wraps) {
            AppendWrapped(font, line, width, lines);
        } else {
            lines.push_back({std::u16string(line)});
        }
        if (end == std::u16string_view::npos) {
            return lines;
        }
        text.remove_prefix(end + 1);
    }
}

} // namespace

std::u16string TakeMarksOut(std::u16string_view text) {
    return TakePrefixOut(text).Text;
}

std::vector<PlacedLine> PlaceText(ITextFace& font, std::u16string_view text, const Rect& area, std::uint32_t format) {
    PlacedLine whole;
    if ((format & DT_NOPREFIX) != 0 || text.find(u'&') == std::u16string_view::npos) {
        whole.Text = text;
    } else {
        whole = TakePrefixOut(text);
    }
    std::vector<PlacedLine> lines;
    const bool isSingle = (format & DT_SINGLELINE) != 0;
    if (isSingle) {
        lines.push_back(std::move(whole));
    } else {
        lines = SplitLines(font, whole.Text, area.Width(), (format & DT_WORDBREAK) != 0);
        if (lines.size() == 1) {
            lines.front().Underlined = whole.Underlined;
        }
    }
    int top = area.Top;
    if (isSingle && (format & DT_VCENTER) != 0) {
        top += (area.Height() - font.LineHeight()) / 2;
    } else if (isSingle && (format & DT_BOTTOM) != 0) {
        top = area.Bottom - font.LineHeight();
    }
    for (PlacedLine& line : lines) {
        line.Left = area.Left;
        if ((format & DT_CENTER) != 0) {
            line.Left += (area.Width() - font.Measure(line.Text)) / 2;
        } else if ((format & DT_RIGHT) != 0) {
            line.Left = area.Right - font.Measure(line.Text);
        }
        line.Baseline = top + font.Ascent();
        top += font.LineHeight();
    }
    return lines;
}

} // namespace tavo::shell
