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
        Made.emplace(handle, std::make_shared<Font>(description));
        return handle;
    }

    void Delete(FontHandle handle) { Made.erase(handle); }

    Font* Find(FontHandle handle) const { return Share(handle).get(); }

    // For whoever needs the font after the program deleted it. Null for a handle that is none.
    std::shared_ptr<Font> Share(FontHandle handle) const {
        const auto found = Made.find(handle);
        return found == Made.end() ? nullptr : found->second;
    }

  private:
    std::uint32_t Last = 0;
    std::unordered_map<FontHandle, std::shared_ptr<Font>> Made;
};

} // namespace tavo::qt
