// Each file data/NAME.ics gives what data/NAME.expected says, line by line.
#include "host/posix/file_source.h"
#include "host/posix/zone_database.h"
#include "host/rules/zones.h"
#include "tests/exchange/item_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace tavo::exchange {
namespace {

const std::filesystem::path kData = TAVO_TEST_DATA;

std::string ReadFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::string> ListInputs() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(kData)) {
        if (entry.path().extension() == ".ics") {
            names.push_back(entry.path().stem().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

class CalendarFile : public testing::TestWithParam<std::string> {};

TEST_P(CalendarFile, IsReadAsExpected) {
    posix::FileSource source;
    std::string reason;
    ASSERT_TRUE(source.Open((kData / (GetParam() + ".ics")).string(), reason)) << reason;
    const std::string expected = ReadFile(kData / (GetParam() + ".expected"));
    EXPECT_FALSE(expected.empty()) << "there is no expectation for this input";
    EXPECT_EQ(DescribeFile(source), expected);
}

// A file that is in order means the same; of any other data/NAME.strict says where it broke.
TEST_P(CalendarFile, IsReadStrictly) {
    posix::FileSource source;
    std::string reason;
    ASSERT_TRUE(source.Open((kData / (GetParam() + ".ics")).string(), reason)) << reason;
    const bool isInOrder = !std::filesystem::exists(kData / (GetParam() + ".strict"));
    const std::string lenient = ReadFile(kData / (GetParam() + ".expected"));
    EXPECT_FALSE(isInOrder && ("\n" + lenient).find("\nmended") != std::string::npos);
    EXPECT_EQ(DescribeFile(source, Manner::Strict), isInOrder ? lenient : ReadFile(kData / (GetParam() + ".strict")));
}

INSTANTIATE_TEST_SUITE_P(Data, CalendarFile, testing::ValuesIn(ListInputs()),
                         [](const auto& input) { return input.param; });

std::vector<std::string> ListInputsOfLines() {
    std::vector<std::string> names = ListInputs();
    std::erase_if(names, [](const std::string& name) {
        const std::string text = ReadFile(kData / (name + ".ics"));
        return text.find('\n') == std::string::npos || text.find('\0') != std::string::npos;
    });
    return names;
}

class CalendarFileOfLines : public testing::TestWithParam<std::string> {};

// The same bytes with the line ends of the other kind mean the same.
TEST_P(CalendarFileOfLines, MeansTheSameWithOtherLineEnds) {
    std::string text = ReadFile(kData / (GetParam() + ".ics"));
    std::string other;
    if (text.find('\r') == std::string::npos) {
        for (const char character : text) {
            other += character == '\n' ? "\r\n" : std::string(1, character);
        }
    } else {
        std::erase(text, '\r');
        other = text;
    }
    MemorySource source(other);
    EXPECT_EQ(DescribeFile(source), ReadFile(kData / (GetParam() + ".expected")));
}

INSTANTIATE_TEST_SUITE_P(Data, CalendarFileOfLines, testing::ValuesIn(ListInputsOfLines()),
                         [](const auto& input) { return input.param; });

TEST(CalendarFileReading, StopsWhenTheSinkDoesNotWantToGoOn) {
    class StoppingSink final : public IEntrySink {
      public:
        bool OnItem(rules::StoredItem /*item*/, const std::vector<TagList>& /*kinds*/, int /*line*/) override {
            return ++Items < 2;
        }

        bool OnLoneOccurrence(const LoneOccurrence& /*occurrence*/, int /*line*/) override { return true; }

        bool OnRefused(int /*line*/, const std::string& /*reason*/) override { return true; }

        void OnMended(int /*line*/, const std::string& /*what*/) override {}

        bool OnPassedOver(PassedOver /*what*/, int /*line*/, const std::string& /*reason*/) override { return true; }

        bool OnProgress(std::int64_t /*offset*/) override { return true; }

        std::unique_ptr<rules::ZoneRules> LoadZone(const std::string& name) override {
            return rules::LoadZone(posix::SystemZones(), name);
        }

        bool DefineZone(const std::string& /*name*/, const std::string& /*component*/) override { return true; }

        int Items = 0;
    };

    std::string text = "BEGIN:VCALENDAR\n";
    for (const char* uid : {"a", "b", "c"}) {
        text += std::string("BEGIN:VEVENT\nUID:") + uid + "\nDTSTART:20260314T090000\nEND:VEVENT\n";
    }
    text += "END:VCALENDAR\n";
    MemorySource source(text);
    StoppingSink sink;
    FileFault fault;
    EXPECT_EQ(ReadCalendarFile(source, sink, Manner::Lenient, fault), FileOutcome::Stopped);
    EXPECT_EQ(sink.Items, 2);
}

} // namespace
} // namespace tavo::exchange
