// What came out of the sound device, and the few things that the tests ask about a sound.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace tavo::companion::test {

constexpr int kSampleRate = 22050; // of the house's sounds and of the tests' device

struct HeardSound {
    std::vector<std::int16_t> Samples; // one channel

    // Pieces of a fiftieth of a second in which there was more than silence, as seconds.
    double AudibleSeconds() const;
    // From the end back to the last thing that was heard.
    double SilentSeconds() const;
    // The loudest twentieth of a second within these seconds after the first thing that was heard.
    double LoudestBetween(double from, double to) const;
    // 1: the same pitches in the same proportion, at whatever loudness; 0: no pitch in common.
    double LikenessTo(const HeardSound& other) const;
};

// The samples of a file of ours: 16 bits, one channel, the rate above.
HeardSound ReadSound(const std::filesystem::path& file);
// Writes an even tone of this pitch.
void WriteTone(const std::filesystem::path& file, double pitch, double seconds);

} // namespace tavo::companion::test
