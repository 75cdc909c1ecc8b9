// A bar that grows on the terminal while files are read.
#include "tools/progress_bar.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <string>

namespace tavo::tools {
namespace {

constexpr std::chrono::milliseconds kPause{100};
constexpr int kBarCells = 30;
constexpr int kCommonColumns = 80;
constexpr int kFrameColumns = kBarCells + 10; // brackets, blanks and the percentage

int MeasureTerminal() {
    winsize size{};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : kCommonColumns;
}

// A file's name may hold anything; only what prints goes to the terminal.
std::string MakePrintable(std::string_view name, std::size_t columns) {
    std::string text(name.substr(0, columns));
    std::replace_if(
        text.begin(), text.end(), [](char character) { return character < ' ' || character > '~'; }, '?');
    return text;
}

} // namespace

ProgressBar::ProgressBar() : Terminal(isatty(STDERR_FILENO) == 1) {}

void ProgressBar::Show(std::int64_t done, std::int64_t total, std::string_view name) {
    const auto now = std::chrono::steady_clock::now();
    if (!Terminal || (Shown && now - Drawn < kPause)) {
        return;
    }
    Drawn = now;
    Shown = true;
    const std::int64_t whole = std::max<std::int64_t>(total, 1);
    const std::int64_t part = std::clamp<std::int64_t>(done, 0, whole);
    const int cells = static_cast<int>(part * kBarCells / whole);
    std::string line = "\r[" + std::string(static_cast<std::size_t>(cells), '#') +
                       std::string(static_cast<std::size_t>(kBarCells - cells), ' ') + "] " +
                       std::to_string(part * 100 / whole) + "% ";
    line += MakePrintable(name, static_cast<std::size_t>(std::max(0, MeasureTerminal() - kFrameColumns)));
    line += "\x1b[K"; // to the line's end: a shorter name leaves nothing of a longer one
    std::fwrite(line.data(), 1, line.size(), stderr);
    std::fflush(stderr);
}

void ProgressBar::Clear() {
    if (Shown) {
        std::fputs("\r\x1b[K", stderr);
        std::fflush(stderr);
        Shown = false;
    }
}

} // namespace tavo::tools
