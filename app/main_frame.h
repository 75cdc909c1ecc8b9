// The main window: the whole screen, with the view in its client area.
#pragma once

#include "app/vantor_doc.h"
#include "app/vantor_view.h"
#include "framework/window.h"

namespace tavo {

class CMainFrame : public CWindow {
  public:
    CMainFrame(CMessagePump& pump, CProgramState& state, ICommandTarget& commands);
    ~CMainFrame() override;

    // Makes the frame and, inside it, the view. False when the device cannot make them.
    bool Open();
    // Closes the page on show, so that the category file is saved, and then the view; asked again, it ends at once.
    // When the session ends (kSessionEnds), nothing is asked or told.
    void Quit(int reason = kPersonQuits);

    CVantorView& View() { return FormView; }

    const CVantorDoc& Document() const { return OwnDocument; }

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

  private:
    void CloseView();
    void TakeStoreChange();
    void OpenItem(int oid);
    void ImportFiles();
    void WriteFile(int what);

    ICommandTarget& Commands;
    CVantorDoc OwnDocument;
    bool IsQuitting = false;
    CVantorView FormView;
};

} // namespace tavo
