// A private sound server whose only device writes into a pipe, at the speed of the clock.
#include "tests/companion/sound_device.h"

#include "tests/companion/patience.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <sstream>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tavo::companion::test {

namespace {

constexpr double kServerPatience = 20; // seconds until it listens

} // namespace

bool SoundDevice::IsInstalled() {
    return std::system("command -v pulseaudio >/dev/null 2>&1") == 0;
}

SoundDevice::SoundDevice() : Place("unix:" + Folder.File("socket").string()) {
    StartServer();
    const std::string pipe = Folder.File("pipe").string();
    const auto listens = [&] {
        return access(Folder.File("socket").c_str(), F_OK) == 0 && access(pipe.c_str(), F_OK) == 0;
    };
    WaitUntil([&] { return listens() || HasEnded(); }, kServerPatience);
    if (!listens()) {
        return;
    }
    Pipe = open(pipe.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    EXPECT_GE(Pipe, 0);
    Listener = std::thread([this] { Listen(); });
    // The device plays silence as long as nobody plays anything.
    EXPECT_TRUE(WaitUntil([this] { return !Heard().Samples.empty(); }, kServerPatience)) << "the device does not run";
}

SoundDevice::~SoundDevice() {
    Ending = true;
    if (Listener.joinable()) {
        Listener.join();
        close(Pipe);
    }
    if (Server > 0) {
        kill(Server, SIGKILL);
        waitpid(Server, nullptr, 0);
    }
}

void SoundDevice::StartServer() {
    const std::string folder = Folder.Path.string();
    const std::string device = "module-pipe-sink file=" + folder +
                               "/pipe format=s16le channels=1 rate=" + std::to_string(kSampleRate) +
                               " use_system_clock_for_timing=yes";
    const std::string door =
        "module-native-protocol-unix socket=" + folder + "/socket auth-anonymous=1 auth-cookie-enabled=0";
    Server = fork();
    if (Server == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        // Nothing of the person's own is read or written.
        for (const char* name : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "PULSE_RUNTIME_PATH"}) {
            setenv(name, folder.c_str(), 1);
        }
        const int log = open((folder + "/log").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        dup2(log, STDERR_FILENO);
        execlp("pulseaudio", "pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
               "--disable-shm=yes", "--realtime=no", "--high-priority=no", "-L", device.c_str(), "-L", door.c_str(),
               nullptr);
        _exit(127);
    }
}

bool SoundDevice::HasEnded() {
    if (Server > 0 && waitpid(Server, nullptr, WNOHANG) == Server) {
        Server = -1;
    }
    return Server <= 0;
}

std::string SoundDevice::Log() const {
    std::stringstream text;
    text << std::ifstream(Folder.File("log")).rdbuf();
    return text.str();
}

void SoundDevice::Listen() {
    std::array<std::int16_t, 4096> samples{};
    while (!Ending) {
        struct pollfd ready {
            Pipe, POLLIN, 0
        };

        const ssize_t count = poll(&ready, 1, 50) > 0 ? read(Pipe, samples.data(), sizeof samples) : 0;
        if (count > 0) {
            const std::lock_guard lock(Access);
            Samples.insert(Samples.end(), samples.begin(), samples.begin() + count / 2);
        }
    }
}

HeardSound SoundDevice::Heard() const {
    const std::lock_guard lock(Access);
    return {Samples};
}

void SoundDevice::Forget() {
    const std::lock_guard lock(Access);
    Samples.clear();
}

bool SoundDevice::WaitForSound(double heard, double patience) const {
    return WaitUntil([&] { return Heard().AudibleSeconds() >= heard; }, patience);
}

bool SoundDevice::WaitForSilence(double silent, double patience) const {
    return WaitUntil([&] { return Heard().SilentSeconds() >= silent; }, patience);
}

void SoundDevice::Freeze() {
    kill(Server, SIGSTOP);
}

} // namespace tavo::companion::test
