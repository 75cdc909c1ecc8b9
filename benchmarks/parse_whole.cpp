// tavo-parse-whole FILE: the import's yardstick, libical reading a file as one piece. Prints seconds and peak memory.
#include <libical/ical.h>
#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

int main(int count, char** arguments) {
    if (count != 2) {
        std::fprintf(stderr, "usage: tavo-parse-whole FILE\n");
        return 2;
    }
    const auto start = std::chrono::steady_clock::now();
    std::ifstream file(arguments[1], std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    icalcomponent* calendar = icalparser_parse_string(text.c_str());
    if (calendar == nullptr) {
        std::fprintf(stderr, "tavo-parse-whole: nothing to parse in %s\n", arguments[1]);
        return 1;
    }
    const int events = icalcomponent_count_components(calendar, ICAL_VEVENT_COMPONENT);
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("%d %.6f %ld\n", events, passed.count(), usage.ru_maxrss);
    icalcomponent_free(calendar);
    return 0;
}
