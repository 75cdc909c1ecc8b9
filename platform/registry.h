// The registry, and the application's profile that is kept in it.
#pragma once

#include "platform/handles.h"
#include "platform/status.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace tavo {

constexpr std::uint32_t REG_SZ = 1;

class IRegistry {
  public:
    virtual ~IRegistry() = default;
    virtual void SetRegistryKey(std::u16string_view company) = 0; // the word under which the profile is kept
    virtual int GetProfileIntW(std::u16string_view section, std::u16string_view key, int standard) = 0;
    virtual bool WriteProfileInt(std::u16string_view section, std::u16string_view key, int value) = 0;
    // Under HKEY_CURRENT_USER; made when missing.
    virtual ErrorCode RegCreateKeyExW(std::u16string_view path, KeyHandle& key) = 0;
    virtual ErrorCode RegSetValueExW(KeyHandle key, std::u16string_view name, std::uint32_t type,
                                     std::span<const std::uint8_t> data) = 0;
    virtual void RegCloseKey(KeyHandle key) = 0;
};

} // namespace tavo
