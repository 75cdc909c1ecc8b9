// A backup into a file that somebody chose in the window.
#pragma once

#include "host/backup/device_backup.h"
#include "platform/calendar_export.h"

#include <memory>
#include <optional>
#include <string>

namespace tavo::backup {

class ChosenBackup final : public ICalendarExport {
  public:
    explicit ChosenBackup(files::DeviceRoot root) : Root(std::move(root)) {}

    // The path of the file that was chosen.
    void Choose(std::string path) { Chosen = std::move(path); }

    bool HasFile() const { return !Chosen.empty(); }

    std::optional<std::u16string> NextFile() override;

    int CountItems() const override { return Items; }

    // It holds everything.
    std::u16string Unsaid() const override { return {}; }

    bool ExportOn() override;
    void Leave() override;
    int Progress() const override;

    std::u16string Problem() const override { return Reason; }

  private:
    files::DeviceRoot Root;
    std::string Chosen;
    std::unique_ptr<DeviceBackup> Current;
    int Items = 0; // once it is made
    std::u16string Reason;
};

} // namespace tavo::backup
