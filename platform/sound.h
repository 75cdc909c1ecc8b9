// Sound files.
#pragma once

#include <string_view>

namespace tavo {

class ISound {
  public:
    virtual ~ISound() = default;
    // Plays a wave file of the device without waiting, stopping what was playing; an empty path only stops. False when
    // there is no such sound; a device without sound is no error.
    virtual bool PlaySoundW(std::u16string_view path) = 0;
};

} // namespace tavo
