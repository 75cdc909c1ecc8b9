// The whole program on the desktop host with a real store, worked by events of the window system.
#pragma once

#include "app/tavo_app.h"
#include "host/backup/chosen_backup.h"
#include "host/exchange/calendar_export.h"
#include "host/exchange/calendar_import.h"
#include "host/qt/host.h"
#include "host/qt/print_job.h"
#include "tests/qt/event_script.h"
#include "tests/qt/temporary_root.h"

#include <functional>
#include <memory>
#include <string_view>

namespace tavo::qt {

// What is done to it is a script: each step happens when the program waits with nothing left to handle. Coordinates are
// those of the client area, ids those of the window on top.
class DesktopProgram {
  public:
    // The program is started and has come to rest.
    DesktopProgram();
    // On a device that is there already. The start comes to rest after the steps that `begin` puts into the script.
    explicit DesktopProgram(std::shared_ptr<TemporaryRoot> root,
                            const std::function<void(DesktopProgram&)>& begin = {});
    ~DesktopProgram();
    DesktopProgram(const DesktopProgram&) = delete;
    DesktopProgram& operator=(const DesktopProgram&) = delete;

    void Tap(int x, int y);
    void Key(int key, int modifiers = 0);
    void Type(std::u16string_view text);
    void TapControl(int id);
    void Choose(int id, int index);          // opens the list by its arrow
    void ChooseMenu(int index, int command); // of the menu bar
    void ChooseTracked(int command);         // of the menu that is open
    void AnswerBox(int answer);

    void Do(std::function<void()> step) { Script.Do(std::move(step)); }

    // The following steps come that much later.
    void Pass(std::chrono::milliseconds time);
    // Lets the script happen; false when the program quit before its end.
    bool Settle();

    // Of the window on top. None and null when there is no such control.
    WindowHandle Control(int id);
    QWidget* Widget(int id);
    bool IsShown(int id); // to the eye: its widget is visible
    std::u16string Caption();
    bool IsDialogOpen();
    // What the window on top, or one within it, painted there and how it named it; empty when there is no such thing.
    std::u16string NameOf(PaintedRole role, int id);
    std::u16string BoxText(); // of the message box that is open; empty without one

    CProgramState& State() { return App->ProgramState(); }

    std::shared_ptr<TemporaryRoot> Root;
    exchange::CalendarImport Files;   // opened with the program
    exchange::CalendarExport Written; // by it
    backup::ChosenBackup Backup;
    PrintJob Printed;
    QtHost Host;

  private:
    std::unique_ptr<CTavoApp> App;
    EventScript Script;
};

} // namespace tavo::qt
