// Starting, talking to and ending a child.
#include "companion/child.h"

#include "host/posix/installed_parts.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace tavo::companion {

namespace {

// Only calls that are allowed between fork and exec.
[[noreturn]] void BecomeProgram(char* const* arguments, int input, int output) {
    static_cast<void>(prctl(PR_SET_PDEATHSIG, SIGTERM)); // what it shows nobody would answer
    static_cast<void>(dup2(input, STDIN_FILENO));
    static_cast<void>(dup2(output, STDOUT_FILENO));
    sigset_t none;
    sigemptyset(&none);
    static_cast<void>(sigprocmask(SIG_SETMASK, &none, nullptr));
    static_cast<void>(signal(SIGPIPE, SIG_DFL)); // what we ignore would stay ignored
    execv(arguments[0], arguments);
    _exit(127);
}

} // namespace

bool Child::Start(const std::vector<std::string>& arguments) {
    Stop();
    if (access(arguments.front().c_str(), X_OK) != 0) {
        return false;
    }
    std::array<int, 2> in{};
    std::array<int, 2> out{};
    if (pipe2(in.data(), O_CLOEXEC) != 0) {
        return false;
    }
    posix::FileDescriptor childInput(in[0]);
    ToChild = posix::FileDescriptor(in[1]);
    if (pipe2(out.data(), O_CLOEXEC) != 0) {
        return false;
    }
    FromChild = posix::FileDescriptor(out[0]);
    posix::FileDescriptor childOutput(out[1]);
    std::vector<char*> pointers;
    pointers.reserve(arguments.size() + 1);
    for (const std::string& argument : arguments) {
        pointers.push_back(const_cast<char*>(argument.c_str())); // execv wants it so and does not write
    }
    pointers.push_back(nullptr);
    static_cast<void>(fcntl(ToChild.Get(), F_SETFL, O_NONBLOCK)); // both were made just now, and take any flag
    static_cast<void>(fcntl(FromChild.Get(), F_SETFL, O_NONBLOCK));
    Process = fork();
    if (Process == 0) {
        BecomeProgram(pointers.data(), childInput.Get(), childOutput.Get());
    }
    return Process > 0;
}

void Child::Stop() {
    if (Process > 0) {
        static_cast<void>(kill(Process, SIGKILL)); // one that hangs heeds nothing else
    }
    NoteEnd();
}

void Child::NoteEnd() {
    Process = -1;
    static_cast<void>(ToChild.Close());
    static_cast<void>(FromChild.Close());
    Unread.clear();
    Unwritten.clear();
}

bool Child::Write(const std::string& line) {
    Unwritten += line;
    return Flush();
}

bool Child::Flush() {
    while (ToChild && !Unwritten.empty()) {
        const ssize_t count = write(ToChild.Get(), Unwritten.data(), Unwritten.size());
        if (count < 0 && errno == EAGAIN) {
            return true;
        }
        if (count < 0) { // it has ended, or will: a broken pipe would wake the loop without end
            static_cast<void>(ToChild.Close());
            Unwritten.clear();
            return false;
        }
        Unwritten.erase(0, static_cast<std::size_t>(count));
    }
    return static_cast<bool>(ToChild);
}

std::string Child::ReadLine(int patience) {
    while (FromChild) {
        if (const std::size_t end = Unread.find('\n'); end != std::string::npos) {
            std::string line = Unread.substr(0, end);
            Unread.erase(0, end + 1);
            return line;
        }

        struct pollfd ready {
            FromChild.Get(), POLLIN, 0
        };

        std::array<char, 512> bytes{};
        if (poll(&ready, 1, patience) <= 0) {
            break;
        }
        const ssize_t count = read(FromChild.Get(), bytes.data(), bytes.size());
        if (count <= 0) {
            static_cast<void>(FromChild.Close()); // it has ended, or will
            break;
        }
        Unread.append(bytes.data(), static_cast<std::size_t>(count));
    }
    return {};
}

std::string HelperProgram(const std::string& name) {
    return posix::FindProgram(posix::RunningProgramFolder(), name);
}

} // namespace tavo::companion
