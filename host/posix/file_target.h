// A calendar file of this machine that is being written.
#pragma once

#include "host/exchange/byte_target.h"
#include "host/posix/replace_file.h"

#include <memory>
#include <string>

namespace tavo::posix {

// Writes in large pieces beside the file that it replaces.
class FileTarget final : public exchange::IByteTarget {
  public:
    // As FileReplacement::Begin.
    ErrorCode Open(const std::string& path) { return File.Begin(path); }

    ErrorCode Write(std::string_view bytes) override;
    ErrorCode Finish() override;

  private:
    ErrorCode Flush();

    FileReplacement File;
    std::string Waiting;
};

// Null, and the problem, when the file cannot be begun.
std::unique_ptr<exchange::IByteTarget> OpenFileTarget(const std::string& path, ErrorCode& problem);

} // namespace tavo::posix
