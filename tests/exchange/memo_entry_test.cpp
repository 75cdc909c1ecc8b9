// Memos of days on their way out and back.
#include "host/exchange/calendar_file.h"
#include "host/exchange/memo_entry.h"
#include "tests/exchange/memory_memos.h"

#include <gmock/gmock.h>

namespace tavo::exchange {
namespace {

using ::testing::ElementsAre;

TEST(MemoName, SaysTheDay) {
    EXPECT_EQ(FindMemoDay("20260503_090000.pwi"), rules::DayFromCivil(2026, 5, 3));
    EXPECT_EQ(FindMemoDay("20260503.PWI"), rules::DayFromCivil(2026, 5, 3));
    EXPECT_EQ(FindMemoDay("20260503_090000 2.pwi"), rules::DayFromCivil(2026, 5, 3));
    for (const char* name :
         {"", ".pwi", "20260503", "20260503.png", "20261303_1.pwi", "20260230_1.pwi", "00000101_1.pwi",
          "30000101_1.pwi", "notes.pwi", "20260503/../../x.pwi", "20260503_\x01.pwi",
          "20260503_1234567890123456789012345678901234567890123456789012345678901234.pwi"}) {
        EXPECT_EQ(FindMemoDay(name), std::nullopt) << name;
    }
}

TEST(MemoEntry, AMemoIsWrittenWithItsDayItsPictureAndItsInk) {
    EventWords words;
    words.Stamp = "20260503T090000Z";
    words.DrawInk = [](std::span<const std::uint8_t>) { return std::string("<svg/>"); };
    std::string file;
    WriteMemoEntry({"20260503_090000.pwi", {1, 2, 3}}, "memo-1", words, file);
    EXPECT_EQ(file, "BEGIN:VJOURNAL\r\nUID:memo-1\r\nDTSTAMP:20260503T090000Z\r\nDTSTART;VALUE=DATE:20260503\r\n"
                    "SUMMARY:Memo\r\nX-TAVO-MEMO:20260503_090000.pwi\r\n"
                    "ATTACH;X-TAVO-PICTURE=1;FMTTYPE=image/svg+xml;ENCODING=BASE64;VALUE=BINARY:\r\n PHN2Zy8+\r\n"
                    "X-TAVO-INK:AQID\r\nEND:VJOURNAL\r\n");
}

TEST(MemoEntry, ANameThatIsTakenByAnotherMemoIsGivenANumber) {
    MemoryMemos folder;
    folder.Files = {{"20260503_1.pwi", {1}}, {"20260503_1 2.pwi", {2}}};
    ImportResult result = ImportResult::Refused;
    EXPECT_EQ(KeepMemo(folder, {"20260503_1.pwi", {2}}, result), ErrorCode::Success);
    EXPECT_EQ(result, ImportResult::Unchanged);
    EXPECT_EQ(KeepMemo(folder, {"20260503_1.pwi", {3}}, result), ErrorCode::Success);
    EXPECT_EQ(result, ImportResult::New);
    EXPECT_THAT(folder.List(), ElementsAre("20260503_1 2.pwi", "20260503_1 3.pwi", "20260503_1.pwi"));
    EXPECT_EQ(folder.Files["20260503_1 3.pwi"], std::vector<std::uint8_t>{3});
    folder.Problem = ErrorCode::DiskFull;
    EXPECT_EQ(KeepMemo(folder, {"20260504_1.pwi", {3}}, result), ErrorCode::DiskFull);
    EXPECT_EQ(result, ImportResult::Refused);
}

} // namespace
} // namespace tavo::exchange
