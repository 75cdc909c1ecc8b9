// The menu of a day: what it offers, where it opens, and what its entries do.
#include "res/resource_ids.h"
#include "tests/support/running_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace tavo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The 15th of September 2004 is the Wednesday of the third week.
constexpr int kDayX = 119;
constexpr int kDayY = 123;
constexpr int kEntrySeparator = 4;
constexpr int kEntryMemo = 5;
constexpr int kEntryAddMemo = 6;

class DayMenuTest : public testing::Test {
  protected:
    void Open() {
        ASSERT_TRUE(Program.Start());
        Program.ShowPage(2);
    }

    void Settle() { ASSERT_TRUE(Program.Settle()); }

    void TapDay() { Program.Device.Tap(kDayX, kDayY); }

    void Choose(int command) { Program.Device.ChooseTracked(command); }

    void Check(std::function<void()> look) { Program.Device.Do(std::move(look)); }

    shell::MenuState& Menus() { return Program.Device.Host().State.Menus; }

    const std::vector<MenuItem>& Items() { return Menus().Tracked->Items; }

    // "Holiday: 2", or "(Holiday: 0)" for a greyed one.
    std::vector<std::u16string> Captions() {
        std::vector<std::u16string> captions;
        for (const MenuItem& item : Items()) {
            captions.push_back(item.IsSeparator ? u"-" : item.Enabled ? item.Text : u"(" + item.Text + u")");
        }
        return captions;
    }

    // "33001 Wake up"
    std::vector<std::u16string> EntriesOf(int place) {
        std::vector<std::u16string> entries;
        for (const MenuItem& item : Items()[static_cast<std::size_t>(place)].Children) {
            const std::string id = std::to_string(item.Id);
            entries.push_back(std::u16string(id.begin(), id.end()) + u" " + item.Text);
        }
        return entries;
    }

    Oid GivenItem(std::u16string_view subject, int hour = 9) {
        return Program.GivenAppointment(subject, At(2004, 9, 15, hour), At(2004, 9, 15, hour + 1));
    }

    void Draw() {
        Check([this] {
            ink::InkControl& paper = Program.Device.Host().Papers.Find(Program.Device.See.Control(kInkPaper));
            paper.PenDown(ink::PenEnd::Tip, {{20, 60}, ink::kNoPressure, 1000});
            paper.PenMove({{120, 60}, ink::kNoPressure, 1050});
            paper.PenUp({{120, 60}, ink::kNoPressure, 1060});
        });
    }

    bool Exists(Oid oid) {
        ComPtr<IAppointment> item;
        return Program.Connect()->GetItemFromOid(oid, item) == Status::Ok;
    }

    std::vector<std::u16string> Boxes() {
        std::vector<std::u16string> boxes;
        for (const MessageBoxDescription& box : Program.Device.Host().Seen.Boxes) {
            boxes.push_back(box.Caption + u"|" + box.Text);
        }
        return boxes;
    }

    std::vector<std::string> DeletedMemos() {
        std::vector<std::string> names;
        const std::filesystem::path folder = Program.DataFolder() / "Deleted";
        if (std::filesystem::exists(folder)) {
            for (const auto& entry : std::filesystem::directory_iterator(folder)) {
                names.push_back(entry.path().filename().string());
            }
        }
        return names;
    }

    RunningProgram Program{At(2004, 9, 15, 10, 15)};
};

TEST_F(DayMenuTest, ADayWithoutAnythingShowsGreySubmenusAndAddMemo) {
    Open();
    TapDay();
    Check([this] {
        EXPECT_THAT(Captions(), ElementsAre(u"(Alarm: 0)", u"(Holiday: 0)", u"(Anniversary: 0)", u"(Schedule: 0)", u"-",
                                            u"(Memo: 0)", u"Add memo..."));
        EXPECT_EQ(Items()[kEntryAddMemo].Id, 32798);
        EXPECT_TRUE(Items()[kEntrySeparator].IsSeparator);
        EXPECT_TRUE(Items()[kEntryMemo].IsPopup);
    });
    Choose(0);
    Settle();
}

