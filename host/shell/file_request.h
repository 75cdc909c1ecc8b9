// Calendar files were opened with the program, or one was chosen for an export.
#pragma once

#include "host/shell/shell.h"
#include "platform/file_dialogs.h"

#include <functional>
#include <optional>

namespace tavo::shell {

using FindWritten = std::function<std::optional<WrittenFile>()>;

class FileRequest {
  public:
    explicit FileRequest(Shell& shell) : State(shell) {}

    // `haveFiles`: whether files wait that the program has not taken. It takes them all when it is asked.
    void SetFiles(std::function<bool()> haveFiles) { HaveFiles = std::move(haveFiles); }

    // `findWritten`: what the file is to hold that was chosen and that the program has not taken, if there is one.
    void SetWritten(FindWritten findWritten) { OwnWritten = std::move(findWritten); }

    // Before each wait. While a dialog or a message box is open, or the start still asks its questions, they wait:
    // a file somebody opened is asked about afterwards, for nothing else would tell what became of it.
    void Follow();

  private:
    Shell& State;
    std::function<bool()> HaveFiles;
    FindWritten OwnWritten;
};

} // namespace tavo::shell
