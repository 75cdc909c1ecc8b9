// A sound device of the tests' own: what is played on it comes back as samples.
#pragma once

#include "tests/companion/heard_sound.h"
#include "tests/outlook/store_fixture.h"

#include <atomic>
#include <mutex>
#include <string>
#include <sys/types.h>
#include <thread>

namespace tavo::companion::test {

class SoundDevice {
  public:
    SoundDevice();
    ~SoundDevice();
    SoundDevice(const SoundDevice&) = delete;
    SoundDevice& operator=(const SoundDevice&) = delete;

    // False where the sound server is not installed.
    static bool IsInstalled();

    // False where the server ended at once, or does not listen. What it has said of that is its log.
    bool Runs() const { return Pipe >= 0; }

    std::string Log() const;

    // What PULSE_SERVER has to say.
    const std::string& Address() const { return Place; }

    HeardSound Heard() const;
    // Everything that is heard begins after this.
    void Forget();
    // Until so many seconds of sound were heard in all, silence not counted; false when it took too long.
    bool WaitForSound(double heard, double patience) const;
    // Until nothing was heard for so long; false when it took too long.
    bool WaitForSilence(double silent, double patience) const;

    // The server stops answering without closing its connections.
    void Freeze();

  private:
    void StartServer();
    bool HasEnded();
    void Listen();

    outlook::test::ScratchFolder Folder;
    std::string Place;
    pid_t Server = -1;
    int Pipe = -1;
    std::atomic<bool> Ending = false;
    mutable std::mutex Access;
    std::vector<std::int16_t> Samples;
    std::thread Listener;
};

} // namespace tavo::companion::test
