// Files that nobody wants back go to a folder of their own.
#include "store/declined_files.h"

#include "tests/support/files_probe.h"
#include "tests/support/test_device.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo {

namespace {

using testing::Optional;

using Bytes = std::vector<std::uint8_t>;

constexpr std::u16string_view kDraft = u"\\Recovery\\Edit.draft";

class DeclinedFiles : public testing::Test {
  protected:
    void Decline(const Bytes& bytes) {
        Device.GivenFile(kDraft, bytes);
        PutToDeclined(Files, kDraft);
    }

    test::TestDevice Device;
    test::FilesProbe Files{Device.Host.Files()};
};

TEST_F(DeclinedFiles, AFileMovesThereUnderItsOwnName) {
    Decline({1, 2, 3});
    EXPECT_THAT(Device.FileBytes(u"\\Recovery\\Declined\\Edit.draft"), Optional(Bytes{1, 2, 3}));
    EXPECT_EQ(Device.FileBytes(kDraft), std::nullopt);
}

TEST_F(DeclinedFiles, ANameThatIsTakenGetsANumberFromTwoOn) {
    for (const std::uint8_t byte : Bytes{7, 8, 9}) {
        Decline({byte});
    }
    EXPECT_THAT(Device.FileBytes(u"\\Recovery\\Declined\\Edit.draft"), Optional(Bytes{7}));
    EXPECT_THAT(Device.FileBytes(u"\\Recovery\\Declined\\2 Edit.draft"), Optional(Bytes{8}));
    EXPECT_THAT(Device.FileBytes(u"\\Recovery\\Declined\\3 Edit.draft"), Optional(Bytes{9}));
}

TEST_F(DeclinedFiles, WhereAThousandNamesAreTakenTheLastIsWrittenOver) {
    Files.Found = {u"whatever is looked for"};
    Decline({1});
    EXPECT_THAT(Device.FileBytes(u"\\Recovery\\Declined\\1000 Edit.draft"), Optional(Bytes{1}));
    EXPECT_EQ(Device.FileBytes(kDraft), std::nullopt);
}

TEST_F(DeclinedFiles, AFileThatCannotBeReadStays) {
    Files.ReadResult = ErrorCode::AccessDenied;
    Decline({1});
    EXPECT_THAT(Device.FileBytes(kDraft), Optional(Bytes{1}));
    EXPECT_EQ(Device.FileBytes(u"\\Recovery\\Declined\\Edit.draft"), std::nullopt);
}

TEST_F(DeclinedFiles, AFileThatCannotBeWrittenThereStays) {
    Files.WriteResult = ErrorCode::DiskFull;
    Decline({1});
    EXPECT_THAT(Device.FileBytes(kDraft), Optional(Bytes{1}));
}

} // namespace

} // namespace tavo
