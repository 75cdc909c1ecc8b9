// Loudness and pitches of samples.
#include "tests/companion/heard_sound.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <fstream>
#include <numbers>
#include <span>
#include <string_view>

namespace tavo::companion::test {

namespace {

constexpr std::uint32_t kHeader = 44; // bytes before the samples
constexpr std::size_t kPiece = kSampleRate / 50;
constexpr double kSilence = 8; // of 32767
constexpr std::size_t kPitches = 72;
constexpr double kLowestPitch = 150;
constexpr double kPitchStep = 1.0594630943592953; // twelve of them double it
constexpr std::int16_t kToneLoudness = 12000;

double LoudnessOf(std::span<const std::int16_t> samples) {
    double sum = 0;
    for (const std::int16_t sample : samples) {
        sum += static_cast<double>(sample) * sample;
    }
    return samples.empty() ? 0 : std::sqrt(sum / static_cast<double>(samples.size()));
}

bool IsAudible(const std::vector<std::int16_t>& samples, std::size_t at) {
    return LoudnessOf(std::span(samples).subspan(at, std::min(kPiece, samples.size() - at))) > kSilence;
}

// How much of one pitch is in a piece of sound.
double PowerAt(double pitch, std::span<const std::int16_t> samples) {
    const double factor = 2 * std::cos(2 * std::numbers::pi * pitch / kSampleRate);
    double last = 0;
    double beforeLast = 0;
    for (const std::int16_t sample : samples) {
        const double next = sample + factor * last - beforeLast;
        beforeLast = last;
        last = next;
    }
    return last * last + beforeLast * beforeLast - factor * last * beforeLast;
}

std::array<double, kPitches> PitchesOf(const std::vector<std::int16_t>& samples) {
    constexpr std::size_t length = 4 * kPiece;
    std::array<double, kPitches> powers{};
    for (std::size_t at = 0; at + length <= samples.size(); at += length) {
        double pitch = kLowestPitch;
        for (double& power : powers) {
            power += PowerAt(pitch, std::span(samples).subspan(at, length));
            pitch *= kPitchStep;
        }
    }
    return powers;
}

template <class Number> void Put(std::ofstream& file, Number number) {
    static_assert(std::endian::native == std::endian::little);
    file.write(reinterpret_cast<const char*>(&number), sizeof number);
}

} // namespace

double HeardSound::AudibleSeconds() const {
    std::size_t pieces = 0;
    for (std::size_t at = 0; at < Samples.size(); at += kPiece) {
        pieces += IsAudible(Samples, at) ? 1 : 0;
    }
    return static_cast<double>(pieces * kPiece) / kSampleRate;
}

double HeardSound::SilentSeconds() const {
    std::size_t heardUntil = 0;
    for (std::size_t at = 0; at < Samples.size(); at += kPiece) {
        heardUntil = IsAudible(Samples, at) ? at + kPiece : heardUntil;
    }
    return heardUntil >= Samples.size() ? 0 : static_cast<double>(Samples.size() - heardUntil) / kSampleRate;
}

double HeardSound::LoudestBetween(double from, double to) const {
    std::size_t first = 0;
    while (first < Samples.size() && !IsAudible(Samples, first)) {
        first += kPiece;
    }
    const auto place = [&](double seconds) {
        return std::min(Samples.size(), first + static_cast<std::size_t>(seconds * kSampleRate));
    };
    constexpr std::size_t window = kSampleRate / 20;
    double loudest = 0;
    for (std::size_t at = place(from); at + window <= place(to); at += kPiece) {
        loudest = std::max(loudest, LoudnessOf(std::span(Samples).subspan(at, window)));
    }
    return loudest;
}

double HeardSound::LikenessTo(const HeardSound& other) const {
    const auto own = PitchesOf(Samples);
    const auto others = PitchesOf(other.Samples);
    double both = 0;
    double ownSquares = 0;
    double otherSquares = 0;
    for (std::size_t index = 0; index < kPitches; ++index) {
        both += own[index] * others[index];
        ownSquares += own[index] * own[index];
        otherSquares += others[index] * others[index];
    }
    return ownSquares == 0 || otherSquares == 0 ? 0 : both / std::sqrt(ownSquares * otherSquares);
}

HeardSound ReadSound(const std::filesystem::path& file) {
    HeardSound sound;
    std::ifstream stream(file, std::ios::binary);
    stream.seekg(kHeader);
    std::int16_t sample = 0;
    while (stream.read(reinterpret_cast<char*>(&sample), sizeof sample)) {
        sound.Samples.push_back(sample);
    }
    return sound;
}

void WriteTone(const std::filesystem::path& file, double pitch, double seconds) {
    const auto count = static_cast<std::uint32_t>(seconds * kSampleRate);
    std::ofstream stream(file, std::ios::binary);
    stream << "RIFF";
    Put<std::uint32_t>(stream, kHeader - 8 + 2 * count);
    stream << "WAVEfmt ";
    Put<std::uint32_t>(stream, 16);
    Put<std::uint16_t>(stream, 1); // plain samples
    Put<std::uint16_t>(stream, 1); // channel
    Put<std::uint32_t>(stream, kSampleRate);
    Put<std::uint32_t>(stream, 2 * kSampleRate);
    Put<std::uint16_t>(stream, 2);
    Put<std::uint16_t>(stream, 16);
    stream << "data";
    Put<std::uint32_t>(stream, 2 * count);
    for (std::uint32_t index = 0; index < count; ++index) {
        Put(stream,
            static_cast<std::int16_t>(kToneLoudness * std::sin(2 * std::numbers::pi * pitch * index / kSampleRate)));
    }
}

} // namespace tavo::companion::test
