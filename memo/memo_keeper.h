// Where the ink editor's memo goes while the editor is still open.
#pragma once

#include "platform/handles.h"

namespace tavo {

class IMemoKeeper {
  public:
    // Keeps the ink in the memo buffer, which is not empty. False when that failed and the person, in front of
    // `editor`, was told so: the editor then stays open with its ink.
    virtual bool KeepMemo(WindowHandle editor) = 0;

    // The same when the program ends with the editor open, and nobody is there to be told.
    virtual bool KeepMemoAtQuit() = 0;

  protected:
    ~IMemoKeeper() = default;
};

} // namespace tavo
