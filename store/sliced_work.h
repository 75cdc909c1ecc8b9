// Long work that is done in slices, between which the program stays awake.
#pragma once

namespace tavo {

class ISlicedWork {
  public:
    // Does as much as passes unnoticed, and comes back.
    virtual void DoSlice() = 0;

  protected:
    ~ISlicedWork() = default;
};

} // namespace tavo
