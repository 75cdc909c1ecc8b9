// A device whose screen is painted into memory, with a script for what people do and eyes for what is on it.
#pragma once

#include "host/bare/scripted_time.h"
#include "host/posix/device_processes.h"
#include "host/posix/posix_disk.h"
#include "tests/files/temporary_folder.h"
#include "tests/memory_host/memory_host.h"

namespace tavo::memory {

// The exit code when the program waited although the script had ended.
constexpr int kScriptEnded = -32000;

// The screen at one moment: of each logical pixel its first real one.
struct Screenshot {
    std::vector<Color> Pixels;

    Color At(Point screen) const;
    int Count(Color color, const Rect& within) const;
    int CountDifferences(const Screenshot& other) const;
};

class MemoryDevice {
  public:
    MemoryDevice();

    // The step happens when the program waits with nothing left to do.
    void Do(std::function<void()> step) { Time.Script.Add(std::move(step)); }

    // To be called from within a step: in the middle of that place of the screen.
    void Tap(const Rect& place);
    // The same, on the row of the open menu or list that stands for this command or entry, where it is to be seen.
    void TapRow(int number);

    Screenshot Look();
    // False when the file cannot be written.
    bool SaveScreen(const std::string& png);
    // What the program said of something that is shown and whose name begins so, placed on the screen; nothing when
    // there is no such thing.
    std::optional<PaintedItem> FindItem(PaintedRole role, std::u16string_view beginning);

  private:
    files::TemporaryFolder Folder;
    posix::PosixDisk Disk;
    posix::DeviceProcesses Programs{Folder.Path()};

  public:
    bare::ScriptedTime Time;
    MemoryHost Host;
};

} // namespace tavo::memory
