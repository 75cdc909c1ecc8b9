// Which lengths are read from what people write.
#include "tools/length.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

namespace tavo::tools {
namespace {

class LengthRead : public testing::TestWithParam<std::pair<const char*, int>> {};

TEST_P(LengthRead, IsInMinutes) {
    std::string error;
    const std::optional<Length> length = ReadLength(GetParam().first, error);
    ASSERT_TRUE(length) << error;
    EXPECT_EQ(length->Minutes, GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(Length, LengthRead,
                         testing::Values(std::pair("90", 90), std::pair("0", 0), std::pair("45m", 45),
                                         std::pair("45 min", 45), std::pair("1h", 60), std::pair("1h30", 90),
                                         std::pair("1h 30m", 90), std::pair("1:30", 90), std::pair("2 Hours", 120),
                                         std::pair("1 day", 1440), std::pair("1d12h", 2160),
                                         std::pair("2 weeks", 20160)));

class LengthRefused : public testing::TestWithParam<const char*> {};

TEST_P(LengthRefused, SaysHowOneIsWritten) {
    std::string error;
    EXPECT_FALSE(ReadLength(GetParam(), error));
    EXPECT_EQ(error,
              "\"" + std::string(GetParam()) + "\" is no length. Write it like 45, 1h30, \"2 hours\" or \"3 days\".");
}

INSTANTIATE_TEST_SUITE_P(Length, LengthRefused,
                         testing::Values("", "long", "-5", "1.5h", "1x", "h", "30m1h", "1h1h", "1:", "2 years",
                                         "1 month", "9000 hours", "99999999999", "45 45"));

TEST(Length, DaysAreToldFromHours) {
    std::string error;
    EXPECT_TRUE(ReadLength("1 week", error)->IsDays);
    EXPECT_TRUE(ReadLength("1 week 2 days", error)->IsDays);
    EXPECT_FALSE(ReadLength("24 hours", error)->IsDays);
    EXPECT_FALSE(ReadLength("1d 1h", error)->IsDays);
}

} // namespace
} // namespace tavo::tools
