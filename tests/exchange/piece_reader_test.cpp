// A calendar file is cut into its entries, and what is wrong with it is named with its line.
#include "host/exchange/piece_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace tavo::exchange {
namespace {

using namespace std::string_view_literals;
using testing::ElementsAre;
using testing::HasSubstr;

std::vector<std::string> GetLines(const CalendarPiece& piece) {
    std::vector<std::string> lines;
    for (std::size_t index = 0; index < piece.Lines.size(); ++index) {
        lines.emplace_back(piece.GetLine(index));
    }
    return lines;
}

// Reads to the end; the fault that ended the reading, or the first one that was told, with line 0 and no reason when
// there was none.
FileFault ReadToFault(std::string_view text) {
    MemorySource source(text);
    FaultTeller faults(nullptr, Manner::Strict);
    PieceReader reader(source, faults, Extent::UsedLines);
    CalendarPiece piece;
    while (reader.Read(piece) == ReadResult::Piece) {
    }
    return reader.GetFault().Reason.empty() ? faults.GetBreaking().value_or(FileFault()) : reader.GetFault();
}

// Whoever is told of faults where there are none.
FaultTeller& Nobody() {
    static FaultTeller nobody(nullptr, Manner::Lenient);
    return nobody;
}

TEST(PieceReader, GivesTheNeededLinesOfEachEventAndNoOthers) {
    MemorySource source("BEGIN:VCALENDAR\r\nVERSION:2.0\r\nBEGIN:VEVENT\r\nUID:a\r\nX-COLOUR:red\r\n"
                        "SUMMARY:One\r\nEND:VEVENT\r\nBEGIN:VEVENT\r\nUID:b\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n");
    PieceReader reader(source, Nobody(), Extent::UsedLines);
    CalendarPiece piece;
    ASSERT_EQ(reader.Read(piece), ReadResult::Piece);
    EXPECT_EQ(piece.Kind, PieceKind::Event);
    EXPECT_EQ(piece.Line, 3);
    EXPECT_THAT(GetLines(piece), ElementsAre("BEGIN:VEVENT", "UID:a", "SUMMARY:One", "END:VEVENT"));
    ASSERT_EQ(reader.Read(piece), ReadResult::Piece);
    EXPECT_EQ(piece.Line, 8);
    EXPECT_THAT(GetLines(piece), ElementsAre("BEGIN:VEVENT", "UID:b", "END:VEVENT"));
    EXPECT_EQ(reader.Read(piece), ReadResult::End);
}

TEST(PieceReader, JoinsFoldedLinesEvenWithinACharacter) {
    MemorySource source("BEGIN:VCALENDAR\nBEGIN:VEVENT\nSUMMARY:Caf\xC3\n \xA9 at n\n\toon\nUID:a\nEND:VEVENT\n"
                        "END:VCALENDAR\n");
    PieceReader reader(source, Nobody(), Extent::UsedLines);
    CalendarPiece piece;
    ASSERT_EQ(reader.Read(piece), ReadResult::Piece);
    EXPECT_THAT(GetLines(piece), ElementsAre("BEGIN:VEVENT", "SUMMARY:Café at noon", "UID:a", "END:VEVENT"));
    EXPECT_EQ(piece.Lines[2].Number, 6); // physical lines are counted
}

TEST(PieceReader, ReadsLinesThatReachOverTheEdgesOfItsWindow) {
    // Longer than several windows, folded at every 70th character as programs do.
    std::string folded = "DESCRIPTION:";
    std::string expected = folded;
    for (int row = 0; row < 4000; ++row) {
        const std::string part = std::to_string(row) + std::string(60, static_cast<char>('a' + row % 26));
        expected += part;
        folded += part + "\r\n ";
    }
    const std::string text = "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\n" + folded + "\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n";
    MemorySource source(text);
    PieceReader reader(source, Nobody(), Extent::UsedLines);
    CalendarPiece piece;
    ASSERT_EQ(reader.Read(piece), ReadResult::Piece);
    EXPECT_EQ(std::string(piece.GetLine(1)), expected);
    EXPECT_EQ(reader.Read(piece), ReadResult::End);
}

TEST(PieceReader, ReturnsToAnEntryByItsPlace) {
    MemorySource source("BEGIN:VCALENDAR\nBEGIN:VEVENT\nUID:a\nEND:VEVENT\nBEGIN:VEVENT\nUID:b\nEND:VEVENT\n"
                        "END:VCALENDAR\n");
    PieceReader reader(source, Nobody(), Extent::UsedLines);
    CalendarPiece first;
    CalendarPiece second;
    ASSERT_EQ(reader.Read(first), ReadResult::Piece);
    ASSERT_EQ(reader.Read(second), ReadResult::Piece);
    CalendarPiece again;
    ASSERT_EQ(reader.ReadAt(first.Offset, first.Line, again), ReadResult::Piece);
    EXPECT_THAT(GetLines(again), ElementsAre("BEGIN:VEVENT", "UID:a", "END:VEVENT"));
    EXPECT_EQ(again.Line, 2);
}

TEST(PieceReader, AcceptsAByteOrderMarkAndBlankLines) {
    EXPECT_EQ(ReadToFault("\xEF\xBB\xBF"
                          "BEGIN:VCALENDAR\r\n\r\nEND:VCALENDAR\r\n\r\n")
                  .Reason,
              "");
}

TEST(PieceReader, KeepsAColonInsideAQuotedParameter) {
    std::string_view name;
    std::string_view value;
    ASSERT_TRUE(SplitLine("DTSTART;TZID=\"GMT+01:00\":20260314T090000", name, value));
    EXPECT_EQ(name, "DTSTART");
    EXPECT_EQ(value, "20260314T090000");
}

TEST(PieceReader, PassesOverAttachmentsOfAnySizeInLittleMemory) {
    const std::string text = "BEGIN:VCALENDAR\nBEGIN:VEVENT\nATTACH;ENCODING=BASE64:" + std::string(5'000'000, 'A') +
                             "\nUID:a\nEND:VEVENT\nEND:VCALENDAR\n";
    MemorySource source(text);
    PieceReader reader(source, Nobody(), Extent::UsedLines);
    CalendarPiece piece;
    ASSERT_EQ(reader.Read(piece), ReadResult::Piece);
    EXPECT_THAT(GetLines(piece), ElementsAre("BEGIN:VEVENT", "UID:a", "END:VEVENT"));
    EXPECT_LT(piece.Text.capacity(), 1000U);
    EXPECT_EQ(piece.Lines[1].Number, 4);
}

TEST(PieceReader, NamesTheLineOfAnEntryThatIsNeverClosed) {
    const FileFault fault = ReadToFault("BEGIN:VCALENDAR\nBEGIN:VEVENT\nUID:a\n");
    EXPECT_EQ(fault.Line, 3);
    EXPECT_EQ(fault.Reason, "the file ends inside the VEVENT that began in line 2");
}

TEST(PieceReader, NamesTheLineOfAnEndThatDoesNotMatch) {
    const FileFault fault = ReadToFault("BEGIN:VCALENDAR\nBEGIN:VEVENT\nBEGIN:VALARM\nEND:VEVENT\nEND:VCALENDAR\n");
    EXPECT_EQ(fault.Line, 4);
    EXPECT_EQ(fault.Reason, "END:VEVENT does not match BEGIN:VALARM in line 3");
}

TEST(PieceReader, NamesTheLineThatIsNoProperty) {
    const FileFault fault = ReadToFault("BEGIN:VCALENDAR\nBEGIN:VEVENT\nUID:a\nhello there\nEND:VEVENT\n");
    EXPECT_EQ(fault.Line, 4);
    EXPECT_EQ(fault.Reason, "this line is not of the form NAME:value");
}

TEST(PieceReader, RefusesWhatIsNoCalendar) {
    EXPECT_THAT(ReadToFault("").Reason, HasSubstr("not an iCalendar file"));
    EXPECT_THAT(ReadToFault("Dear all,\nthe meeting is at 9:30\n").Reason, HasSubstr("not an iCalendar file"));
    EXPECT_THAT(ReadToFault("BEGIN:VCARD\nEND:VCARD\n").Reason, HasSubstr("not an iCalendar file"));
    EXPECT_EQ(ReadToFault("BEGIN:VEVENT\nEND:VEVENT\n").Reason, "entries stand outside any calendar");
    EXPECT_EQ(ReadToFault("Dear all,\n").Line, 1);
}

TEST(PieceReader, RefusesTheOldFormat) {
    const FileFault fault = ReadToFault("BEGIN:VCALENDAR\nVERSION:1.0\nEND:VCALENDAR\n");
    EXPECT_EQ(fault.Line, 2);
    EXPECT_THAT(fault.Reason, HasSubstr("vCalendar 1.0"));
}

TEST(PieceReader, RefusesEndlessNesting) {
    std::string text = "BEGIN:VCALENDAR\nBEGIN:VEVENT\n";
    for (int depth = 0; depth < 100000; ++depth) {
        text += "BEGIN:X-ROOM\n";
    }
    EXPECT_EQ(ReadToFault(text).Reason, "entries are nested too deeply");
}

TEST(PieceReader, RefusesAZeroByteInATextThatIsKept) {
    const FileFault fault = ReadToFault("BEGIN:VCALENDAR\nBEGIN:VEVENT\nSUMMARY:a\0b\nEND:VEVENT\nEND:VCALENDAR\n"sv);
    EXPECT_EQ(fault.Line, 3);
    EXPECT_EQ(fault.Reason, "this line contains a zero byte");
}

TEST(PieceReader, SaysThatEntriesOfOtherKindsAreOther) {
    MemorySource source("BEGIN:VCALENDAR\nBEGIN:VTODO\nSUMMARY:a\nEND:VTODO\nEND:VCALENDAR\n");
    PieceReader reader(source, Nobody(), Extent::UsedLines);
    CalendarPiece piece;
    ASSERT_EQ(reader.Read(piece), ReadResult::Piece);
    EXPECT_EQ(piece.Kind, PieceKind::Other);
    EXPECT_EQ(piece.Name, "VTODO");
}

} // namespace
} // namespace tavo::exchange
