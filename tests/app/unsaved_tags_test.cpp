// A data file that cannot be written at the end, and what becomes of the tags.
#include "edit/appointment_draft.h"
#include "store/page_number.h"
#include "tests/schedule/schedule_desk.h"
#include "tests/support/folder_probe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <memory>

namespace tavo::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kDataFile = "TavoCalendar.dat";
constexpr const char* kUnsaved = "../../Recovery/TavoCalendar.dat.unsaved"; // from the data folder
constexpr std::u16string_view kCannotOpen = u"|Cannot open TavoCalendar.dat";
constexpr std::u16string_view kQuestion = u"Tavo Calendar|The kind of 2 item(s) could not be saved last time. Keep it?";

class UnsavedTags : public testing::Test {
  protected:
    UnsavedTags() { EXPECT_TRUE(Desk->Start()); }

    std::unique_ptr<ScheduleDesk> MakeDesk() {
        headless::DeviceOptions options = WithStore();
        options.Root = Root.Path();
        return std::make_unique<ScheduleDesk>(At(2004, 11, 3, 17, 10), options);
    }

    // From now on nothing can take the data file's place.
    void Obstruct() {
        fs::remove(Desk->DataFolder() / kDataFile);
        fs::create_directories(Desk->DataFolder() / kDataFile / "in the way");
    }

    void ClearTheWay() { fs::remove_all(Desk->DataFolder() / kDataFile); }

    // The last step of the script at which the program runs.
    void ExpectEnd() { EXPECT_FALSE(Desk->Settle()); }

    // Whether the pages are asked to show what changed.
    bool LooksAgain() {
        const AskedRestrictions asked(Desk->State().Store.CalendarFolder);
        Desk->Device.AdvanceClock(600);
        EXPECT_TRUE(Desk->Settle());
        return !asked.Texts.empty();
    }

    // The next session on the same device, with these answers to what it asks.
    void Restart(std::initializer_list<int> answers = {}) {
        Desk.reset();
        Desk = MakeDesk();
        for (const int answer : answers) {
            Desk->Device.AnswerBox(answer);
        }
        ASSERT_TRUE(Desk->Start());
    }

    headless::DeviceRootFolder Root{{}};
    std::unique_ptr<ScheduleDesk> Desk = MakeDesk();
};

TEST_F(UnsavedTags, QuittingSaysItOnceAndTheNextStartOffersThem) {
    const std::vector<Oid> alarms = Desk->GivenAlarms(2);
    Obstruct();
    Desk->Device.Quit();
    Desk->Device.AnswerBox(IDOK);
    ExpectEnd();
    EXPECT_THAT(Desk->Boxes(), ElementsAre(kCannotOpen));
    ClearTheWay();
    Restart({IDYES});
    EXPECT_THAT(Desk->Boxes(), ElementsAre(kQuestion));
    EXPECT_EQ(Desk->ListOf(ItemKind::Alarm), alarms);
    EXPECT_EQ(Desk->ReadFile(kDataFile)->size(), 15U + 8U);
    EXPECT_FALSE(Desk->ReadFile(kUnsaved));
    EXPECT_TRUE(LooksAgain());
    Restart();
    EXPECT_FALSE(LooksAgain());
    EXPECT_THAT(Desk->Boxes(), IsEmpty()); // nothing is asked again
    EXPECT_EQ(Desk->ListOf(ItemKind::Alarm), alarms);
}

TEST_F(UnsavedTags, TheSessionsEndSaysNothingAndKeepsThem) {
    const std::vector<Oid> alarms = Desk->GivenAlarms(2);
    Obstruct();
    Desk->Device.EndSession();
    ExpectEnd();
    EXPECT_THAT(Desk->Boxes(), IsEmpty());
    ClearTheWay();
    Restart({IDYES});
    EXPECT_EQ(Desk->ListOf(ItemKind::Alarm), alarms);
}

