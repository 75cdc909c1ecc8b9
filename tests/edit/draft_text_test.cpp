// The text of a draft: what is written is read again, and nothing else is taken for one.
#include "edit/appointment_draft.h"
#include "edit/edit_mode.h"
#include "store/appointment_data.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace tavo {
namespace {

AppointmentDraft MakeDraft() {
    AppointmentDraft draft;
    draft.Mode = kModeAppointment;
    draft.Item = 33;
    draft.Opened.Subject = u"Old";
    draft.Opened.Start = {2026, 11, 0, 21, 9, 30, 0, 0};
    draft.Opened.End = {2026, 11, 0, 21, 10, 0, 0, 0};
    draft.Now = {u"New = \\ two\nlines \U0001F600",
                 {2026, 12, 0, 1, 8, 15, 30, 0},
                 {2027, 1, 0, 2, 23, 59, 59, 0},
                 true,
                 kChoiceCustom,
                 DraftRule{{kRecursMonthNth, 3, 62, 31, 5, 12}, RuleEnd::OnDate, 46400, 7},
                 true,
                 u"0090",
                 2,
                 u"bell.wav"};
    draft.Ink = u"20261121_093000.ink";
    return draft;
}

std::vector<std::uint8_t> BytesOf(std::u16string_view text) {
    std::vector<std::uint8_t> bytes;
    for (const char16_t unit : text) {
        bytes.push_back(static_cast<std::uint8_t>(unit & 0xFF));
        bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
    }
    return bytes;
}

// The text of MakeDraft with another one in the place of a part.
std::u16string TextWith(std::u16string_view part, std::u16string_view other) {
    std::u16string text;
    const std::vector<std::uint8_t> bytes = EncodeDraft(MakeDraft());
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        text += static_cast<char16_t>(bytes[i] | bytes[i + 1] << 8);
    }
    const std::size_t place = text.find(part);
    EXPECT_NE(place, std::u16string::npos);
    return text.replace(place, part.size(), other);
}

std::optional<AppointmentDraft> DraftWith(std::u16string_view part, std::u16string_view other) {
    return DecodeDraft(BytesOf(TextWith(part, other)));
}

TEST(AppointmentDrafts, AreReadAsTheyWereWritten) {
    const AppointmentDraft draft = MakeDraft();
    EXPECT_EQ(DecodeDraft(EncodeDraft(draft)), draft);
    AppointmentDraft bare;
    EXPECT_EQ(DecodeDraft(EncodeDraft(bare)), bare);
    EXPECT_TRUE(draft.IsChanged());
    EXPECT_FALSE(bare.IsChanged());
}

TEST(AppointmentDrafts, OfAnEarlierProgramAreReadToo) {
    AppointmentDraft draft = MakeDraft();
    draft.Ink.clear();
    EXPECT_EQ(DraftWith(u"ink=20261121_093000.ink\n", u""), draft);
}

TEST(AppointmentDrafts, AnythingElseIsNone) {
    const std::vector<std::uint8_t> whole = EncodeDraft(MakeDraft());
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_EQ(DecodeDraft(std::span(whole).first(size)), std::nullopt) << size;
    }
    AppointmentDraft draft = MakeDraft();
    for (const std::int32_t mode : {-1, 8, 1000000}) {
        draft.Mode = mode;
        EXPECT_EQ(DecodeDraft(EncodeDraft(draft)), std::nullopt);
    }
    const std::vector<std::uint8_t> noise(1000, 0x3D);
    EXPECT_EQ(DecodeDraft(noise), std::nullopt);
}

TEST(AppointmentDrafts, KeepEveryEndOfARule) {
    AppointmentDraft draft = MakeDraft();
    for (const RuleEnd end : {RuleEnd::Never, RuleEnd::OnDate, RuleEnd::AfterCount}) {
        draft.Now.Rule->End = end;
        EXPECT_EQ(DecodeDraft(EncodeDraft(draft)), draft) << static_cast<int>(end);
    }
}

TEST(AppointmentDrafts, KeepTheSignsThatEndASubject) {
    AppointmentDraft draft = MakeDraft();
    for (const std::u16string_view subject : {u"Two\n", u"Two\\", u"\\\n", u"\n\\", u"\\n", u"="}) {
        draft.Now.Subject = subject;
        EXPECT_EQ(DecodeDraft(EncodeDraft(draft)), draft);
    }
}

TEST(AppointmentDrafts, TakeALoneBackslashAtTheEndAsItIs) {
    AppointmentDraft draft = MakeDraft();
    draft.Now.Sound = u"bell\\";
    EXPECT_EQ(DraftWith(u"now.sound=bell.wav", u"now.sound=bell\\"), draft);
}

TEST(AppointmentDrafts, WithoutOneOfTheirLinesAreNone) {
    const std::u16string whole = TextWith(u"", u"");
    std::size_t lines = 0;
    for (std::size_t begin = 0; begin < whole.size(); ++lines) {
        const std::size_t next = whole.find(u'\n', begin) + 1;
        const bool isNewer = whole.compare(begin, 4, u"ink=") == 0;
        EXPECT_EQ(DecodeDraft(BytesOf(whole.substr(0, begin) + whole.substr(next))).has_value(), isNewer) << lines;
        begin = next;
    }
    EXPECT_EQ(lines, 34U);
}

TEST(AppointmentDrafts, WithAValueThatCannotBeMeantAreNone) {
    const std::pair<std::u16string_view, std::u16string_view> values[] = {
        {u"Tavo Calendar draft 1", u"Tavo Calendar draft 2"},
        {u"now.rule.ends=1", u"now.rule.ends=3"},
        {u"now.rule.ends=1", u"now.rule.ends=-1"},
        {u"now.rule.ends=1", u"now.rule.ends="},
        {u"2026-12-01 08:15:30", u""},
        {u"2026-12-01 08:15:30", u"2026-12-01"},
        {u"2026-12-01 08:15:30", u"2026-12-01 08:15:"},
        {u"2026-12-01 08:15:30", u"2026-12-01 08:15:3x"},
        {u"2026-12-01 08:15:30", u"x026-12-01 08:15:30"}};
    for (const auto& [value, other] : values) {
        EXPECT_EQ(DraftWith(value, other), std::nullopt) << std::string(other.begin(), other.end());
    }
}

TEST(AppointmentDrafts, ReadATimeAsFarAsItsSeconds) {
    EXPECT_EQ(DraftWith(u"2026-12-01 08:15:30", u"2026-12-01 08:15:30.500"), MakeDraft());
}

TEST(AppointmentDrafts, AreReadWithHalfAUnitBehindThem) {
    std::vector<std::uint8_t> bytes = EncodeDraft(MakeDraft());
    const std::size_t size = bytes.size();
    bytes.push_back(u'\n');
    bytes.push_back(0);
    EXPECT_EQ(DecodeDraft(std::span(bytes).first(size + 1)), MakeDraft());
    EXPECT_EQ(DecodeDraft(bytes), std::nullopt); // a line behind the last one
}

} // namespace
} // namespace tavo
