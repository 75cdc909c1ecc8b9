// The folder of the handwritten memos on this machine.
#pragma once

#include "host/exchange/memo_folder.h"
#include "host/files/device_root.h"

#include <string>

namespace tavo::posix {

class MemoFolder final : public exchange::IMemoFolder {
  public:
    explicit MemoFolder(const files::DeviceRoot& root) : Path(root.DocumentsFolder() + "/TavoCalendar") {}

    const std::string& GetPath() const { return Path; }

    // Files that end like memos, whatever their names begin with.
    std::vector<std::string> List() override;
    ErrorCode Read(const std::string& name, std::vector<std::uint8_t>& ink) override;
    ErrorCode Write(const std::string& name, std::span<const std::uint8_t> ink) override;

  private:
    std::string Path;
};

} // namespace tavo::posix
