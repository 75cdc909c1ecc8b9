// Forking, two pipes, reaping.
#include "tests/outlook/child_process.h"

#include <csignal>
#include <cstdlib>
#include <sys/wait.h>
#include <unistd.h>

namespace tavo::outlook::test {

void ChildProcess::Link::Tell(char word) const {
    if (write(Out, &word, 1) != 1) {
        std::abort(); // a test that lost its other half
    }
}

char ChildProcess::Link::Hear() const {
    char word = 0;
    return read(In, &word, 1) == 1 ? word : '\0';
}

void ChildProcess::Link::Close() const {
    close(In);
    close(Out);
}

ChildProcess::ChildProcess(const std::function<void(Link&)>& work) {
    int toChild[2];
    int toParent[2];
    if (pipe(toChild) != 0 || pipe(toParent) != 0) {
        std::abort();
    }
    Id = fork();
    if (Id < 0) {
        std::abort();
    }
    if (Id == 0) {
        close(toChild[1]);
        close(toParent[0]);
        Link link(toChild[0], toParent[1]);
        work(link);
        _exit(0);
    }
    close(toChild[0]);
    close(toParent[1]);
    Ours = Link(toParent[0], toChild[1]);
}

ChildProcess::~ChildProcess() {
    if (Id > 0) {
        Kill();
        static_cast<void>(Wait());
    }
    Ours.Close();
}

int ChildProcess::Wait() const {
    int status = 0;
    if (Id <= 0 || waitpid(Id, &status, 0) != Id) {
        return -1;
    }
    Id = -1;
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

void ChildProcess::Kill() const {
    kill(Id, SIGKILL);
}

} // namespace tavo::outlook::test
