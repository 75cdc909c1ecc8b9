// The frame hands everything on to its view.
#include "app/main_frame.h"

#include "framework/message_pump.h"
#include "platform/activation.h"
#include "res/strings.h"

#include <utility>

namespace tavo {

CMainFrame::CMainFrame(CMessagePump& pump, CProgramState& state, ICommandTarget& commands)
    : CWindow(pump), Commands(commands), FormView(pump, state, commands) {}

CMainFrame::~CMainFrame() {
    Pump().SetMainWindow(WindowHandle::None);
}

const MessageMap& CMainFrame::Messages() {
    static constexpr MessageEntry entries[] = {
        On<&CMainFrame::CloseView>(WM_CLOSE),
        On<&CMainFrame::Quit>(WM_QUERYENDSESSION),
        On<&CMainFrame::TakeStoreChange>(WM_STORECHANGED),
        On<&CMainFrame::OpenItem>(WM_OPENITEM),
        On<&CMainFrame::ImportFiles>(WM_IMPORTFILES),
        On<&CMainFrame::WriteFile>(WM_EXPORTFILE),
    };
    static const MessageMap map{entries, &CWindow::Messages()};
    return map;
}

bool CMainFrame::Open() {
    WindowDescription description;
    description.Kind = WindowKind::Frame;
    description.ClassName = kMainWindowClass;
    description.Title = kProgramTitle;
    description.Bounds = Rect::FromSize(0, 0, kScreenSize.Width, kScreenSize.Height);
    if (!Create(description)) {
        return false;
    }
    Pump().SetMainWindow(Handle());
    return FormView.OpenIn(Handle());
}

void CMainFrame::Quit(int reason) {
    if (std::exchange(IsQuitting, true)) {
        Host().Queue().PostQuitMessage(0);
        return;
    }
    FormView.SaveAndHide(reason == kSessionEnds ? SaveTrouble::Quiet : SaveTrouble::Tell);
    CloseView();
}

void CMainFrame::CloseView() {
    FormView.Post(WM_CLOSE);
}

void CMainFrame::TakeStoreChange() {
    FormView.TakeOutsideChange();
}

void CMainFrame::OpenItem(int oid) {
    FormView.OpenItem(oid);
}

void CMainFrame::ImportFiles() {
    Commands.ImportFiles();
}

void CMainFrame::WriteFile(int what) {
    Commands.WriteFile(static_cast<WrittenFile>(what));
}

} // namespace tavo
