// How the program starts, takes its own commands and ends.
#include "app/tavo_app.h"

#include "app/about_dialog.h"
#include "app/file_export.h"
#include "app/file_import.h"
#include "app/find_dialog.h"
#include "app/go_to_date_dialog.h"
#include "app/keys_dialog.h"
#include "app/start.h"
#include "framework/format.h"
#include "memo/memo_undo.h"
#include "memo/moving_memos.h"
#include "page/progress_dlg.h"
#include "res/resource_ids.h"
#include "res/strings.h"
#include "store/busy_time.h"
#include "store/refusal.h"
#include "store/undo.h"

#include <memory>
#include <string_view>

namespace tavo {

namespace {

constexpr int kStartFailed = 1; // exit status
constexpr std::u16string_view kUndoCaption = u"Undo";
constexpr std::u16string_view kExportName = u"Tavo Calendar.ics";
constexpr std::u16string_view kNotUndone = u"The last step could not be undone.";

// True when the store refused it.
bool TakeLastStepBack(CProgramState& state, MemoUndo& memos) {
    const BusyTime busy(state);
    LongUndo undo(state, &memos);
    RunLongWork(state.Pump, state, undo, kUndoCaption);
    return undo.IsRefused();
}

} // namespace

CTavoApp::CTavoApp(IHost& host, const CalendarFiles& files) : Device(host), Files(files), Pump(host), State(Pump) {
    State.CanChooseFiles = files.Dialogs != nullptr;
}

CTavoApp::Start CTavoApp::InitInstance() {
    if (ActivateRunningCopy()) {
        return Start::HandedOver;
    }
    if (Failed(Device.CoInitializeEx())) {
        return Start::Failed;
    }
    Device.Registry().SetRegistryKey(kRegistryCompany);
    Frame = std::make_unique<CMainFrame>(Pump, State, *this);
    if (!Frame->Open()) {
        return Start::Failed;
    }
    Device.Windows().SetWindowTextW(Frame->Handle(), kProgramTitle);
    Frame->Show(ShowCommand::Maximize);
    // Last, on a window that is seen: a store that fails says so there.
    Frame->View().UpdateFirst();
    return Start::Running;
}

bool CTavoApp::ActivateRunningCopy() {
    const WindowHandle running = Device.Windows().FindWindowW(kMainWindowClass, kProgramTitle);
    if (running == WindowHandle::None) {
        return false;
    }
    Device.Windows().ShowWindow(running, ShowCommand::Maximize);
    Device.Windows().SetForegroundWindow(running);
    return true;
}

int CTavoApp::Run() {
    return Pump.Run();
}

void CTavoApp::ExitInstance() {
    Frame.reset();
}

void CTavoApp::TakeCommand(int command) {
    switch (command) {
    case kCommandAbout: {
        CAboutDlg about(Pump, State);
        static_cast<void>(about.DoModal()); // closing it is all it can do
        break;
    }
    case kCommandKeys: {
        CKeysDlg keys(Pump, State);
        static_cast<void>(keys.DoModal()); // likewise
        break;
    }
    case kCommandExit:
        Frame->Quit();
        break;
    case kCommandUndoStep:
        Undo();
        break;
    case kCommandNewAlarm:
    case kCommandNewHoliday:
    case kCommandNewAnniversary:
    case kCommandNewAppointment:
        Frame->View().MakeItem(static_cast<ItemKind>(command - kCommandNewAlarm));
        break;
    case kCommandFind:
        Find();
        break;
    case kCommandGoToDate:
        GoToDate();
        break;
    case kCommandImport:
        Files.Dialogs->ChooseImport();
        break;
    case kCommandExport:
        Files.Dialogs->ChooseWritten(WrittenFile::Export, std::u16string(kExportName));
        break;
    case kCommandPrintMonth:
        Files.Dialogs->ChoosePrinter(Frame->View().ShownDay());
        break;
    case kCommandBackup:
        Files.Dialogs->ChooseWritten(WrittenFile::Backup, NameOfBackup());
        break;
    default:
        break;
    }
}

void CTavoApp::Undo() {
    if (State.Busy || !CanUndo(State)) {
        return;
    }
    MemoUndo memos(State);
    const bool isRefused = TakeLastStepBack(State, memos);
    static_cast<void>(State.Categories.ApplyTagRequests()); // those from outside waited; the pages are told anyway
    Frame->View().PostChangeNotice();
    if (isRefused) {
        ShowRefusal(Pump, WindowHandle::None, kNotUndone);
    } else if (memos.Missing() > 0) {
        ShowRefusal(Pump, WindowHandle::None, kMemosMissing);
    }
}

void CTavoApp::Find() {
    CFindDlg find(Pump, State);
    if (find.DoModal() == IDOK) {
        Frame->View().ShowDay(find.Chosen());
    }
}

void CTavoApp::GoToDate() {
    CGoToDateDlg dialog(Pump, State, Frame->View().ShownDay());
    if (dialog.DoModal() == IDOK) {
        Frame->View().ShowDay(dialog.Chosen());
    }
}

void CTavoApp::ImportFiles() {
    if (Files.Import != nullptr && ImportCalendarFiles(State, *Files.Import)) {
        Frame->View().PostChangeNotice();
    }
}

void CTavoApp::WriteFile(WrittenFile what) {
    ICalendarExport* const file = what == WrittenFile::Backup  ? Files.Backup
                                  : what == WrittenFile::Print ? Files.Print
                                                               : Files.Export;
    if (file != nullptr) {
        ExportCalendarFile(State, *file, what);
    }
}

// With its day, so that one does not take the place of an earlier one.
std::u16string CTavoApp::NameOfBackup() {
    const SYSTEMTIME today = Device.Clock().GetLocalTime();
    return FormatText(u"Tavo Calendar %04d-%02d-%02d.tavo", today.Year, today.Month, today.Day);
}

int RunTavoCalendar(IHost& host, const CalendarFiles& files) {
    CTavoApp app(host, files);
    const CTavoApp::Start start = app.InitInstance();
    int status = start == CTavoApp::Start::Failed ? kStartFailed : 0;
    if (start == CTavoApp::Start::Running) {
        status = app.Run();
    }
    app.ExitInstance();
    return status;
}

} // namespace tavo
