// Playing and stopping.
#include "edit/sound_preview.h"

#include "platform/device_paths.h"

#include <string>

namespace tavo {

SoundPreview::~SoundPreview() {
    if (Previewed) {
        Stop();
    }
}

void SoundPreview::Play(std::u16string_view name) {
    Playing = Sound.PlaySoundW(std::u16string(kSoundFolder).append(name));
    Previewed = true;
}

void SoundPreview::Stop() {
    static_cast<void>(Sound.PlaySoundW(u"")); // silence is what is wanted, whether something played or not
    Playing = false;
}

} // namespace tavo