TEST_F(DayMenuTest, ItemsStandUnderTheFirstKindThatTheirTagsSay) {
    Open();
    const Oid alarm = GivenItem(u"Wake up", 6);
    const Oid both = GivenItem(u"Alarm and holiday", 7);
    const Oid holiday = GivenItem(u"Fair", 8);
    const Oid anniversary = GivenItem(u"Wedding", 9);
    GivenItem(u"Dentist", 10);
    GivenItem(u"Lunch", 12);
    CategoryLists& lists = Program.State().Categories;
    lists.AlarmList.Append(alarm);
    lists.AlarmList.Append(both);
    lists.HolidayList.Append(both);
    lists.HolidayList.Append(holiday);
    lists.AnniversaryList.Append(holiday);
    lists.AnniversaryList.Append(anniversary);
    Program.WriteFile("20040915_101530.pwi", "ink");
    TapDay();
    Check([this] {
        EXPECT_THAT(Captions(), ElementsAre(u"Alarm: 2", u"Holiday: 1", u"Anniversary: 1", u"Schedule: 2", u"-",
                                            u"Memo: 1", u"Add memo..."));
        EXPECT_THAT(EntriesOf(0), ElementsAre(u"33001 Wake up", u"33002 Alarm and holiday"));
        EXPECT_THAT(EntriesOf(1), ElementsAre(u"33201 Fair"));
        EXPECT_THAT(EntriesOf(2), ElementsAre(u"33401 Wedding"));
        EXPECT_THAT(EntriesOf(3), ElementsAre(u"33601 Dentist", u"33602 Lunch"));
        EXPECT_THAT(EntriesOf(kEntryMemo), ElementsAre(u"33801 20040915_101530.pwi"));
    });
    Choose(0);
    Settle();
}

TEST_F(DayMenuTest, OpensToTheRightOfATapAt119AndToTheLeftFrom120) {
    Open();
    Program.Device.Tap(119, 123);
    Check([this] {
        EXPECT_EQ(Menus().Tracked->At, (Point{124, 152}));
        EXPECT_EQ(Menus().Tracked->Align, MenuAlign::Left);
    });
    Choose(0);
    Program.Device.Tap(120, 123);
    Check([this] {
        EXPECT_EQ(Menus().Tracked->At, (Point{115, 152}));
        EXPECT_EQ(Menus().Tracked->Align, MenuAlign::Right);
    });
    Choose(0);
    Settle();
}

TEST_F(DayMenuTest, EveryKindsEntryOpensTheViewOnItsItem) {
    Open();
    CategoryLists& lists = Program.State().Categories;
    lists.AlarmList.Append(GivenItem(u"Wake up", 6));
    lists.HolidayList.Append(GivenItem(u"Fair", 7));
    lists.AnniversaryList.Append(GivenItem(u"Wedding", 8));
    GivenItem(u"Dentist", 9);
    const auto expectView = [this](int command, std::u16string subject) {
        TapDay();
        Choose(command);
        Check([this, subject] { EXPECT_TRUE(Program.Device.See.FindItem(PaintedRole::Header, subject).has_value()); });
        Program.Device.PressClose();
        Check([this] { EXPECT_FALSE(Program.Device.See.IsDialogOpen()); });
    };
    expectView(33001, u"Wake up");
    expectView(33201, u"Fair");
    expectView(33401, u"Wedding");
    expectView(33601, u"Dentist");
    Settle();
}

TEST_F(DayMenuTest, ModifyOpensTheEditorOfTheItemsKindAndThePagesFollow) {
    Open();
    const Oid oid = GivenItem(u"Wake up");
    Program.State().Categories.AlarmList.Append(oid);
    TapDay();
    Choose(33001);
    Program.Device.Tap(226, 26);
    Check([this] {
        EXPECT_EQ(Program.Device.See.Caption(), u"Tavo Calendar");
        EXPECT_EQ(Program.Device.See.TextOf(kEditSubject), u"Wake up");
    });
    Program.Device.Tap(100, 28); // the subject's row; an alarm's first row begins at 15
    Program.Device.TypeInto(kEditSubject, u"Get up");
    Program.Device.TapControl(IDOK);
    Program.Device.AdvanceClock(shell::Milliseconds(600));
    TapDay();
    Check([this] { EXPECT_THAT(EntriesOf(0), ElementsAre(u"33001 Get up")); });
    Choose(0);
    Settle();
}

TEST_F(DayMenuTest, DeleteAsksAndDeletesOnYes) {
    Open();
    const Oid oid = GivenItem(u"Dentist");
    TapDay();
    Choose(33601);
    Program.Device.Tap(226, 49);
    Program.Device.AnswerBox(IDNO);
    Settle();
    EXPECT_TRUE(Exists(oid));
    TapDay();
    Choose(33601);
    Program.Device.Tap(226, 49);
    Program.Device.AnswerBox(IDYES);
    Program.Device.AdvanceClock(shell::Milliseconds(600));
    Settle();
    EXPECT_FALSE(Exists(oid));
    EXPECT_THAT(Boxes(), ElementsAre(u"Delete|Are you sure to delete?", u"Delete|Are you sure to delete?"));
    EXPECT_EQ(Program.CellName(2, 3), u"2004-09-15");
}

