// Listening to a reminder sound while choosing it.
#pragma once

#include "platform/sound.h"

#include <string_view>

namespace tavo {

// What it started it also ends, at the latest when it goes.
class SoundPreview {
  public:
    explicit SoundPreview(ISound& sound) : Sound(sound) {}

    SoundPreview(const SoundPreview&) = delete;
    SoundPreview& operator=(const SoundPreview&) = delete;

    ~SoundPreview();

    // A sound plays as far as this dialog knows: it is not told when it comes to its own end.
    bool IsPlaying() const { return Playing; }

    // Plays this file of the sound folder in place of whatever plays. A file that is gone leaves silence.
    void Play(std::u16string_view name);
    void Stop();

  private:
    ISound& Sound;
    bool Playing = false;
    bool Previewed = false;
};

} // namespace tavo
