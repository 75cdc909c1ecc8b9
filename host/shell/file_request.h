// Calendar files were opened with the program, or one was chosen for an export.
#pragma once

#include "host/shell/shell.h"

#include <functional>

namespace tavo::shell {

class FileRequest {
  public:
    explicit FileRequest(Shell& shell) : State(shell) {}

    // `haveFiles`: whether files wait that the program has not taken. It takes them all when it is asked.
    void SetFiles(std::function<bool()> haveFiles) { HaveFiles = std::move(haveFiles); }

    // `haveExport`: whether a file was chosen that the program has not taken.
    void SetExport(std::function<bool()> haveExport) { HaveExport = std::move(haveExport); }

    // Before each wait. While a dialog or a message box is open, or the start still asks its questions, they wait:
    // a file somebody opened is asked about afterwards, for nothing else would tell what became of it.
    void Follow();

  private:
    Shell& State;
    std::function<bool()> HaveFiles;
    std::function<bool()> HaveExport;
};

} // namespace tavo::shell
