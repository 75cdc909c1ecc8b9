// Asking for a memo's name.
#include "memo/copy_memo_dlg.h"

#include "tests/memo/memo_desk.h"

#include <gtest/gtest.h>

namespace tavo::test {
namespace {

class CopyMemo : public testing::Test {
  protected:
    int Run() { return Desk.Run(Dialog); }

    void ExpectTitle(std::int32_t purpose, const std::u16string& title) {
        Dialog.Purpose = purpose;
        Desk.Check([this, title] {
            EXPECT_EQ(Desk.Device.See.Caption(), title);
            EXPECT_EQ(Desk.Device.See.TextOf(kCopyMemoLabel), title);
        });
        Desk.Device.TapControl(IDCANCEL);
        EXPECT_EQ(Run(), IDCANCEL);
    }

    bool IsPanelUp() { return Desk.Device.Host().InputPanel().SipGetInfo().Shown; }

    MemoDesk Desk;
    CCopyMemoDlg Dialog{Desk.Pump};
};

TEST_F(CopyMemo, TitleAndLabelSayWhatTheNameIsFor) {
    ExpectTitle(1, u"Copy As");
    ExpectTitle(2, u"Rename As");
    ExpectTitle(0, u"Save As");
    ExpectTitle(7, u"Save As");
}

TEST_F(CopyMemo, TheProposedNameIsSelectedWholeSoThatTypingReplacesIt) {
    Dialog.Name = u"old.pwi";
    Desk.Check([this] {
        EXPECT_EQ(Desk.Device.See.TextOf(kCopyMemoName), u"old.pwi");
        EXPECT_EQ(Desk.Device.Host().Windows().GetFocus(), Desk.Device.See.Control(kCopyMemoName));
    });
    Desk.Device.Type(u"new.pwi");
    Desk.Device.TapControl(kCopyMemoOk);
    EXPECT_EQ(Run(), IDOK);
    EXPECT_EQ(Dialog.Name, u"new.pwi");
    EXPECT_EQ(Desk.Host.OwnControls.Selections, (std::vector<std::pair<int, int>>{{0, -1}}));
}

TEST_F(CopyMemo, AnEmptyNameIsTaken) {
    Desk.Device.TapControl(kCopyMemoOk);
    EXPECT_EQ(Run(), IDOK);
    EXPECT_EQ(Dialog.Name, u"");
}

TEST_F(CopyMemo, CancelKeepsTheNameAsItWasProposed) {
    Dialog.Name = u"old.pwi";
    Desk.Device.Type(u"new.pwi");
    Desk.Device.TapControl(IDCANCEL);
    EXPECT_EQ(Run(), IDCANCEL);
    EXPECT_EQ(Dialog.Name, u"old.pwi");
}

TEST_F(CopyMemo, EnterTakesTheNameAndEscapeDoesNot) {
    Dialog.Name = u"old.pwi";
    Desk.Device.Type(u"a");
    Desk.Device.Key(VK_RETURN);
    EXPECT_EQ(Run(), IDOK);
    EXPECT_EQ(Dialog.Name, u"a");
    Desk.Device.Type(u"b");
    Desk.Device.Key(VK_ESCAPE);
    EXPECT_EQ(Run(), IDCANCEL);
    EXPECT_EQ(Dialog.Name, u"a");
}

TEST_F(CopyMemo, TheInputPanelIsUpWhileTheDialogIsOpen) {
    for (const int button : {kCopyMemoOk, IDCANCEL}) {
        Desk.Check([this] { EXPECT_TRUE(IsPanelUp()); });
        Desk.Device.TapControl(button);
        EXPECT_NE(Run(), kLeftOpen);
        EXPECT_FALSE(IsPanelUp());
    }
}

TEST_F(CopyMemo, TheControlsLieWhereTheTemplateSays) {
    Desk.Check([this] {
        const shell::WindowTree& tree = Desk.Device.Host().State.Tree;
        const auto placeOf = [&](int id) { return tree.Find(Desk.Device.See.Control(id))->Bounds; };
        EXPECT_EQ(placeOf(1012), (Rect{13, 11, 130, 24}));
        EXPECT_EQ(placeOf(1017), (Rect{12, 30, 195, 53}));
        EXPECT_EQ(placeOf(1064), (Rect{49, 74, 105, 97}));
        EXPECT_EQ(placeOf(2), (Rect{106, 74, 154, 97}));
    });
    Desk.Device.TapControl(IDCANCEL);
    EXPECT_EQ(Run(), IDCANCEL);
}

} // namespace
} // namespace tavo::test
