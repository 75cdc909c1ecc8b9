// Lists: opening is announced first, and choosing tells.
#include "tests/conformance/conformance_test.h"

namespace tavo::conformance {

namespace {

class ListConformance : public ConformanceTest {
  protected:
    void CloseDialog() {
        Steps.Do([&] { End(IDOK); });
    }

    std::function<WindowHandle()> List(int control) {
        return [this, control] { return DialogItem(control); };
    }
};

TEST_F(ListConformance, ChosenEntryIsSelectedAndTold) {
    OpenDialogOnTap();
    Steps.Choose(List(kFixedList), 1);
    Steps.Do([&] {
        EXPECT_EQ(Host.Controls().GetCurSel(DialogItem(kFixedList)), 1);
        EXPECT_EQ(Dialog->ItemText(kFixedList), u"Green");
        EXPECT_EQ(Driver->ShownTextOf(DialogItem(kFixedList)), u"Green");
        EXPECT_FALSE(Driver->IsListOpen(DialogItem(kFixedList)));
    });
    CloseDialog();
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Ended.CodesOf(kFixedList), (std::vector<int>{CBN_DROPDOWN, CBN_SELCHANGE, CBN_CLOSEUP}));
}

TEST_F(ListConformance, AltAndDownOpenTheListWithTheFocus) {
    OpenDialogOnTap();
    for (const int list : {kFixedList, kEditableList}) {
        Steps.Do([this, list] { Host.Windows().SetFocus(DialogItem(list)); });
        Steps.Key(VK_DOWN, kModifierAlt);
        Steps.Do([this, list] {
            EXPECT_TRUE(Driver->IsListOpen(DialogItem(list)));
            Driver->ChooseEntry(DialogItem(list), 1);
        });
    }
    CloseDialog();
    ASSERT_TRUE(Steps.Finish(Pump));
    for (const int list : {kFixedList, kEditableList}) {
        EXPECT_EQ(Ended.CodesOf(list), (std::vector<int>{CBN_DROPDOWN, CBN_SELCHANGE, CBN_CLOSEUP})) << list;
    }
}

TEST_F(ListConformance, TypingTheTextOfAnEntryIsNotChoosingIt) {
    OpenDialogOnTap();
    Steps.Do([&] { Host.Windows().SetFocus(DialogItem(kEditableList)); });
    Steps.Type(u"Blue");
    Steps.Do([&] { Host.Windows().SetFocus(DialogItem(kEdit)); });
    Steps.Do([&] {
        EXPECT_EQ(Dialog->ItemText(kEditableList), u"Blue");
        EXPECT_EQ(Host.Controls().GetCurSel(DialogItem(kEditableList)), -1);
    });
    CloseDialog();
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Ended.Count(WM_COMMAND, kEditableList, CBN_SELCHANGE), 0);
}

TEST_F(ListConformance, ListRefilledAtItsNoticeOpensWithTheNewEntries) {
    OpenDialogOnTap();
    Prepare = [&](ScratchDialog& dialog) {
        dialog.Log.Hook = [&](const Message& message) {
            if (message.Id == kFixedList && message.Code == CBN_DROPDOWN) {
                EXPECT_FALSE(Driver->IsListOpen(DialogItem(kFixedList)));
                const std::vector<std::u16string> fresh{u"Once", u"Everyday"};
                Host.Controls().SetListItems(DialogItem(kFixedList), fresh);
                Host.Controls().SetCurSel(DialogItem(kFixedList), 0);
            }
        };
    };
    Steps.Do([&] { Driver->OpenList(DialogItem(kFixedList)); });
    Steps.Do([&] {
        EXPECT_TRUE(Driver->IsListOpen(DialogItem(kFixedList)));
        EXPECT_EQ(Driver->EntriesOf(DialogItem(kFixedList)), (std::vector<std::u16string>{u"Once", u"Everyday"}));
        Driver->ChooseEntry(DialogItem(kFixedList), 1);
    });
    Steps.Do([&] { EXPECT_EQ(Dialog->ItemText(kFixedList), u"Everyday"); });
    CloseDialog();
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Ended.Count(WM_COMMAND, kFixedList, CBN_DROPDOWN), 1);
}

TEST_F(ListConformance, ClosingWithoutAChoiceKeepsTheSelection) {
    OpenDialogOnTap();
    Steps.Do([&] { Host.Controls().SetCurSel(DialogItem(kFixedList), 2); });
    Steps.Do([&] { Driver->OpenList(DialogItem(kFixedList)); });
    Steps.Do([&] { Driver->CloseList(DialogItem(kFixedList)); });
    Steps.Do([&] { EXPECT_EQ(Host.Controls().GetCurSel(DialogItem(kFixedList)), 2); });
    CloseDialog();
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Ended.CodesOf(kFixedList), (std::vector<int>{CBN_DROPDOWN, CBN_CLOSEUP}));
}

