// The editor in which a memo is written by hand.
#pragma once

#include "framework/dialog.h"
#include "memo/ink_home.h"
#include "memo/memo_keeper.h"
#include "store/program_state.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tavo {

// Opens with the ink of the memo buffer and, when it ends with IDOK, leaves its own ink there; empty paper leaves the
// buffer empty, and ink that nobody changed leaves it as it was. After IDCANCEL the buffer means nothing; what was
// drawn is a step that can be taken back.
class CInkMemoView : public CDialog {
  public:
    CInkMemoView(CMessagePump& pump, CProgramState& state);

    // The opener may fill these before DoModal.
    bool SaveAsMode = false;       // OK asks for the name of a file to write
    std::u16string FilePath;       // written at OK; empty: the opener takes the buffer
    IMemoKeeper* Keeper = nullptr; // given the ink at OK, unless there is none or nobody changed it; may be absent
    InkHome Home;                  // what the ink belongs to; the editor itself sees what it was before

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

  protected:
    void OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;
    void OnQuit() override;

  private:
    void CreateInkBar();
    void CreateInk();
    void LoadInk();
    void TakeInk();
    bool HasNewInk() const;
    bool KeepAtQuit();
    void SaveAs();
    bool WriteFile(std::u16string_view path);

    // ink_memo_view_commands.cpp
    int AskInk(MessageNumber number) const;
    void TellInk(MessageNumber number, int first, int second = 0) const;
    void SetReading();
    void SendModes() const;
    void ToggleInputMode();
    void CheckInputModeButton();
    void ChooseZoom(int command);
    void ShowZoom(int percent);
    void ToggleOption();
    void Undo();
    void Redo();
    void Cut();
    void Copy();
    void Paste();
    void Clear();
    void SelectAll();
    void DeleteNote();
    void EnableCommands();

    CProgramState& State;
    WindowHandle Ink = WindowHandle::None; // None: the device could not make the control
    WindowHandle MenuBar = WindowHandle::None;
    int InputMode = 0; // the page style
    int ModeFlag = 0;  // the pen mode
    int ModeExtra = 0; // the view
    bool OptionOn = false;
    bool IsForeign = false;             // the buffer held something that is no ink of ours
    std::vector<std::uint8_t> Original; // what the buffer held
    std::vector<std::uint8_t> Loaded;   // what the control gave back before anything was written
};

} // namespace tavo
