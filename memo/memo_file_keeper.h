// Writes what the ink editor holds to a memo file while the editor is still open.
#pragma once

#include "memo/ink_home.h"
#include "memo/memo_files.h"
#include "memo/memo_keeper.h"

#include <string>

namespace tavo {

class MemoFileKeeper : public IMemoKeeper {
  public:
    explicit MemoFileKeeper(CProgramState& state) : State(state) {}

    // The file that the memo came from; empty for a new memo of the day below, which is named when it is kept.
    std::u16string Path;
    int Year = 0;
    int Month = 0;
    int Day = 0;

    // What the ink in the editor belongs to.
    InkHome Home() const;

    bool KeepMemo(WindowHandle editor) override;
    bool KeepMemoAtQuit() override;

  private:
    CProgramState& State;
};

} // namespace tavo
