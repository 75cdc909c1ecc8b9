// Sounds of the device. What plays them is heavy, so it is loaded with the first sound.
#pragma once

#include "host/files/device_files.h"
#include "platform/sound.h"

#include <QString>

namespace tavo::qt {

class Sound final : public ISound {
  public:
    explicit Sound(files::DeviceFiles& files) : Files(files) {}

    bool PlaySoundW(std::u16string_view path) override;

  private:
    using PlayFile = void (*)(const char* path);

    PlayFile LoadPlayer();

    files::DeviceFiles& Files;
    PlayFile Player = nullptr;
    bool WasLoaded = false;
};

} // namespace tavo::qt
