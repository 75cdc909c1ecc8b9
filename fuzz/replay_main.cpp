// Goes through a fuzzer's seeds, and through damaged copies of each, without libFuzzer.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr int kDamagedCopies = 3000; // of each seed, unless told otherwise

Bytes ReadFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void Try(const Bytes& bytes) {
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

// Cuts, changes, drops or repeats a few bytes.
Bytes Damage(Bytes bytes, std::mt19937& random) {
    const auto below = [&](std::size_t limit) { return static_cast<std::size_t>(random()) % limit; };
    for (std::size_t changes = 1 + below(4); changes > 0 && !bytes.empty(); --changes) {
        const std::size_t place = below(bytes.size());
        const auto at = bytes.begin() + static_cast<std::ptrdiff_t>(place);
        switch (below(5)) {
        case 0:
            bytes.resize(place);
            break;
        case 1:
            *at = static_cast<std::uint8_t>(below(256));
            break;
        case 2:
            *at = static_cast<std::uint8_t>(below(2) == 0 ? 0 : 255);
            break;
        case 3:
            bytes.erase(at);
            break;
        default: {
            const Bytes tail(at, bytes.end());
            bytes.insert(bytes.end(), tail.begin(), tail.end());
            break;
        }
        }
    }
    return bytes;
}

} // namespace

// usage: fuzz_NAME FOLDER [COPIES]
int main(int argc, char** argv) {
    if (argc < 2) {
        return 2;
    }
    const int copies = argc > 2 ? static_cast<int>(std::strtol(argv[2], nullptr, 10)) : kDamagedCopies;
    int seeds = 0;
    std::mt19937 random(20040915); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same damages in every run
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
        files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    for (const std::filesystem::path& file : files) {
        const Bytes seed = ReadFile(file);
        ++seeds;
        Try(seed);
        for (int copy = 0; copy < copies; ++copy) {
            Try(Damage(seed, random));
        }
    }
    std::printf("%d seeds, each with %d damaged copies\n", seeds, copies);
    return seeds > 0 ? 0 : 1;
}