TEST_F(DayMenuTest, DeletingATaggedItemTakesItOffItsList) {
    Open();
    const Oid oid = GivenItem(u"Wake up");
    Program.State().Categories.AlarmList.Append(oid);
    TapDay();
    Choose(33001);
    Program.Device.Tap(226, 49);
    Program.Device.AnswerBox(IDYES);
    Settle();
    EXPECT_FALSE(Exists(oid));
    EXPECT_FALSE(Program.State().Categories.IsAlarm(oid));
}

TEST_F(DayMenuTest, AnItemThatGoesWhileTheMenuIsOpenIsStillShownAndDeletedInSilence) {
    Open();
    const Oid oid = GivenItem(u"Dentist");
    TapDay();
    Check([this, oid] { Program.Delete(oid); });
    Program.Device.ChangeStore();
    Program.Device.AdvanceClock(shell::Milliseconds(600)); // the day list follows under the open menu
    Choose(33601);
    Check([this] { EXPECT_TRUE(Program.Device.See.FindItem(PaintedRole::Header, u"Dentist").has_value()); });
    Program.Device.Tap(226, 49);
    Program.Device.AnswerBox(IDYES);
    Settle();
    EXPECT_THAT(Boxes(), ElementsAre(u"Delete|Are you sure to delete?"));
}

TEST_F(DayMenuTest, AnItemThatChangesWhileTheMenuIsOpenIsShownAsItIsNow) {
    Open();
    const Oid oid = GivenItem(u"Dentist");
    TapDay();
    Check([this, oid] {
        ComPtr<IAppointment> item;
        ASSERT_EQ(Program.Connect()->GetItemFromOid(oid, item), Status::Ok);
        ASSERT_EQ(item->put_Subject(u"Surgeon"), Status::Ok);
        ASSERT_EQ(item->Save(), Status::Ok);
    });
    Choose(33601);
    Check([this] { EXPECT_TRUE(Program.Device.See.FindItem(PaintedRole::Header, u"Surgeon").has_value()); });
    Program.Device.PressClose();
    Settle();
}

TEST_F(DayMenuTest, AChoiceMeansWhatTheMenuShowedThoughTheDayGotAnotherItem) {
    Open();
    GivenItem(u"Dentist", 9);
    TapDay();
    Check([this] { GivenItem(u"Earlier", 7); });
    Program.Device.ChangeStore();
    Program.Device.AdvanceClock(shell::Milliseconds(600));
    Choose(33601);
    Check([this] { EXPECT_TRUE(Program.Device.See.FindItem(PaintedRole::Header, u"Dentist").has_value()); });
    Program.Device.PressClose();
    Settle();
}

