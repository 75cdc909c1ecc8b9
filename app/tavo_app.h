// The application object: start-up, the commands of the whole program, and its end.
#pragma once

#include "app/main_frame.h"
#include "framework/message_pump.h"
#include "store/program_state.h"

#include <memory>

namespace tavo {

class CTavoApp : public ICommandTarget {
  public:
    explicit CTavoApp(IHost& host);

    // False when this copy has nothing to do: another one runs (it is brought forward), or the device has no screen.
    bool InitInstance();
    // Handles messages until the program quits; gives its exit status.
    int Run();
    // Gives back what InitInstance took.
    void ExitInstance();

    CMessagePump& MessagePump() { return Pump; }

    CProgramState& ProgramState() { return State; }

  private:
    bool ActivateRunningCopy();
    void TakeCommand(int command) override;

    IHost& Device;
    CMessagePump Pump;
    CProgramState State;
    std::unique_ptr<CMainFrame> Frame;
};

} // namespace tavo
