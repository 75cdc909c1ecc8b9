// Sound, processes and registry: every call is kept for the test to look at.
#pragma once

#include "platform/files.h"
#include "platform/processes.h"
#include "platform/registry.h"
#include "platform/sound.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tavo::headless {

class RecordedSound : public ISound {
  public:
    explicit RecordedSound(IFiles& files) : Files(files) {}

    // A sound is there when its file is.
    bool PlaySoundW(std::u16string_view path) override;

    std::vector<std::u16string> Calls; // paths; an empty one stopped
    std::u16string Playing;            // empty: silence

  private:
    IFiles& Files;
};

struct StartedProcess {
    std::u16string Path;
    std::u16string CommandLine;
    friend bool operator==(const StartedProcess&, const StartedProcess&) = default;
};

class RecordedProcesses : public IProcesses {
  public:
    bool CreateProcessW(std::u16string_view path, std::u16string_view commandLine) override;

    std::vector<StartedProcess> Started; // attempts too
    bool CanStart = true;
};

class RecordedRegistry : public IRegistry {
  public:
    void SetRegistryKey(std::u16string_view company) override { Company = company; }

    int GetProfileIntW(std::u16string_view section, std::u16string_view key, int standard) override;
    bool WriteProfileInt(std::u16string_view section, std::u16string_view key, int value) override;
    ErrorCode RegCreateKeyExW(std::u16string_view path, KeyHandle& key) override;
    ErrorCode RegSetValueExW(KeyHandle key, std::u16string_view name, std::uint32_t type,
                             std::span<const std::uint8_t> data) override;

    void RegCloseKey(KeyHandle key) override { OpenKeys.erase(key); }

    // A text value (REG_SZ), without its terminating zero.
    std::optional<std::u16string> TextValue(const std::u16string& path, const std::u16string& name) const;
    std::optional<std::size_t> ValueSize(const std::u16string& path, const std::u16string& name) const; // in bytes
    std::optional<int> ProfileInt(const std::u16string& section, const std::u16string& key) const;

    std::size_t OpenKeyCount() const { return OpenKeys.size(); }

    std::u16string Company;
    ErrorCode Failure = ErrorCode::Success;      // what every further RegCreateKeyExW answers
    ErrorCode WriteFailure = ErrorCode::Success; // what every further RegSetValueExW answers

  private:
    struct Value {
        std::uint32_t Type = 0;
        std::vector<std::uint8_t> Data;
    };

    using Name = std::pair<std::u16string, std::u16string>; // path or section, then name

    std::map<Name, Value> Values;
    std::map<Name, int> Profile;
    std::map<KeyHandle, std::u16string> OpenKeys;
    std::uint32_t LastKey = 0;
};

} // namespace tavo::headless
