// Where the ink editor's memo goes while the editor is still open.
#pragma once

#include "platform/handles.h"

namespace tavo {

class IMemoKeeper {
  public:
    // Keeps the ink in the memo buffer, which is not empty. False when that failed and the person, in front of
    // `editor`, was told so: the editor then stays open with its ink.
    virtual bool KeepMemo(WindowHandle editor) = 0;

  protected:
    ~IMemoKeeper() = default;
};

} // namespace tavo
