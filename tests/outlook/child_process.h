// A forked process that runs a piece of a test, with a byte to and fro.
#pragma once

#include <functional>
#include <sys/types.h>

namespace tavo::outlook::test {

class ChildProcess {
  public:
    // One end of the two pipes.
    class Link {
      public:
        Link(int in, int out) : In(in), Out(out) {}

        void Tell(char word) const;
        char Hear() const; // 0 when the other end is gone

        void Close() const;

      private:
        int In;
        int Out;
    };

    // The work ends with status 0 when it returns; the child never returns into the test.
    explicit ChildProcess(const std::function<void(Link&)>& work);
    ~ChildProcess(); // kills and reaps what still runs
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    void Tell(char word) const { Ours.Tell(word); }

    char Hear() const { return Ours.Hear(); }

    // The exit status; 128 and the signal when it was killed.
    int Wait() const;
    void Kill() const; // with SIGKILL

  private:
    Link Ours{-1, -1};
    mutable pid_t Id = -1; // -1: reaped
};

} // namespace tavo::outlook::test
