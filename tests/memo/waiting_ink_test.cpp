// Ink that waits for its item to be saved, on a disk that takes nothing more.
#include "memo/waiting_ink.h"
#include "tests/memo/memo_desk.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace tavo::test {
namespace {

std::ptrdiff_t CountIn(const std::filesystem::path& folder) {
    return std::distance(std::filesystem::directory_iterator(folder), {});
}

TEST(WaitingInk, StaysAsItWasWhereTheNewOneCannotBeWritten) {
    MemoDesk desk;
    const std::filesystem::path root = desk.Device.Host().Root.Path();
    const std::filesystem::path folder = root / "Recovery";
    const std::filesystem::path aside = root / "Aside";
    const std::vector<std::uint8_t> first{1};
    const std::vector<std::uint8_t> second{1, 2};
    {
        WaitingInk waiting(desk.Host);
        waiting.Hold({}, first);
        EXPECT_EQ(CountIn(folder), 1);
        waiting.Hold({}, second);
        EXPECT_EQ(CountIn(folder), 1);
        std::filesystem::rename(folder, aside);
        std::ofstream(folder) << "no folder";
        waiting.Hold({}, first);
        std::filesystem::remove(folder);
        std::filesystem::rename(aside, folder);
        EXPECT_EQ(CountIn(folder), 1);
    }
    EXPECT_EQ(CountIn(folder), 0);
}

} // namespace
} // namespace tavo::test