TEST_F(DayMenuTest, AThousandItemsRunOnIntoTheNextRangesAndNothingBreaks) {
    Open();
    const ComPtr<IPOutlookApp> store = Program.Connect();
    ASSERT_EQ(store->Begin(u"a thousand"), Status::Ok);
    for (int index = 0; index < 1000; ++index) {
        ComPtr<IAppointment> item;
        DATE start = 0;
        ASSERT_TRUE(Program.Device.Host().Locale().SystemTimeToVariantTime(At(2004, 9, 15, 8), start));
        ASSERT_EQ(store->CreateItem(kItemAppointment, item), Status::Ok);
        ASSERT_EQ(item->put_Start(start), Status::Ok);
        ASSERT_EQ(item->put_End(start), Status::Ok);
        const std::string number = std::to_string(index);
        ASSERT_EQ(item->put_Subject(std::u16string(number.begin(), number.end())), Status::Ok);
        ASSERT_EQ(item->Save(), Status::Ok);
    }
    ASSERT_EQ(store->End(), Status::Ok);
    TapDay();
    Check([this] {
        const std::vector<std::u16string> entries = EntriesOf(3);
        ASSERT_EQ(entries.size(), 1000U);
        EXPECT_EQ(entries[199], u"33800 199");
        EXPECT_EQ(entries[200], u"33801 200"); // the first id of the memos
        EXPECT_EQ(entries[999], u"34600 999");
    });
    Choose(33800);
    Check([this] { EXPECT_TRUE(Program.Device.See.FindItem(PaintedRole::Header, u"199").has_value()); });
    Program.Device.PressClose();
    for (const int beyond : {33801, 34000, 34001, 34600}) { // of memos that the day does not have, and of nothing
        TapDay();
        Choose(beyond);
        Check([this] { EXPECT_FALSE(Program.Device.See.IsDialogOpen()); });
    }
    Settle();
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(DayMenuTest, AddMemoNamesTheFileByTheSelectedDayAndTheTimeOfSaving) {
    Open();
    Program.Device.Tap(50, 200); // the 4th of October, shown grey under September
    Choose(kCommandAddMemo);
    Draw();
    Program.Device.AdvanceClock(shell::Milliseconds(31000));
    Program.Device.PressOk();
    Settle();
    EXPECT_TRUE(Program.ReadFile("20041004_101531.pwi").has_value());
    EXPECT_EQ(Program.CellName(5, 1), u"2004-10-04: memo");
}

TEST_F(DayMenuTest, AMemoWithoutInkIsNotWritten) {
    Open();
    TapDay();
    Choose(kCommandAddMemo);
    Program.Device.PressOk();
    TapDay();
    Choose(kCommandAddMemo);
    Draw();
    Program.Device.PressClose();
    TapDay();
    Check([this] { EXPECT_EQ(Captions()[kEntryMemo], u"(Memo: 0)"); });
    Choose(0);
    Settle();
}

TEST_F(DayMenuTest, TheSecondMemoOfASecondReplacesTheFirstWhichGoesToTheDeletedOnes) {
    Open();
    for (int memo = 0; memo < 2; ++memo) {
        TapDay();
        Choose(kCommandAddMemo);
        Draw();
        Program.Device.PressOk();
    }
    TapDay();
    Check([this] { EXPECT_THAT(EntriesOf(kEntryMemo), ElementsAre(u"33801 20040915_101500.pwi")); });
    Choose(0);
    Settle();
    EXPECT_EQ(DeletedMemos().size(), 1U);
}

TEST_F(DayMenuTest, AMemoIsOpenedAndKeepsItsNameWhenItChanges) {
    Open();
    TapDay();
    Choose(kCommandAddMemo);
    Draw();
    Program.Device.PressOk();
    Program.Device.AdvanceClock(shell::Milliseconds(5000));
    Settle();
    const std::optional<std::string> first = Program.ReadFile("20040915_101500.pwi");
    TapDay();
    Choose(33801);
    Check([this] {
        EXPECT_EQ(Program.Device.See.Caption(), u"Memo");
        const WindowHandle paper = Program.Device.See.Control(kInkPaper);
        EXPECT_EQ(Program.Device.Host().Papers.Find(paper).Ink().Strokes().size(), 1U);
    });
    Draw();
    Program.Device.PressOk();
    TapDay();
    Check([this] { EXPECT_THAT(EntriesOf(kEntryMemo), ElementsAre(u"33801 20040915_101500.pwi")); });
    Choose(0);
    Settle();
    ASSERT_TRUE(first.has_value());
    EXPECT_NE(Program.ReadFile("20040915_101500.pwi"), first);
}

TEST_F(DayMenuTest, DeleteNoteLeavesTheMemoFileAsItWas) {
    Open();
    Program.WriteFile("20040915_080000.pwi", "of another program");
    TapDay();
    Choose(33801);
    Program.Device.ChooseMenu(u"Tool", kCommandDeleteNote);
    Program.Device.AnswerBox(IDYES);
    Settle();
    EXPECT_EQ(Program.ReadFile("20040915_080000.pwi"), "of another program");
}

TEST_F(DayMenuTest, AMemoFileThatIsGoneIsSaidInOneSentenceAndNothingIsWritten) {
    Open();
    Program.WriteFile("20040915_080000.pwi", "ink");
    TapDay();
    Check([this] { std::filesystem::remove(Program.DataFolder() / "20040915_080000.pwi"); });
    Choose(33801);
    Program.Device.AnswerBox(IDOK);
    Check([this] { EXPECT_FALSE(Program.Device.See.IsDialogOpen()); });
    Settle();
    EXPECT_THAT(Boxes(), ElementsAre(u"Tavo Calendar|This memo could not be read."));
    EXPECT_FALSE(Program.ReadFile("20040915_080000.pwi").has_value());
}

TEST_F(DayMenuTest, AMemoThatIsNoFileAnyMoreCannotBeRead) {
    Open();
    Program.WriteFile("20040915_080000.pwi", "ink");
    TapDay();
    Check([this] {
        std::filesystem::remove(Program.DataFolder() / "20040915_080000.pwi");
        std::filesystem::create_directories(Program.DataFolder() / "20040915_080000.pwi");
    });
    Choose(33801);
    Program.Device.AnswerBox(IDOK);
    Settle();
    EXPECT_THAT(Boxes(), ElementsAre(u"Tavo Calendar|This memo could not be read."));
}

TEST_F(DayMenuTest, AFolderThatVanishedIsMadeAgain) {
    Open();
    TapDay();
    Choose(kCommandAddMemo);
    Draw();
    Check([this] { std::filesystem::remove_all(Program.DataFolder().parent_path()); });
    Program.Device.PressOk();
    Settle();
    EXPECT_TRUE(Program.ReadFile("20040915_101500.pwi").has_value());
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(DayMenuTest, WhereAMemoCannotBeWrittenTheEditorStaysOpen) {
    Open();
    TapDay();
    Choose(kCommandAddMemo);
    Draw();
    // Something that is no file stands in the memo's place.
    Check([this] { std::filesystem::create_directories(Program.DataFolder() / "20040915_101500.pwi"); });
    Program.Device.PressOk();
    Program.Device.AnswerBox(IDOK);
    Check([this] { EXPECT_EQ(Program.Device.See.Caption(), u"Memo"); });
    Program.Device.AdvanceClock(shell::Milliseconds(1000));
    Program.Device.PressOk();
    Settle();
    EXPECT_THAT(Boxes(), ElementsAre(u"Tavo Calendar|The memo could not be saved. It is still open."));
    EXPECT_TRUE(Program.ReadFile("20040915_101501.pwi").has_value());
}

TEST_F(DayMenuTest, EnterOpensTheSelectedDaysMenuAtItsCell) {
    Open();
    Program.Device.Key(VK_RETURN);
    Check([this] {
        ASSERT_TRUE(Menus().Tracked.has_value());
        EXPECT_EQ(Menus().Tracked->At, (Point{124, 152})); // 5 beside and 29 under the cell's middle
        EXPECT_EQ(Captions()[kEntryAddMemo], u"Add memo...");
    });
    Choose(0);
    Settle();
}

TEST_F(DayMenuTest, EnterOpensItInTheMiddleForADayThatTheGridDoesNotShow) {
    Program.Device.Host().Time.Clock.SetLocalTime(At(2004, 1, 31, 10, 0));
    Open();
    Program.Device.Key(VK_RIGHT); // the 31st of February
    Program.Device.Key(VK_RETURN);
    Check([this] {
        ASSERT_TRUE(Menus().Tracked.has_value());
        EXPECT_EQ(Menus().Tracked->At, (Point{119 + 5, 136 + 29}));
    });
    Choose(0);
    Settle();
}

TEST_F(DayMenuTest, ControlAndArrowsMoveTheSelectedDay) {
    Open();
    const auto press = [this](int key) {
        Program.Device.Key(key, kModifierControl);
        Settle();
        return Program.Header();
    };
    EXPECT_EQ(press(VK_RIGHT), u"Thu, Sep, 16, 2004");
    EXPECT_EQ(press(VK_LEFT), u"Wed, Sep, 15, 2004");
    EXPECT_EQ(press(VK_DOWN), u"Wed, Sep, 22, 2004");
    EXPECT_EQ(Program.SelectedCell(), 24);
    EXPECT_EQ(press(VK_UP), u"Wed, Sep, 15, 2004");
    EXPECT_EQ(press(VK_UP), u"Wed, Sep, 08, 2004");
    EXPECT_EQ(press(VK_UP), u"Wed, Sep, 01, 2004");
    EXPECT_EQ(Program.CellName(0, 3), u"2004-09-01");
    EXPECT_EQ(press(VK_LEFT), u"Tue, Aug, 31, 2004");
    EXPECT_EQ(Program.CellName(0, 0), u"2004-08-01"); // the grid followed
}

TEST_F(DayMenuTest, ControlAndArrowsStartFromADayThatExists) {
    Program.Device.Host().Time.Clock.SetLocalTime(At(2004, 1, 31, 10, 0));
    Open();
    Program.Device.Key(VK_RIGHT); // the 31st of February
    Program.Device.Key(VK_RIGHT, kModifierControl);
    Settle();
    EXPECT_EQ(Program.Header(), u"Mon, Mar, 01, 2004");
}

TEST_F(DayMenuTest, ControlAndArrowsStopAtTheEndsOfTime) {
    Program.Device.Host().Time.Clock.SetLocalTime(At(1901, 1, 3, 10, 0));
    Open();
    Program.Device.Key(VK_UP); // 1900
    for (int day = 0; day < 5; ++day) {
        Program.Device.Key(VK_LEFT, kModifierControl);
    }
    Settle();
    EXPECT_EQ(Program.Header(), u"Mon, Jan, 01, 1900");
}

} // namespace
} // namespace tavo::test