TEST_F(UnsavedTags, QuittingASecondTimeEndsAtOnce) {
    Desk->GivenAlarms(2);
    Obstruct();
    Desk->Device.Quit();
    Desk->Device.Do([this] { EXPECT_EQ(Desk->Boxes().size(), 1U); });
    Desk->Device.Quit(); // the message is still there
    EXPECT_EQ(Desk->App->Run(), 0);
    EXPECT_THAT(Desk->Boxes(), ElementsAre(kCannotOpen));
}

TEST_F(UnsavedTags, TheSessionsEndDoesNotWaitForTheMessage) {
    Desk->GivenAlarms(2);
    Obstruct();
    Desk->Device.Quit();
    Desk->Device.EndSession();
    ExpectEnd();
    EXPECT_THAT(Desk->Boxes(), ElementsAre(kCannotOpen));
}

TEST_F(UnsavedTags, WhatIsDeclinedIsNotOfferedAgain) {
    Desk->GivenAlarms(2);
    Obstruct();
    Desk->Device.EndSession();
    ExpectEnd();
    ClearTheWay();
    const std::optional<std::string> kept = Desk->ReadFile(kUnsaved);
    ASSERT_TRUE(kept);
    Restart({IDNO});
    EXPECT_FALSE(LooksAgain());
    EXPECT_THAT(Desk->ListOf(ItemKind::Alarm), IsEmpty());
    EXPECT_THAT(Desk->Boxes(), ElementsAre(kQuestion));
    EXPECT_EQ(Desk->ReadFile("../../Recovery/Declined/TavoCalendar.dat.unsaved"), kept);
    EXPECT_FALSE(Desk->ReadFile(kUnsaved));
    Restart();
    EXPECT_THAT(Desk->Boxes(), IsEmpty());
}

TEST_F(UnsavedTags, WhatNobodyAnsweredIsOfferedAgain) {
    const std::vector<Oid> alarms = Desk->GivenAlarms(2);
    Obstruct();
    Desk->Device.EndSession();
    ExpectEnd();
    ClearTheWay();
    Desk.reset();
    Desk = MakeDesk();
    Desk->Device.EndSession(); // while the question is there
    EXPECT_FALSE(Desk->Start());
    EXPECT_THAT(Desk->Boxes(), ElementsAre(kQuestion));
    Restart({IDYES});
    EXPECT_THAT(Desk->Boxes(), ElementsAre(kQuestion));
    EXPECT_EQ(Desk->ListOf(ItemKind::Alarm), alarms);
}

TEST_F(UnsavedTags, WhatCannotBePutToTheDeclinedIsAskedAboutAgain) {
    Desk->GivenAlarms(2);
    Obstruct();
    Desk->Device.EndSession();
    ExpectEnd();
    ClearTheWay();
    Desk->WriteFile("../../Recovery/Declined", "in the way");
    Restart({IDNO});
    EXPECT_TRUE(Desk->ReadFile(kUnsaved));
    Restart({IDNO});
    EXPECT_THAT(Desk->Boxes(), ElementsAre(kQuestion));
}

TEST_F(UnsavedTags, ASessionThatEndsAtTheQuestionIsAskedNothingMore) {
    Desk->GivenAlarms(2);
    Obstruct();
    Desk->Device.EndSession();
    ExpectEnd();
    ClearTheWay();
    const std::vector<std::uint8_t> draft = EncodeDraft(AppointmentDraft());
    fs::create_directories(fs::path(Root.Path()) / "Recovery");
    Desk->WriteFile("../../Recovery/x.draft", std::string(draft.begin(), draft.end()));
    Desk.reset();
    Desk = MakeDesk();
    Desk->Device.EndSession(); // while the question is there
    EXPECT_FALSE(Desk->Start());
    EXPECT_THAT(Desk->Boxes(), ElementsAre(kQuestion));
}

