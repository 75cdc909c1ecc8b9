// A short-lived program of ours, with pipes to its input and from its output.
#pragma once

#include "host/files/file_descriptor.h"

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
    void Stop();

    bool Runs() const { return Process > 0; }

    pid_t Id() const { return Process; }

    // Call when the process was reaped.
    void NoteEnd();

    bool Write(const std::string& line);
    // The next whole line, waiting up to so many milliseconds; empty when there is none.
    std::string ReadLine(int patience);

    int Output() const { return FromChild.Get(); }

  private:
    pid_t Process = -1;
    files::FileDescriptor ToChild;
    files::FileDescriptor FromChild;
    std::string Unread;
};

// The folder of programs that only we start.
std::string HelperProgram(const std::string& name);

} // namespace tavo::companion
