// Standard output, whose failures are noticed.
#include "tools/output.h"

#include "tools/arguments.h"
#include "tools/device.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace tavo::tools {

void Output::Write(std::string_view text) {
    while (!text.empty() && Problem == 0) {
        const ssize_t count = write(STDOUT_FILENO, text.data(), text.size());
        if (count >= 0) {
            text.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            Problem = errno;
        }
    }
}

bool Output::Finish() {
    // A reader that has seen enough (`| head`) is no failure to speak of.
    if (Problem != 0 && Problem != EPIPE) {
        Complain(std::string("The output cannot be written: ") + std::strerror(Problem) + ".");
    }
    return Problem == 0;
}

int Print(std::string_view text) {
    Output output;
    output.Write(text);
    return output.Finish() ? kExitSuccess : kExitFailure;
}

} // namespace tavo::tools