TEST_F(ListConformance, EscapeClosesTheListAndNotTheDialog) {
    OpenDialogOnTap();
    Steps.Do([&] { Driver->OpenList(DialogItem(kFixedList)); });
    Steps.Key(VK_ESCAPE);
    Steps.Do([&] {
        ASSERT_NE(Dialog, nullptr);
        EXPECT_FALSE(Driver->IsListOpen(DialogItem(kFixedList)));
        End(IDYES);
    });
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Results, std::vector<int>{IDYES});
    EXPECT_EQ(Ended.Count(WM_COMMAND, kFixedList, CBN_CLOSEUP), 1);
}

TEST_F(ListConformance, TapOnAListOpensIt) {
    OpenDialogOnTap();
    TapControl(kFixedList);
    Steps.Do([&] {
        EXPECT_TRUE(Driver->IsListOpen(DialogItem(kFixedList)));
        Driver->CloseList(DialogItem(kFixedList));
    });
    CloseDialog();
    ASSERT_TRUE(Steps.Finish(Pump));
}

TEST_F(ListConformance, SettingEntriesDropsTheSelectionSilently) {
    OpenDialogOnTap();
    Steps.Do([&] {
        IControls& controls = Host.Controls();
        controls.SetCurSel(DialogItem(kFixedList), 2);
        EXPECT_EQ(Dialog->ItemText(kFixedList), u"Blue");
        const std::vector<std::u16string> fresh{u"One"};
        controls.SetListItems(DialogItem(kFixedList), fresh);
        EXPECT_EQ(controls.GetCurSel(DialogItem(kFixedList)), -1);
        EXPECT_EQ(Dialog->ItemText(kFixedList), u"");
        controls.SetCurSel(DialogItem(kFixedList), 7); // there is no such entry
        EXPECT_EQ(controls.GetCurSel(DialogItem(kFixedList)), -1);
    });
    CloseDialog();
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Ended.Count(WM_COMMAND), 0);
}

TEST_F(ListConformance, AnyTextCanBeTypedIntoAnEditableList) {
    OpenDialogOnTap();
    Steps.Choose(List(kEditableList), 2);
    Steps.Do([&] { EXPECT_EQ(Dialog->ItemText(kEditableList), u"Blue"); });
    Steps.Do([&] {
        Host.Windows().SetFocus(DialogItem(kEditableList));
        Host.Controls().SetTextSelection(DialogItem(kEditableList), 0, -1);
    });
    Steps.Type(u"Re");
    Steps.Do([&] {
        EXPECT_EQ(Dialog->ItemText(kEditableList), u"Re");
        EXPECT_EQ(Host.Controls().GetCurSel(DialogItem(kEditableList)), -1);
    });
    CloseDialog();
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Ended.Count(WM_COMMAND, kEditableList, CBN_SELCHANGE), 1);
    EXPECT_EQ(Ended.Count(WM_COMMAND, kEditableList, CBN_EDITCHANGE), 2);
}

TEST_F(ListConformance, MonthCalendarOfADatePickerIsAnnouncedToo) {
    std::vector<int> codes;
    OpenDialogOnTap();
    Prepare = [&](ScratchDialog& dialog) {
        dialog.Log.Hook = [&](const Message& message) {
            if (message.Number == WM_NOTIFY && message.Id == kDate) {
                codes.push_back(message.Code);
            }
        };
    };
    Steps.Do([&] { Driver->OpenList(DialogItem(kDate)); });
    Steps.Do([&] {
        EXPECT_TRUE(Driver->IsListOpen(DialogItem(kDate)));
        Driver->CloseList(DialogItem(kDate));
    });
    CloseDialog();
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(codes, (std::vector<int>{DTN_DROPDOWN, DTN_CLOSEUP}));
}

TEST_F(ListConformance, HidingAControlClosesItsList) {
    OpenDialogOnTap();
    Steps.Do([&] { Driver->OpenList(DialogItem(kFixedList)); });
    Steps.Do([&] {
        Dialog->ShowItem(kFixedList, false);
        EXPECT_FALSE(Driver->IsListOpen(DialogItem(kFixedList)));
    });
    CloseDialog();
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Ended.Count(WM_COMMAND, kFixedList, CBN_CLOSEUP), 1);
}

} // namespace

} // namespace tavo::conformance
