// A Wayland desktop of the tests' own, without a screen.
#pragma once

#include "tests/files/temporary_folder.h"

#include <QJsonObject>

#include <optional>
#include <string>

namespace tavo::qt {

// Programs started while it lives find it in their environment.
class Compositor {
  public:
    Compositor();
    ~Compositor();
    Compositor(const Compositor&) = delete;
    Compositor& operator=(const Compositor&) = delete;

    // False where it is not installed.
    static bool IsInstalled();

    bool IsRunning() const { return !Control.empty(); }

    // Tells it something, in the words of its own control program; gives what it answers.
    std::string Tell(const std::string& words) const;
    // The window of this process; nothing when it shows none.
    std::optional<QJsonObject> FindWindow(int process) const;

  private:
    files::TemporaryFolder Folder;
    std::string Control; // where it takes commands
    int Process = 0;
};

} // namespace tavo::qt
