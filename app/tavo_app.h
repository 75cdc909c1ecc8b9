// The application object: start-up, the commands of the whole program, and its end.
#pragma once

#include "app/main_frame.h"
#include "framework/message_pump.h"
#include "platform/calendar_files.h"
#include "store/program_state.h"

#include <memory>

namespace tavo {

class CTavoApp final : public ICommandTarget {
  public:
    explicit CTavoApp(IHost& host, const CalendarFiles& files = {});

    // Whether this copy runs on. HandedOver: another one does, and was brought forward. Failed: no screen to be had.
    enum class Start { Running, HandedOver, Failed };
    [[nodiscard]] Start InitInstance();
    // Handles messages until the program quits; gives its exit status.
    int Run();
    // Gives back what InitInstance took.
    void ExitInstance();

    CMessagePump& MessagePump() { return Pump; }

    CProgramState& ProgramState() { return State; }

  private:
    bool ActivateRunningCopy();
    // Takes the last step back, with a display where it takes long.
    void Undo();
    void Find();
    void GoToDate();
    void TakeCommand(int command) override;
    void ImportFiles() override;
    void WriteFile(WrittenFile what) override;
    std::u16string NameOfBackup();

    IHost& Device;
    CalendarFiles Files;
    CMessagePump Pump;
    CProgramState State;
    std::unique_ptr<CMainFrame> Frame;
};

} // namespace tavo
