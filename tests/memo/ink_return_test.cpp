// Where ink goes that was not saved, and what is said of it.
#include "memo/ink_return.h"

#include "tests/memo/memo_desk.h"

#include <gtest/gtest.h>

namespace tavo::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::u16string_view kMemo = u"\\My Documents\\TavoCalendar\\20040915_101500.pwi";
const Bytes kOld{1, 2, 3};
const Bytes kInk{4, 5};
const Bytes kOther{6};

class InkOnItsWayHome : public testing::Test {
  protected:
    void GivenMemo(const Bytes& bytes) {
        Desk.State.Memo.Fill(Bytes(bytes));
        ASSERT_TRUE(Desk.Files.WriteMemo(kMemo));
        Desk.Host.OwnFiles.LastWritten.clear();
    }

    Oid GivenItem(const Bytes& note) {
        return Desk.GivenAppointment(u"Dentist", At(2004, 9, 20, 9), At(2004, 9, 20, 10),
                                     [&](IAppointment& item) { EXPECT_EQ(item.put_BodyInk(note), Status::Ok); });
    }

    static InkHome OfMemo(const Bytes& before) {
        InkHome home;
        home.Memo = kMemo;
        home.Before = FingerprintOf(before);
        return home;
    }

    static InkHome OfItem(Oid item, const Bytes& before) {
        InkHome home;
        home.Item = item;
        home.Day = At(2004, 9, 20);
        home.Before = FingerprintOf(before);
        return home;
    }

    InkReturn Return(const InkHome& home) { return ReturnInk(Desk.State, home, At(2004, 9, 15, 8, 30), kInk); }

    bool IsAtHome(const InkHome& home) { return IsHome(Desk.State, home, kInk); }

    Bytes Read(const std::u16string& path) { return Desk.Files.ReadMemo(path) ? Desk.Buffer() : Bytes(); }

    MemoDesk Desk;
};

TEST_F(InkOnItsWayHome, GoesIntoItsMemoThatHoldsWhatItHeld) {
    GivenMemo(kOld);
    EXPECT_FALSE(IsAtHome(OfMemo(kOld)));
    EXPECT_EQ(Return(OfMemo(kOld)), InkReturn::Home);
    EXPECT_EQ(Read(std::u16string(kMemo)), kInk);
    EXPECT_TRUE(IsAtHome(OfMemo(kOld)));
}

TEST_F(InkOnItsWayHome, IsNotWrittenWhereItsMemoHoldsItAlready) {
    GivenMemo(kInk);
    EXPECT_EQ(Return(OfMemo(kOld)), InkReturn::Home);
    EXPECT_EQ(Desk.Host.OwnFiles.LastWritten, u"");
}

TEST_F(InkOnItsWayHome, LiesBesideAMemoThatHoldsSomethingElse) {
    GivenMemo(kOther);
    EXPECT_EQ(Return(OfMemo(kOld)), InkReturn::AsMemo);
    EXPECT_EQ(Read(std::u16string(kMemo)), kOther);
    EXPECT_EQ(Read(u"\\My Documents\\TavoCalendar\\20040915_101500 2.pwi"), kInk);
}

TEST_F(InkOnItsWayHome, TakesThePlaceOfAMemoThatIsGone) {
    EXPECT_FALSE(IsAtHome(OfMemo(kOld)));
    EXPECT_EQ(Return(OfMemo(kOld)), InkReturn::AsMemo);
    EXPECT_EQ(Read(std::u16string(kMemo)), kInk);
}

TEST_F(InkOnItsWayHome, GoesNowhereOnAFullDisk) {
    GivenMemo(kOld);
    Desk.Host.OwnFiles.WriteResult = ErrorCode::DiskFull;
    EXPECT_EQ(Return(OfMemo(kOld)), InkReturn::Failed);
    EXPECT_EQ(Return(InkHome()), InkReturn::Failed);
    EXPECT_EQ(Read(std::u16string(kMemo)), kOld);
}

TEST_F(InkOnItsWayHome, GoesIntoItsItemThatHoldsWhatItHeld) {
    const InkHome home = OfItem(GivenItem(kOld), kOld);
    EXPECT_FALSE(IsAtHome(home));
    EXPECT_EQ(Return(home), InkReturn::Home);
    EXPECT_TRUE(IsAtHome(home));
    EXPECT_FALSE(Desk.Files.HasMemo(2004, 9, 20));
}

TEST_F(InkOnItsWayHome, BecomesAMemoOfTheDayOfAnItemThatHoldsSomethingElse) {
    const InkHome home = OfItem(GivenItem(kOther), kOld);
    EXPECT_EQ(Return(home), InkReturn::AsMemo);
    EXPECT_FALSE(IsAtHome(home));
    EXPECT_EQ(Read(u"\\My Documents\\TavoCalendar\\20040920_083000.pwi"), kInk);
}

TEST_F(InkOnItsWayHome, BecomesAMemoOfTheDayOfAnItemThatIsGone) {
    const InkHome home = OfItem(4711, {});
    EXPECT_FALSE(IsAtHome(home));
    EXPECT_EQ(Return(home), InkReturn::AsMemo);
    EXPECT_TRUE(Desk.Files.HasMemo(2004, 9, 20));
}

TEST_F(InkOnItsWayHome, WithoutAHomeBecomesAMemoOfTheDayOnWhichItWasBegun) {
    EXPECT_FALSE(IsAtHome(InkHome()));
    EXPECT_FALSE(IsHome(Desk.State, InkHome(), {})); // no item holds nothing
    EXPECT_EQ(Return(InkHome()), InkReturn::AsMemo);
    EXPECT_EQ(Read(u"\\My Documents\\TavoCalendar\\20040915_083000.pwi"), kInk);
}

TEST_F(InkOnItsWayHome, IsOfTheDayOnWhichItWasBegunWhereItsOwnIsNone) {
    InkHome home;
    home.Day = At(2004, 9, 20);
    const SYSTEMTIME begun = At(2004, 9, 15, 8, 30);
    EXPECT_EQ(MomentOfInk(Desk.State, home, begun), At(2004, 9, 20, 8, 30));
    home.Day = At(2005, 2, 29);
    EXPECT_EQ(MomentOfInk(Desk.State, home, begun), begun);
    home.Day = SYSTEMTIME();
    EXPECT_EQ(MomentOfInk(Desk.State, home, begun), begun);
}

} // namespace
} // namespace tavo::test