TEST_F(UnsavedTags, ATagThatSomebodyElseSetMeanwhileIsNotSetTwice) {
    const std::vector<Oid> alarms = Desk->GivenAlarms(2);
    Obstruct();
    Desk->Device.EndSession();
    ExpectEnd();
    ClearTheWay();
    Desk.reset();
    Desk = MakeDesk();
    Desk->Device.Do([&] { Desk->State().Categories.AlarmList.Append(alarms[0]); });
    Desk->Device.AnswerBox(IDYES);
    ASSERT_TRUE(Desk->Start());
    EXPECT_EQ(Desk->ListOf(ItemKind::Alarm), alarms);
}

TEST_F(UnsavedTags, OfItemsThatAreGoneNothingIsAsked) {
    for (const Oid oid : Desk->GivenAlarms(2)) {
        Desk->Delete(oid);
    }
    Obstruct();
    Desk->Device.EndSession();
    ExpectEnd();
    ClearTheWay();
    Restart();
    EXPECT_THAT(Desk->Boxes(), IsEmpty());
    EXPECT_FALSE(Desk->ReadFile(kUnsaved));
}

TEST_F(UnsavedTags, WhereTheFolderOfRecoveryTakesNothingTheyLieAboveTheDataFolder) {
    const std::vector<Oid> alarms = Desk->GivenAlarms(2);
    Obstruct();
    fs::create_directories(fs::path(Root.Path()) / "Recovery" / "TavoCalendar.dat.unsaved" / "in the way");
    Desk->Device.EndSession();
    ExpectEnd();
    EXPECT_TRUE(fs::is_regular_file(Desk->DataFolder().parent_path() / "TavoCalendar.dat.unsaved"));
    ClearTheWay();
    Restart({IDYES});
    EXPECT_EQ(Desk->ListOf(ItemKind::Alarm), alarms);
}

TEST_F(UnsavedTags, APageThatClosesSaysItAndASaveThatWorksLaterLeavesNothingToOffer) {
    const std::vector<Oid> alarms = Desk->GivenAlarms(2);
    Obstruct();
    Desk->Device.PressClose();
    Desk->Device.AnswerBox(IDOK);
    ASSERT_TRUE(Desk->Settle());
    EXPECT_THAT(Desk->Boxes(), ElementsAre(kCannotOpen));
    EXPECT_TRUE(Desk->ReadFile(kUnsaved));
    ClearTheWay();
    Desk->Device.Restore();
    Desk->Device.PressClose();
    ASSERT_TRUE(Desk->Settle());
    EXPECT_FALSE(Desk->ReadFile(kUnsaved));
    Restart();
    EXPECT_THAT(Desk->Boxes(), IsEmpty());
    EXPECT_EQ(Desk->ListOf(ItemKind::Alarm), alarms);
}

// The file lists alarms that are not known, so nothing may take its place.
TEST_F(UnsavedTags, AFileThatCouldNotBeReadKeepsItsTagsAndThoseMadeMeanwhileAreAdded) {
    const std::vector<Oid> alarms = Desk->GivenAlarms(1);
    Desk->Device.Quit();
    ExpectEnd();
    const std::optional<std::string> file = Desk->ReadFile(kDataFile);
    ASSERT_TRUE(file);
    Obstruct();
    Restart({IDOK});
    const Oid more = Desk->GivenAppointment(u"More", At(2004, 11, 9, 9), At(2004, 11, 9, 9));
    Desk->Tag(ItemKind::Alarm, more);
    Desk->Device.EndSession();
    ExpectEnd();
    ClearTheWay();
    Desk->WriteFile(kDataFile, *file);
    Restart({IDYES});
    EXPECT_THAT(Desk->ListOf(ItemKind::Alarm), ElementsAre(alarms[0], more));
    EXPECT_EQ(Desk->ReadFile(kDataFile)->size(), 15U + 8U);
}

} // namespace
} // namespace tavo::test
