// A disk on which the nth write, truncation or synchronisation of a database fails.
#pragma once

namespace tavo::outlook::test {

// While it lives, every database call of this process to the disk goes through it. Counts from its making.
class FailingDisk {
  public:
    enum class Lasting { Once, ForGood };
    enum class Failure { Full, Broken };

    FailingDisk(int nth, Lasting lasting, Failure failure);
    ~FailingDisk();
    FailingDisk(const FailingDisk&) = delete;
    FailingDisk& operator=(const FailingDisk&) = delete;

    bool HasFailed() const;
};

} // namespace tavo::outlook::test
