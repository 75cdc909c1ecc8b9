// The files in which drafts lie: their names, when they are written, and what is found of them.
#include "edit/draft_file.h"
#include "tests/support/host_probe.h"
#include "tests/support/test_device.h"

#include <gtest/gtest.h>

namespace tavo::test {
namespace {

headless::DeviceOptions FivePastTen() {
    headless::DeviceOptions options;
    options.Now = At(2026, 11, 21, 10, 5);
    options.Now.Second = 7;
    return options;
}

class DraftFiles : public testing::Test {
  protected:
    static AppointmentDraft DraftOf(std::u16string subject) {
        AppointmentDraft draft;
        draft.Now.Subject = std::move(subject);
        return draft;
    }

    static std::u16string PathOf(std::u16string_view name) { return std::u16string(u"\\Recovery\\").append(name); }

    bool HasFile(std::u16string_view name) { return Device.FileBytes(PathOf(name)).has_value(); }

    // As another program would.
    void DeleteFile(std::u16string_view name) {
        ASSERT_EQ(Device.Host.Files().DeleteFileW(PathOf(name)), ErrorCode::Success);
    }

    TestDevice Device{FivePastTen()};
    HostProbe Probe{Device.Host};
    DraftFile File{Probe};
};

TEST_F(DraftFiles, HaveTheirMomentAndANumberForAName) {
    File.Write(DraftOf(u"Tea"));
    EXPECT_TRUE(HasFile(u"20261121_100507_1.draft"));
    DraftFile other(Probe);
    other.Write(DraftOf(u"Cake"));
    const std::vector<FoundDraft> found = FindDrafts(Probe);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].Path, PathOf(u"20261121_100507_1.draft"));
    EXPECT_EQ(found[0].Draft.Now.Subject, u"Tea");
    EXPECT_EQ(found[1].Path, PathOf(u"20261121_100507_2.draft"));
    EXPECT_EQ(found[1].Draft.Now.Subject, u"Cake");
}

TEST_F(DraftFiles, OfOneSecondAreAHundredAtMost) {
    for (int number = 1; number <= 100; ++number) {
        const std::string name = "20261121_100507_" + std::to_string(number) + ".draft";
        Device.GivenFile(PathOf(std::u16string(name.begin(), name.end())), {1});
    }
    File.Write(DraftOf(u"Tea"));
    EXPECT_EQ(Device.FileBytes(PathOf(u"20261121_100507_99.draft")), (std::vector<std::uint8_t>{1}));
    EXPECT_EQ(Device.FileBytes(PathOf(u"20261121_100507_100.draft")), EncodeDraft(DraftOf(u"Tea")));
    EXPECT_FALSE(HasFile(u"20261121_100507_101.draft"));
}

TEST_F(DraftFiles, AreWrittenOnlyWhenSomethingChanged) {
    File.Write(DraftOf(u"Tea"));
    DeleteFile(u"20261121_100507_1.draft");
    File.Write(DraftOf(u"Tea"));
    EXPECT_FALSE(HasFile(u"20261121_100507_1.draft"));
    File.Write(DraftOf(u"Teas"));
    EXPECT_TRUE(HasFile(u"20261121_100507_1.draft"));
}

TEST_F(DraftFiles, ThatCouldNotBeWrittenAreTriedAgain) {
    Probe.OwnFiles.WriteResult = ErrorCode::DiskFull;
    File.Write(DraftOf(u"Tea"));
    EXPECT_FALSE(HasFile(u"20261121_100507_1.draft"));
    Probe.OwnFiles.WriteResult = ErrorCode::Success;
    File.Write(DraftOf(u"Tea"));
    EXPECT_TRUE(HasFile(u"20261121_100507_1.draft"));
}

TEST_F(DraftFiles, ThatWereRemovedAreMadeAnewUnderTheNameOfTheirMoment) {
    File.Write(DraftOf(u"Tea"));
    File.Remove();
    EXPECT_TRUE(FindDrafts(Probe).empty());
    SYSTEMTIME later = FivePastTen().Now;
    later.Second = 9;
    ASSERT_TRUE(Device.Host.Time.Clock.SetLocalTime(later));
    File.Write(DraftOf(u"Tea"));
    EXPECT_FALSE(HasFile(u"20261121_100507_1.draft"));
    EXPECT_TRUE(HasFile(u"20261121_100509_1.draft"));
}

TEST_F(DraftFiles, AreFoundOldestFirst) {
    const std::u16string names[] = {u"20261121_100507_2.draft", u"20261120_235959_1.draft", u"20261121_100507_1.draft"};
    for (const std::u16string& name : names) {
        Device.GivenFile(PathOf(name), EncodeDraft(DraftOf(name)));
    }
    Probe.OwnFiles.Found.assign(std::begin(names), std::end(names));
    std::vector<std::u16string> subjects;
    for (const FoundDraft& found : FindDrafts(Probe)) {
        subjects.push_back(found.Draft.Now.Subject);
    }
    EXPECT_EQ(subjects, (std::vector<std::u16string>{names[1], names[2], names[0]}));
}

TEST_F(DraftFiles, ThatCannotBeReadNowStayForLater) {
    File.Write(DraftOf(u"Tea"));
    Probe.OwnFiles.ReadResult = ErrorCode::AccessDenied;
    EXPECT_TRUE(FindDrafts(Probe).empty());
    Probe.OwnFiles.ReadResult = ErrorCode::Success;
    EXPECT_EQ(FindDrafts(Probe).size(), 1U);
}

} // namespace
} // namespace tavo::test
