// The machine's clock.
#include "host/posix/system_clock.h"

#include "tests/files/temporary_folder.h"

#include <chrono>
#include <ctime>
#include <gtest/gtest.h>
#include <thread>

namespace tavo::posix {

namespace {

// The rule of a zone that keeps the same time all year, as a zone file of version 1.
std::string MakeZone(char hoursEast) {
    const auto seconds = static_cast<std::uint32_t>(hoursEast * 3600);
    std::string zone = "TZif";
    zone += std::string(16, '\0');
    const std::uint32_t counts[] = {0, 0, 0, 0, 1, 4};
    for (const std::uint32_t count : counts) {
        zone += {0, 0, 0, static_cast<char>(count)};
    }
    for (int shift = 24; shift >= 0; shift -= 8) {
        zone += static_cast<char>(seconds >> shift & 0xFF);
    }
    return zone + std::string("\0\0TST\0", 6);
}

int HoursFrom(const SYSTEMTIME& earlier, const SYSTEMTIME& later) {
    return (later.Hour - earlier.Hour + 24) % 24;
}

} // namespace

TEST(SystemClock, TellsTheLocalTimeOfTheProcess) {
    EXPECT_EQ(files::RunApart([] {
                  setenv("TZ", "TST-5:30", 1);
                  SystemClock clock;
                  const std::time_t before = std::time(nullptr) + std::time_t{5} * 3600 + 1800;
                  const SYSTEMTIME now = clock.GetLocalTime();
                  std::tm expected{};
                  gmtime_r(&before, &expected);
                  const int late = (now.Minute * 60 + now.Second) - (expected.tm_min * 60 + expected.tm_sec);
                  return now.Hour == expected.tm_hour && now.Year == expected.tm_year + 1900 &&
                                 now.Month == expected.tm_mon + 1 && now.Day == expected.tm_mday &&
                                 now.DayOfWeek == expected.tm_wday && late >= 0 && late <= 2
                             ? 0
                             : 1;
              }),
              0);
}

TEST(SystemClock, FollowsAChangedZoneFile) {
    const files::TemporaryFolder folder;
    folder.Put("two", MakeZone(2));
    folder.Put("nine", MakeZone(9));
    std::filesystem::create_symlink(folder / "two", folder / "localtime");
    EXPECT_EQ(files::RunApart([&] {
                  const std::string zone = folder / "localtime";
                  setenv("TZ", zone.c_str(), 1);
                  SystemClock clock;
                  const SYSTEMTIME before = clock.GetLocalTime();
                  std::filesystem::remove(folder / "localtime");
                  std::filesystem::create_symlink(folder / "nine", folder / "localtime");
                  std::this_thread::sleep_for(std::chrono::milliseconds(1100));
                  const int hours = HoursFrom(before, clock.GetLocalTime());
                  return hours == 7 || hours == 8 ? 0 : 1; // 8 when an hour began meanwhile
              }),
              0);
}

TEST(SystemClock, TicksCountMilliseconds) {
    SystemClock clock;
    const std::uint32_t before = clock.GetTickCount();
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    const std::uint32_t passed = clock.GetTickCount() - before;
    EXPECT_GE(passed, 29U);
    EXPECT_LT(passed, 5000U);
}

TEST(SystemClock, LookingCostsLittle) {
    SystemClock clock;
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < 100'000; ++i) {
        static_cast<void>(clock.GetLocalTime()); // only the cost counts
    }
    const std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - begin;
    std::printf("one look at the clock: %.3f microseconds\n", taken.count() / 100'000);
    EXPECT_LT(taken.count() / 100'000, 50);
}

} // namespace tavo::posix
