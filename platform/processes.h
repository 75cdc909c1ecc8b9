// Other programs.
#pragma once

#include <string_view>

namespace tavo {

class IProcesses {
  public:
    virtual ~IProcesses() = default;
    // Starts the program and does not wait for it. False when it cannot be started.
    virtual bool CreateProcessW(std::u16string_view path, std::u16string_view commandLine) = 0;
};

} // namespace tavo
