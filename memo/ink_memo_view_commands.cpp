// The ink editor's commands: what its menus and its two buttons do.
#include "memo/ink_memo_view.h"

#include "memo/memo_files.h"
#include "res/resource_ids.h"

namespace tavo {

namespace {

struct ZoomCommand {
    int Command;
    int Percent;
};

constexpr ZoomCommand kZooms[] = {
    {kCommandZoom75, 75},   {kCommandZoom100, 100}, {kCommandZoom150, 150},
    {kCommandZoom200, 200}, {kCommandZoom300, 300},
};

constexpr int kReadingZoom = 100;
constexpr int kWritingZoom = 150;
constexpr std::u16string_view kDeleteMemoQuestion = u"This memo will be deleted. Continue?";

} // namespace

const MessageMap& CInkMemoView::Messages() {
    static constexpr MessageEntry entries[] = {
        On<&CInkMemoView::EnableCommands>(WM_INITMENUPOPUP),
        OnCommand<&CInkMemoView::Undo>(kCommandUndo),
        OnCommand<&CInkMemoView::Redo>(kCommandRedo),
        OnCommand<&CInkMemoView::Cut>(kCommandCut),
        OnCommand<&CInkMemoView::Copy>(kCommandCopy),
        OnCommand<&CInkMemoView::Paste>(kCommandPaste),
        OnCommand<&CInkMemoView::Clear>(kCommandClear),
        OnCommand<&CInkMemoView::SelectAll>(kCommandSelectAll),
        OnCommandRange<&CInkMemoView::ChooseZoom>(kCommandZoom75, kCommandZoom300),
        OnCommand<&CInkMemoView::DeleteNote>(kCommandDeleteNote),
        OnCommand<&CInkMemoView::ToggleInputMode>(kCommandInputMode),
        OnCommand<&CInkMemoView::ToggleOption>(kCommandRecorderBar),
    };
    static const MessageMap map{entries, &CDialog::Messages()};
    return map;
}

int CInkMemoView::AskInk(MessageNumber number) const {
    return Ink == WindowHandle::None ? 0 : Host().Ink().SendMessageW(Ink, number, 0, 0);
}

void CInkMemoView::TellInk(MessageNumber number, int first, int second) const {
    if (Ink != WindowHandle::None) {
        static_cast<void>(Host().Ink().SendMessageW(Ink, number, first, second)); // these give no answer
    }
}

void CInkMemoView::SetReading() {
    InputMode = kInkStyleNone;
    ModeFlag = kInkPenSelects;
    TellInk(kInkSetPageStyle, InputMode);
    ShowZoom(kReadingZoom);
}

void CInkMemoView::SendModes() const {
    TellInk(kInkSetPenMode, ModeFlag);
    TellInk(kInkSetView, ModeExtra);
}

void CInkMemoView::ToggleInputMode() {
    if (Ink == WindowHandle::None) {
        return;
    }
    const int before = AskInk(kInkGetPageStyle);
    if (before == kInkStyleRuled) {
        SetReading();
    } else if (before == kInkStyleNone) {
        InputMode = kInkStyleRuled;
        ModeFlag = kInkPenDraws;
        TellInk(kInkSetPageStyle, InputMode);
        ShowZoom(kWritingZoom);
    }
    ModeExtra = before == kInkStyleRuled ? kInkViewTyping : kInkViewWriting;
    SendModes();
    CheckInputModeButton();
}

void CInkMemoView::CheckInputModeButton() {
    Host().Menus().SetMenuItem(MenuBar, kCommandInputMode, true, AskInk(kInkGetView) == kInkViewWriting);
}

void CInkMemoView::ChooseZoom(int command) {
    for (const ZoomCommand& zoom : kZooms) {
        if (zoom.Command == command) {
            ShowZoom(zoom.Percent);
        }
    }
}

void CInkMemoView::ShowZoom(int percent) {
    if (Ink == WindowHandle::None) {
        return;
    }
    for (const ZoomCommand& zoom : kZooms) {
        Host().Menus().SetMenuItem(MenuBar, zoom.Command, true, zoom.Percent == percent);
    }
    TellInk(kInkSetZoom, 0, percent);
}

void CInkMemoView::ToggleOption() {
    OptionOn = !OptionOn;
    TellInk(kInkShowRecorderBar, OptionOn ? 1 : 0);
}

void CInkMemoView::Undo() {
    TellInk(kInkUndo, 0);
}

void CInkMemoView::Redo() {
    TellInk(kInkRedo, 0);
}

void CInkMemoView::Cut() {
    TellInk(WM_CUT, 0);
}

void CInkMemoView::Copy() {
    TellInk(WM_COPY, 0);
}

void CInkMemoView::Paste() {
    TellInk(WM_PASTE, 0);
}

void CInkMemoView::Clear() {
    TellInk(WM_CLEAR, 0);
}

void CInkMemoView::SelectAll() {
    TellInk(EM_SETSEL, 0, -1);
}

// Kept on purpose: without a path of its own the editor ends with OK and an empty buffer. That takes an item's note
// away, but leaves a memo file as it is, because an empty memo is never written.
void CInkMemoView::DeleteNote() {
    MessageBoxDescription box;
    box.Text = kDeleteMemoQuestion;
    box.Buttons = MessageBoxButtons::YesNo;
    if (Pump().ShowMessageBox(Handle(), box) != IDYES) {
        return;
    }
    State.Memo.Empty();
    if (!SaveAsMode && !FilePath.empty()) {
        // A file that is already gone is as good as deleted.
        static_cast<void>(Host().Files().DeleteFileW(FilePath));
        EndDialog(IDCANCEL);
        return;
    }
    EndDialog(IDOK);
}

void CInkMemoView::EnableCommands() {
    const auto enable = [this](int command, bool enabled) {
        Host().Menus().SetMenuItem(MenuBar, command, enabled, false);
    };
    const bool hasSelection = AskInk(EM_GETSEL) != 0;
    enable(kCommandUndo, AskInk(EM_CANUNDO) != 0);
    enable(kCommandRedo, AskInk(kInkCanRedo) != 0);
    enable(kCommandCut, hasSelection);
    enable(kCommandCopy, hasSelection);
    enable(kCommandPaste, AskInk(kInkCanPaste) != 0);
    enable(kCommandClear, hasSelection);
    CheckInputModeButton();
}

} // namespace tavo
