// A short-lived program of ours, with pipes to its input and from its output. Nothing here waits for it, unless asked.
#pragma once

#include "host/posix/file_descriptor.h"

#include <string>
#include <sys/types.h>
#include <vector>

namespace tavo::companion {

class Child {
  public:
    Child() = default;

    ~Child() { Stop(); }

    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    // False when there is no such program. It ends with us.
    bool Start(const std::vector<std::string>& arguments);
    // At once, whatever it is doing: it keeps nothing that would be lost. It is reaped with the other children.
    void Stop();

    bool Runs() const { return Process > 0; }

    pid_t Id() const { return Process; }

    // Call when the process was reaped.
    void NoteEnd();

    // What its pipe does not take now waits here. False when it reads no more.
    bool Write(const std::string& line);
    // Goes on with what waits. False when it reads no more.
    bool Flush();

    // For the loop: readable for ReadLine; to wait for room for Flush, -1 while nothing waits.
    // The next whole line, waiting up to so many milliseconds; empty when there is none.
    std::string ReadLine(int patience);

    int Output() const { return FromChild.Get(); }

    int Input() const { return Unwritten.empty() ? -1 : ToChild.Get(); }

  private:
    pid_t Process = -1;
    posix::FileDescriptor ToChild;
    posix::FileDescriptor FromChild;
    std::string Unread;
    std::string Unwritten;
};

// The folder of programs that only we start.
std::string HelperProgram(const std::string& name);

} // namespace tavo::companion
