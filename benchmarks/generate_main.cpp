// tavo-generate FOLDER [ITEMS]: writes the benchmark's calendar.ics, one file for each kind of tag, and the memo files.
#include "benchmarks/calendar_generator.h"
#include "benchmarks/costs.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>

namespace {

using namespace tavo::benchmarks;

constexpr int kDefaultItems = 100'000;
constexpr int kMemosOfItems = 10; // one memo for ten items
constexpr std::string_view kUsage = "usage: tavo-generate FOLDER [ITEMS]\n\n"
                                    "Writes calendar.ics with that many items (100000 unless told otherwise), "
                                    "alarm.ics, holiday.ics and anniversary.ics\n"
                                    "with those to be tagged so, and the folder memos.\n";

bool WriteFile(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    return static_cast<bool>(file.flush());
}

// Every item whose number leaves `remainder` when divided by `step`, at most `limit` of them.
std::string MakeCalendar(int items, int step, int remainder, int limit) {
    std::string text;
    AppendCalendarBegin(text);
    int written = 0;
    for (int number = remainder; number < items && written < limit; number += step, ++written) {
        AppendEvent(text, number, items);
    }
    AppendCalendarEnd(text);
    return text;
}

bool WriteMemos(const std::filesystem::path& folder, int memos) {
    std::filesystem::create_directories(folder);
    for (int number = 0; number < memos; ++number) {
        if (!WriteFile(folder / MakeMemoName(number, memos), MakeMemoBytes(number))) {
            return false;
        }
    }
    return true;
}

} // namespace

int main(int count, char** arguments) {
    const std::string_view first = count > 1 ? arguments[1] : "";
    if (first == "--help" || first == "-h") {
        std::cout << kUsage;
        return 0;
    }
    const int items = count == 3 ? tavo::bench::ReadNumber(arguments[2]) : kDefaultItems;
    if (count < 2 || count > 3 || first.empty() || first.front() == '-' || items <= 0) {
        std::cerr << kUsage;
        return 2;
    }
    const std::filesystem::path folder = first;
    const int step = std::max(4, items / kTagsOfEach);
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    const bool written = WriteFile(folder / "calendar.ics", MakeCalendar(items, 1, 0, items)) &&
                         WriteFile(folder / "alarm.ics", MakeCalendar(items, step, 1, kTagsOfEach)) &&
                         WriteFile(folder / "holiday.ics", MakeCalendar(items, step, 2, kTagsOfEach)) &&
                         WriteFile(folder / "anniversary.ics", MakeCalendar(items, step, 3, kTagsOfEach)) &&
                         WriteMemos(folder / "memos", items / kMemosOfItems);
    if (!written) {
        std::cerr << "tavo-generate: cannot write to " << folder << '\n';
        return 1;
    }
    return 0;
}
