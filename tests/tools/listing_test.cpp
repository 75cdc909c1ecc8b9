// A calendar file from its bytes to its occurrences: what data/NAME.agenda says of five weeks of spring 2026.
#include "tests/tools/command_run.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace tavo::tools {
namespace {

const std::filesystem::path kData = TAVO_TEST_DATA;

std::vector<std::string> ListInputs() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(kData)) {
        if (entry.path().extension() == ".agenda") {
            names.push_back(entry.path().stem().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

class Listing : public testing::TestWithParam<std::string> {};

TEST_P(Listing, ShowsEveryOccurrenceOfTheFile) {
    const CommandDevice device;
    device.Run({"import", (kData / (GetParam() + ".ics")).string()});
    EXPECT_EQ(device.Run({"agenda", "--tsv", "--from", "2026-03-01", "--to", "2026-04-05"}).Output,
              ReadWhole(kData / (GetParam() + ".agenda")));
}

TEST_P(Listing, IsTheSameAfterASecondImport) {
    const CommandDevice device;
    const std::string file = (kData / (GetParam() + ".ics")).string();
    device.Run({"import", file});
    const std::string again = device.Run({"import", file}).Output;
    EXPECT_TRUE(again.starts_with("0 new, 0 changed, ")) << again;
    EXPECT_EQ(device.Run({"agenda", "--tsv", "--from", "2026-03-01", "--to", "2026-04-05"}).Output,
              ReadWhole(kData / (GetParam() + ".agenda")));
}

INSTANTIATE_TEST_SUITE_P(Data, Listing, testing::ValuesIn(ListInputs()), [](const auto& input) { return input.param; });

} // namespace
} // namespace tavo::tools
