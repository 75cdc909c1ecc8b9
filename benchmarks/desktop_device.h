// The desktop host on the device in TAVO_HOME, for benchmarks that open windows.
#pragma once

#include "framework/message_pump.h"
#include "host/qt/host.h"

#include <QApplication>

#include <optional>
#include <string>

namespace tavo::bench {

class DesktopDevice {
  public:
    // The arguments are those of main.
    DesktopDevice(int& count, char** arguments);

    // False, and said on standard error, when there is no root folder or there are no fonts.
    bool IsReady() const { return OwnHost.has_value(); }

    qt::QtHost& Host() { return *OwnHost; }

    const std::string& StorePath() const { return Store; }

  private:
    QApplication Application; // outlives the host
    std::optional<qt::QtHost> OwnHost;
    std::string Store;
};

// A main window with nothing in it, for what is opened by itself.
void OpenEmptyFrame(CMessagePump& pump);

} // namespace tavo::bench
