// Lines of another calendar are kept in bounds, and what is kept is whole.
#include "host/exchange/carried_lines.h"

#include "host/rules/save_rules.h"
#include "tests/exchange/item_text.h"

#include <gtest/gtest.h>

#include <string>

namespace tavo::exchange {
namespace {

std::string WithLines(const std::string& lines) {
    return "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nUID:a\r\nSUMMARY:Kept\r\nDTSTART:20260302T090000\r\n" + lines +
           "END:VEVENT\r\nEND:VCALENDAR\r\n";
}

TEST(CarriedLines, ALineThatIsTooLongIsLeftOutAndSaidAndTheOthersStay) {
    const std::string file = WithLines("URL:before\r\nATTACH:" + std::string(rules::kMaxCarriedBytes, 'x') +
                                       "\r\nATTACH:" + std::string(rules::kMaxCarriedBytes, 'y') + "\r\nURL:after\r\n");
    MemorySource source(file);
    EXPECT_EQ(DescribeFile(source),
              "mended in line 7: this line is too long to be kept, or one too many; it was left out\n"
              "item in line 2\n"
              "  uid: a\n"
              "  subject: Kept\n"
              "  time: 2026-03-02 09:00 - 2026-03-02 09:00\n"
              "  carried: URL:before\n"
              "  carried: URL:after\n"
              "read\n");
}

TEST(CarriedLines, ALongLineIsNoFaultOfTheFile) {
    const std::string file = WithLines("ATTACH:" + std::string(rules::kMaxCarriedBytes, 'x') + "\r\n");
    MemorySource source(file);
    EXPECT_EQ(DescribeFile(source, Manner::Strict).find("broken"), std::string::npos);
}

TEST(CarriedLines, WhatBeganEndsOrIsNotThere) {
    CarriedLines lines;
    lines.BeginAlarm();
    EXPECT_TRUE(lines.AddToAlarm("BEGIN:VALARM", true));
    while (lines.AddToAlarm("X-MANY:" + std::string(1000, 'x'), false)) {
    }
    EXPECT_TRUE(lines.AddToAlarm("END:VALARM", true));
    const std::string kept = lines.Join({0});
    EXPECT_TRUE(kept.ends_with("\nEND:VALARM"));
    EXPECT_LE(kept.size(), rules::kMaxCarriedBytes);
    while (lines.AddOwn("BEGIN:X-DEEP", true)) {
    }
    EXPECT_EQ(lines.Join({0}), "");
    EXPECT_FALSE(lines.AddOwn("URL:late", false));
    EXPECT_FALSE(lines.AddToAlarm("TRIGGER:-PT5M", false));
    lines.Clear();
    EXPECT_TRUE(lines.AddOwn("URL:of the next", false));
    EXPECT_EQ(lines.Join({}), "URL:of the next");
}

TEST(CarriedLines, WhatIsNoUtf8IsLatin1) {
    std::string lines = "URL:a";
    AppendCarried(lines, "COMMENT:caf\xE9");
    AppendCarried(lines, "COMMENT:caf\xC3\xA9");
    EXPECT_EQ(lines, "URL:a\nCOMMENT:caf\xC3\xA9\nCOMMENT:caf\xC3\xA9");
}

} // namespace
} // namespace tavo::exchange
