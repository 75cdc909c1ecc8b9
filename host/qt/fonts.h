// The fonts the program made, by their handles.
#pragma once

#include "host/qt/font.h"
#include "platform/handles.h"

#include <memory>
#include <unordered_map>

namespace tavo::qt {

class Fonts {
  public:
    FontHandle Make(const LogFont& description) {
        const auto handle = static_cast<FontHandle>(++Last);
        Made.emplace(handle, std::make_unique<Font>(description));
        return handle;
    }

    void Delete(FontHandle handle) { Made.erase(handle); }

    Font* Find(FontHandle handle) const {
        const auto found = Made.find(handle);
        return found == Made.end() ? nullptr : found->second.get();
    }

  private:
    std::uint32_t Last = 0;
    std::unordered_map<FontHandle, std::unique_ptr<Font>> Made;
};

} // namespace tavo::qt
