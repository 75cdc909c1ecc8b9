// A bar that grows on the terminal while files are read.
#pragma once

#include <chrono>
#include <cstdint>
#include <string_view>

namespace tavo::tools {

// Draws on standard error, and only when that is a terminal.
class ProgressBar {
  public:
    ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    ~ProgressBar() { Clear(); }

    // Redraws at most ten times a second. `name` is what is being worked on.
    void Show(std::int64_t done, std::int64_t total, std::string_view name);
    // Takes the bar away, so that other lines can be written.
    void Clear();

  private:
    bool Terminal = false;
    bool Shown = false;
    std::chrono::steady_clock::time_point Drawn;
};

} // namespace tavo::tools
