// Keeps the hand that holds the pen from drawing.
#pragma once

#include <cstdint>
#include <optional>

namespace tavo::ink {

// How long after the pen left the touch of a hand is still taken for the palm; milliseconds.
constexpr std::uint64_t kPalmTime = 500;

// Moments are milliseconds that never run backwards.
class PalmGuard {
  public:
    // The pen came near, or was heard of otherwise.
    void PenIsNear() { IsNear = true; }

    void PenLeft(std::uint64_t now) {
        IsNear = false;
        Left = now;
    }

    bool TakesTouch(std::uint64_t now) const { return !IsNear && (!Left.has_value() || now - *Left >= kPalmTime); }

  private:
    bool IsNear = false;
    std::optional<std::uint64_t> Left;
};

} // namespace tavo::ink
