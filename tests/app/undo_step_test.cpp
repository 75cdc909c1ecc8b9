// Taking the last step back in the running program: what it says, and what the pages are asked.
#include "memo/undo_notes.h"
#include "res/resource_ids.h"
#include "tests/support/folder_probe.h"
#include "tests/support/running_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class UndoStep : public testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(Program.Start()); }

    IPOutlookApp& Store() { return *Program.State().Store.OutlookApp; }

    // An item was deleted, and with it this many memos of which nothing is left.
    void GivenDeletion(int lostMemos = 0) {
        const Oid oid = Program.GivenAppointment(u"Dentist", At(2004, 11, 3, 9), At(2004, 11, 3, 10));
        ASSERT_EQ(Store().Begin(u"deletion"), Status::Ok);
        ComPtr<IAppointment> item;
        ASSERT_EQ(Store().GetItemFromOid(oid, item), Status::Ok);
        ASSERT_EQ(item->Delete(), Status::Ok);
        for (int count = 0; count < lostMemos; ++count) {
            ASSERT_EQ(Store().AddNote(EncodeNote(MemoPutAway{u"\\My Documents\\TavoCalendar\\20041103_080000.pwi",
                                                             u"\\My Documents\\TavoCalendar\\Deleted\\lost.pwi"})),
                      Status::Ok);
        }
        ASSERT_EQ(Store().End(), Status::Ok);
    }

    // Whether the pages are asked to show what changed.
    bool UndoAndLook() {
        Program.Device.AdvanceClock(2000); // what came before is shown
        EXPECT_TRUE(Program.Settle());
        const AskedRestrictions asked(Program.State().Store.CalendarFolder);
        Program.Device.Key('Z', kModifierControl);
        if (Answer != 0) {
            Program.Device.AnswerBox(Answer);
        }
        Program.Device.AdvanceClock(600);
        EXPECT_TRUE(Program.Settle());
        return !asked.Texts.empty();
    }

    std::vector<std::u16string> Boxes() {
        std::vector<std::u16string> boxes;
        for (const MessageBoxDescription& box : Program.Device.Host().Seen.Boxes) {
            boxes.push_back(box.Caption + u"|" + box.Text);
        }
        return boxes;
    }

    int Count() { return Program.State().Store.CountAppointments(); }

    RunningProgram Program;
    int Answer = 0; // to the message that comes of it; 0: none comes
};

TEST_F(UndoStep, BringsTheItemBackAndThePagesShowIt) {
    GivenDeletion();
    EXPECT_TRUE(UndoAndLook());
    EXPECT_EQ(Count(), 1);
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_FALSE(Program.State().Busy);
}

TEST_F(UndoStep, WithoutAStepDoesNothing) {
    EXPECT_FALSE(UndoAndLook());
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(UndoStep, WaitsForNoWorkThatIsUnderWay) {
    GivenDeletion();
    Program.State().Busy = true;
    EXPECT_FALSE(UndoAndLook());
    EXPECT_EQ(Count(), 0);
}

TEST_F(UndoStep, SaysWhenOneMemoCouldNotBeBroughtBack) {
    GivenDeletion(1);
    Answer = IDOK;
    EXPECT_TRUE(UndoAndLook());
    EXPECT_EQ(Count(), 1);
    EXPECT_THAT(Boxes(), ElementsAre(u"Tavo Calendar|Not all memos could be brought back."));
}

TEST_F(UndoStep, SaysWhenTheStoreRefusesIt) {
    GivenDeletion();
    ASSERT_EQ(Store().Begin(u"Under way"), Status::Ok); // groups do not nest
    Answer = IDOK;
    UndoAndLook();
    ASSERT_EQ(Store().Abandon(), Status::Ok);
    EXPECT_EQ(Count(), 0);
    EXPECT_THAT(Boxes(), ElementsAre(u"Tavo Calendar|The last step could not be undone."));
}

TEST_F(UndoStep, FilesThatNobodyGaveAreNotImported) {
    const WindowHandle frame = Program.Device.Host().Windows().FindWindowW(u"WCE_TavoCalendar", u"Tavo Calendar");
    Program.Device.Do([&] { Program.Device.Host().Queue().PostMessageW({frame, WM_IMPORTFILES, 0, 0, 0, {}}); });
    EXPECT_TRUE(Program.Settle());
    EXPECT_THAT(Boxes(), IsEmpty());
}

} // namespace
} // namespace tavo::test
