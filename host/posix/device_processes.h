// Other programs of the device as programs of this machine.
#pragma once

#include "host/posix/installed_parts.h"
#include "platform/processes.h"

#include <optional>
#include <string>
#include <vector>

namespace tavo::posix {

// Starts a program that outlives us: in a session of its own, with no descriptor of ours and nothing printed. False
// when there is no such executable. The first argument is the executable's path.
bool StartDetached(const std::vector<std::string>& arguments);

// Only two programs exist: RSound.exe, the companion of the running executable, and \Windows\Clock.exe, the
// desktop's clock (TAVO_CLOCK if set, else the first of a short list that PATH has).
class DeviceProcesses final : public IProcesses {
  public:
    explicit DeviceProcesses(std::string programFolder = RunningProgramFolder())
        : ProgramFolder(std::move(programFolder)) {}

    ~DeviceProcesses() override { StartWaiting(); }

    DeviceProcesses(const DeviceProcesses&) = delete;
    DeviceProcesses& operator=(const DeviceProcesses&) = delete;

    // The program starts with the next call of StartWaiting; false when there is none that can be executed.
    bool CreateProcessW(std::u16string_view path, std::u16string_view commandLine) override;

    // For when this program has nothing else to do: a start that stood in the way of its own first picture would be
    // felt.
    void StartWaiting();

    // What CreateProcessW would start: executable and arguments; nothing when there is none.
    std::optional<std::vector<std::string>> Resolve(std::u16string_view path, std::u16string_view commandLine) const;

  private:
    std::string ProgramFolder;
    std::vector<std::vector<std::string>> Waiting; // in the order in which they are to start
};

} // namespace tavo::posix
