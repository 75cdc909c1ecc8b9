// The registry and the profile, kept in one text file that a person can read and edit.
#pragma once

#include "host/disk/disk.h"
#include "host/files/registry_text.h"
#include "platform/registry.h"

#include <functional>
#include <map>
#include <optional>
#include <string>

namespace tavo::files {

// Several processes may use one file: every call reads it, every change is made under a lock and replaces it whole. A
// file that is there but cannot be read is never replaced.
class RegistryFile final : public IRegistry {
  public:
    // `lockPath`: the file that is locked during a change.
    RegistryFile(disk::IDisk& disk, std::string path, std::string lockPath)
        : Disk(disk), Path(std::move(path)), LockPath(std::move(lockPath)) {}

    void SetRegistryKey(std::u16string_view company) override { Company = company; }

    int GetProfileIntW(std::u16string_view section, std::u16string_view key, int standard) override;
    bool WriteProfileInt(std::u16string_view section, std::u16string_view key, int value) override;
    ErrorCode RegCreateKeyExW(std::u16string_view path, KeyHandle& key) override;
    ErrorCode RegSetValueExW(KeyHandle key, std::u16string_view name, std::uint32_t type,
                             std::span<const std::uint8_t> data) override;
    void RegCloseKey(KeyHandle key) override;

    // What stands under HKEY_CURRENT_USER\path, with no key opened.
    std::optional<RegistryValue> ReadValue(std::u16string_view path, std::u16string_view name) const;

  private:
    ErrorCode Rewrite(const std::function<void(RegistryText&)>& change);
    ErrorCode Load(RegistryText& text) const;
    std::u16string ProfileSection(std::u16string_view section) const;

    disk::IDisk& Disk;
    std::string Path;
    std::string LockPath;
    std::u16string Company;
    std::map<KeyHandle, std::u16string> OpenKeys; // section names
    std::uint32_t LastKey = 0;
};

} // namespace tavo::files
