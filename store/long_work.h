// Work on many things that is done one by one, so that it can be shown and cancelled.
#pragma once

#include <string>

namespace tavo {

class ILongWork {
  public:
    // Does one thing. False when there is nothing left to do, or nothing more can be done.
    virtual bool DoNext() = 0;
    // Takes back one thing that is not final yet. False when all is as it was before.
    virtual bool TakeBackNext() = 0;
    // Takes back all of it.
    virtual void Abandon() = 0;

    virtual int Total() const = 0;
    virtual int Done() const = 0;

    // For people: "3 of 14 deleted".
    virtual std::u16string DescribeProgress() const = 0;

  protected:
    ~ILongWork() = default;
};

} // namespace tavo
