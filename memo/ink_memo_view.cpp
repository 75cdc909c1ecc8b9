// The ink editor's life: the ink comes from the memo buffer and goes back to it.
#include "memo/ink_memo_view.h"

#include "memo/copy_memo_dlg.h"
#include "memo/ink_return.h"
#include "memo/memo_files.h"
#include "memo/memo_undo.h"
#include "res/dialog_templates.h"
#include "res/menus.h"
#include "res/resource_ids.h"
#include "res/strings.h"

#include <algorithm>

namespace tavo {

namespace {

constexpr int kInkMargin = 24; // left free under the paper
constexpr int kPictureWriting = 0;
constexpr int kPictureRecorder = 1;
constexpr int kButtonPictureSize = 16;
constexpr std::u16string_view kBadFileName = u"Please check the file name is valid.";

} // namespace

CInkMemoView::CInkMemoView(CMessagePump& pump, CProgramState& state) : CDialog(pump, kInkMemoTemplate), State(state) {}

void CInkMemoView::OnInitDialog() {
    CreateInkBar();
    CreateInk();
    LoadInk();
    ToggleInputMode(); // a fresh control reads; the editor opens in writing
}

void CInkMemoView::CreateInkBar() {
    MenuBar = Host().Menus().SHCreateMenuBar(Handle(), LoadMenuW(kMenuInkMemo));
    Host().Menus().AddButtons(
        MenuBar, {{kCommandInputMode, kBitmapInkButtons, kPictureWriting, kButtonPictureSize, u"Write or select"},
                  {kCommandRecorderBar, kBitmapInkButtons, kPictureRecorder, kButtonPictureSize, u"Pens"}});
}

void CInkMemoView::CreateInk() {
    const Rect client = Host().Windows().GetClientRect(Handle());
    ControlDescription paper;
    paper.Kind = ControlKind::Ink;
    paper.Id = kInkPaper;
    paper.Bounds = {client.Left, client.Top, client.Right, client.Bottom - kInkMargin};
    Ink = AddControl(paper);
    OptionOn = false;
    InputMode = kInkStyleNone;
    TellInk(kInkSetPageStyle, InputMode);
    ShowZoom(100);
}

void CInkMemoView::LoadInk() {
    Original.assign(State.Memo.Bytes().begin(), State.Memo.Bytes().end());
    Home.Before = FingerprintOf(Original);
    if (Ink != WindowHandle::None) {
        Host().Ink().SetHome(Ink, EncodeInkHome(Home));
    }
    IsForeign = Ink != WindowHandle::None && !Host().Ink().SetData(Ink, State.Memo.Bytes());
    Loaded = Ink == WindowHandle::None ? std::vector<std::uint8_t>() : Host().Ink().GetData(Ink);
    SetReading();
    ModeExtra = kInkViewTyping;
    SendModes();
}

void CInkMemoView::TakeInk() {
    State.Memo.Empty();
    if (Ink != WindowHandle::None && AskInk(kInkGetDataLength) >= 1) {
        State.Memo.Fill(Host().Ink().GetData(Ink));
    }
}

bool CInkMemoView::HasNewInk() const {
    return !std::ranges::equal(State.Memo.Bytes(), Loaded);
}

// What was written goes where OK would put it, or else becomes a memo of the day to which it belongs.
bool CInkMemoView::KeepAtQuit() {
    if (Keeper != nullptr) {
        return Keeper->KeepMemoAtQuit();
    }
    InkHome day;
    day.Day = Home.Day;
    const std::vector<std::uint8_t> ink(State.Memo.Bytes().begin(), State.Memo.Bytes().end());
    return ReturnInk(State, day, Host().Clock().GetLocalTime(), ink) != InkReturn::Failed;
}

// Nothing of it goes where it belongs, but it can be had back.
void CInkMemoView::OnCancel() {
    TakeInk();
    if (!State.Memo.IsEmpty() && HasNewInk() && !NoteCancelledInk(State, Home, State.Memo.Bytes())) {
        Host().Ink().LeaveForRecovery(Ink); // the store took no step, so the next start asks
    }
    EndDialog(IDCANCEL);
}

void CInkMemoView::OnQuit() {
    TakeInk();
    if (!State.Memo.IsEmpty() && HasNewInk() && !KeepAtQuit()) {
        Host().Ink().LeaveForRecovery(Ink); // the next start asks what is to become of it
    }
}

void CInkMemoView::OnOK() {
    if (Ink == WindowHandle::None) {
        EndDialog(IDCANCEL); // nobody saw the ink, so nobody took it away
        return;
    }
    TakeInk();
    if (IsForeign && !HasNewInk()) {
        EndDialog(IDCANCEL); // what was not understood stays as it is until somebody writes over it
        return;
    }
    if (!SaveAsMode && !HasNewInk()) {
        State.Memo.Fill(Original);
        EndDialog(IDOK); // what nobody changed need not be written
        return;
    }
    if (SaveAsMode) {
        if (State.Memo.IsEmpty()) {
            EndDialog(IDCANCEL);
        } else {
            SaveAs();
        }
        return;
    }
    if (!FilePath.empty() && !State.Memo.IsEmpty() && !WriteFile(FilePath)) {
        return;
    }
    if (Keeper != nullptr && !State.Memo.IsEmpty() && !Keeper->KeepMemo(Handle())) {
        return;
    }
    EndDialog(IDOK);
}

// Where the file cannot be made the editor stays open.
void CInkMemoView::SaveAs() {
    CCopyMemoDlg dialog(Pump());
    dialog.Name = FilePath;
    dialog.Purpose = kPurposeSave;
    if (dialog.DoModal() != IDOK) {
        EndDialog(IDCANCEL);
    } else if (WriteFile(dialog.Name)) {
        EndDialog(IDOK);
    }
}

// False after a message.
bool CInkMemoView::WriteFile(std::u16string_view path) {
    if (MemoFiles(State).WriteMemo(path)) {
        return true;
    }
    MessageBoxDescription box;
    box.Text = kBadFileName;
    box.Caption = kProgramTitle;
    Pump().ShowMessageBox(Handle(), box);
    return false;
}

} // namespace tavo
