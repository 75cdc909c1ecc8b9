// The ink editor from each of the places that open it, in the running program.
#include "res/resource_ids.h"
#include "store/page_number.h"
#include "tests/schedule/schedule_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo::test {
namespace {

using testing::IsEmpty;
using Bytes = std::vector<std::uint8_t>;

class InkEditorOpeners : public testing::Test {
  protected:
    InkEditorOpeners() { EXPECT_TRUE(Desk.Start()); }

    ink::InkControl& Paper() { return Desk.Device.Host().Papers.Find(Desk.Device.See.Control(kInkPaper)); }

    // The editor is open by then.
    void DrawAndOk() {
        Desk.Device.Do([this] {
            ASSERT_EQ(Desk.Device.See.Caption(), u"Memo");
            Paper().PenDown(ink::PenEnd::Tip, {{20, 60}, ink::kNoPressure, 1000});
            Paper().PenMove({{120, 60}, ink::kNoPressure, 1050});
            Paper().PenUp({{120, 60}, ink::kNoPressure, 1060});
            Drawn = Paper().GetData();
        });
        Desk.Device.PressOk();
    }

    // The row before OK and Cancel.
    void OpenMemoRow() {
        for (int stop = 0; stop < 3; ++stop) {
            Desk.Device.Key(VK_TAB, kModifierShift);
        }
        Desk.Device.Key(VK_SPACE);
    }

    // From the selected day's menu to the item's editor.
    void ModifyFromTheDay() {
        Desk.ShowPage(PageNumber::Calendar);
        Desk.Device.Key(VK_RETURN);
        Desk.Device.ChooseTracked(kCommandFirstSchedule);
        Desk.Device.Key(VK_F1 + 1);
    }

    Oid GivenNote(const Bytes& note) {
        return Desk.GivenAppointment(u"Dentist", At(2004, 11, 3, 9), At(2004, 11, 3, 10),
                                     [&](IAppointment& item) { EXPECT_EQ(item.put_BodyInk(note), Status::Ok); });
    }

    Bytes NoteOf(Oid oid) {
        ComPtr<IAppointment> item;
        Bytes note;
        EXPECT_EQ(Desk.Connect()->GetItemFromOid(oid, item), Status::Ok);
        EXPECT_EQ(item->get_BodyInk(note), Status::Ok);
        return note;
    }

    Bytes MemoBytes(std::string_view name) {
        const std::optional<std::string> bytes = Desk.ReadFile(name);
        return bytes ? Bytes(bytes->begin(), bytes->end()) : Bytes();
    }

    ScheduleDesk Desk;
    Bytes Drawn;
};

TEST_F(InkEditorOpeners, ANewMemoOfTheDay) {
    Desk.ShowPage(PageNumber::Calendar);
    Desk.Device.Key(VK_RETURN);
    Desk.Device.ChooseTracked(kCommandAddMemo);
    DrawAndOk();
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(MemoBytes("20041103_171000.pwi"), Drawn);
}

TEST_F(InkEditorOpeners, AMemoOfTheDay) {
    Desk.ShowPage(PageNumber::Calendar);
    Desk.Device.Key(VK_RETURN);
    Desk.Device.ChooseTracked(kCommandAddMemo);
    DrawAndOk();
    ASSERT_TRUE(Desk.Settle());
    const Bytes before = Drawn;
    Desk.Device.Key(VK_RETURN);
    Desk.Device.ChooseTracked(kCommandFirstMemo);
    DrawAndOk();
    ASSERT_TRUE(Desk.Settle());
    EXPECT_NE(Drawn, before);
    EXPECT_EQ(MemoBytes("20041103_171000.pwi"), Drawn);
}

TEST_F(InkEditorOpeners, TheMemoRowOfAnItemOpenedFromItsDay) {
    const Oid oid = GivenNote({});
    ModifyFromTheDay();
    OpenMemoRow();
    DrawAndOk();
    Desk.Device.TapControl(IDOK);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(NoteOf(oid), Drawn);
}

TEST_F(InkEditorOpeners, TheMemoRowOfANewItemFromTheSchedulePage) {
    Desk.ShowPage(PageNumber::Schedule);
    Desk.Device.Key('4', kModifierControl);
    Desk.Device.Tap(100, 20);
    Desk.Device.TypeInto(kEditSubject, u"Dentist");
    OpenMemoRow();
    DrawAndOk();
    Desk.Device.TapControl(IDOK);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(NoteOf(1), Drawn); // the first OID of a store
}

TEST_F(InkEditorOpeners, DeleteNoteStoresAnEmptyNote) {
    const Oid oid = GivenNote({1, 2, 3});
    ModifyFromTheDay();
    OpenMemoRow();
    Desk.Device.ChooseMenu(u"Tool", kCommandDeleteNote);
    Desk.Device.AnswerBox(IDYES);
    Desk.Device.Do([&] { EXPECT_EQ(NoteOf(oid), (Bytes{1, 2, 3})); }); // until the item is saved
    Desk.Device.TapControl(IDOK);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(NoteOf(oid), IsEmpty());
}

// An item whose ink nobody changed keeps its bytes, and the program no memo.
TEST_F(InkEditorOpeners, OkOnInkThatNobodyChangedLeavesTheNoteAndMakesNoMemo) {
    const Oid oid = GivenNote({1, 2, 3});
    ModifyFromTheDay();
    OpenMemoRow();
    Desk.Device.Do([this] { ASSERT_EQ(Desk.Device.See.Caption(), u"Memo"); });
    Desk.Device.PressOk();
    Desk.Device.EndSession();
    EXPECT_FALSE(Desk.Settle());
    EXPECT_EQ(NoteOf(oid), (Bytes{1, 2, 3}));
    EXPECT_FALSE(Desk.ReadFile("20041103_171000.pwi"));
}

TEST_F(InkEditorOpeners, UndoBringsWhatWasDrawnInAMemoThatWasClosed) {
    Desk.ShowPage(PageNumber::Calendar);
    Desk.Device.Key(VK_RETURN);
    Desk.Device.ChooseTracked(kCommandAddMemo);
    Desk.Device.Do([this] {
        Paper().PenDown(ink::PenEnd::Tip, {{20, 60}, ink::kNoPressure, 1000});
        Paper().PenMove({{120, 60}, ink::kNoPressure, 1050});
        Paper().PenUp({{120, 60}, ink::kNoPressure, 1060});
        Drawn = Paper().GetData();
    });
    Desk.Device.CloseWindow(); // Alt+F4
    ASSERT_TRUE(Desk.Settle());
    ASSERT_THAT(MemoBytes("20041103_171000.pwi"), IsEmpty());
    std::u16string text;
    Desk.Device.OpenMenu(u"Tools");
    Desk.Device.Do([&] { text = Desk.Device.See.MenuBar()->Menus.back().Children.front().Text; });
    Desk.Device.Key(VK_ESCAPE);
    Desk.Device.Key('Z', kModifierControl);
    ASSERT_TRUE(Desk.Settle());
    Desk.LetNoticesArrive();
    EXPECT_EQ(text, u"Undo cancel of a memo");
    EXPECT_EQ(MemoBytes("20041103_171000.pwi"), Drawn);
    EXPECT_EQ(Desk.CellName(0, 3), u"2004-11-03: memo");
}

} // namespace
} // namespace tavo::test
