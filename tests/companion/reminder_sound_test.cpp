// What is heard: the real player on a real sound server, alone and started by the real companion.
#include "platform/outlook.h"
#include "tests/companion/notification_service.h"
#include "tests/companion/patience.h"
#include "tests/companion/running_companion.h"
#include "tests/companion/sound_device.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <ostream>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tavo::companion::test {
namespace {

constexpr double kSoon = 10;   // seconds that a busy machine may take
constexpr double kAlike = 0.9; // of two sounds that are the same one
constexpr double kPitch = 1000;
constexpr std::int32_t kRingOnce = kReminderLight | kReminderDialog | kReminderSound;
constexpr std::int32_t kRingOn = kRingOnce | kReminderRepeat;

const std::filesystem::path kHouseSounds = TAVO_SOUNDS;

// Some machines have no such server, and some let none run.
#define MAKE_DEVICE_OR_SKIP(device)                                                                                    \
    if (!SoundDevice::IsInstalled()) {                                                                                 \
        GTEST_SKIP() << "pulseaudio is not installed: nothing can be heard here";                                      \
    }                                                                                                                  \
    (device).emplace();                                                                                                \
    if (!(device)->Runs()) {                                                                                           \
        GTEST_SKIP() << "pulseaudio does not start: nothing can be heard here\n" << (device)->Log();                   \
    }

// The player by itself.
class SoundPlayer : public ::testing::Test {
  protected:
    SoundPlayer() { WriteTone(File("Tone.wav"), kPitch, 0.5); }

    ~SoundPlayer() override { Stop(); }

    void Start(const std::string& server, const std::vector<std::string>& arguments) {
        Process = fork();
        if (Process == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            setenv("PULSE_SERVER", server.c_str(), 1);
            std::vector<char*> pointers{const_cast<char*>(TAVO_REMINDER_SOUND)};
            for (const std::string& argument : arguments) {
                pointers.push_back(const_cast<char*>(argument.c_str()));
            }
            pointers.push_back(nullptr);
            execv(TAVO_REMINDER_SOUND, pointers.data());
            _exit(127);
        }
    }

    void Stop() {
        if (Process > 0) {
            kill(Process, SIGKILL);
            waitpid(Process, nullptr, 0);
            Process = -1;
        }
    }

    // How it ended, as waitpid tells it; nothing when it did not.
    std::optional<int> WaitForEnd(double patience) {
        int status = 0;
        if (!WaitUntil([&] { return waitpid(Process, &status, WNOHANG) == Process; }, patience)) {
            return std::nullopt;
        }
        Process = -1;
        return status;
    }

    static bool EndedWith(std::optional<int> status, int code) {
        return status && WIFEXITED(*status) && WEXITSTATUS(*status) == code;
    }

    std::filesystem::path File(const std::string& name) const { return Folder.File(name); }

    outlook::test::ScratchFolder Folder;
    pid_t Process = -1;
};

class HeardSoundPlayer : public SoundPlayer {
  protected:
    void SetUp() override { MAKE_DEVICE_OR_SKIP(Device); }

    std::optional<SoundDevice> Device;
};

TEST_F(HeardSoundPlayer, IsHeardOnceAndToItsEnd) {
    const HeardSound chime = ReadSound(kHouseSounds / "Chime.wav");
    Start(Device->Address(), {kHouseSounds / "Chime.wav"});
    EXPECT_TRUE(EndedWith(WaitForEnd(kSoon), 0));
    ASSERT_TRUE(Device->WaitForSilence(0.5, kSoon));
    const HeardSound heard = Device->Heard();
    EXPECT_GT(heard.LikenessTo(chime), kAlike);
    EXPECT_GT(heard.AudibleSeconds(), 0.9 * chime.AudibleSeconds());
    EXPECT_LT(heard.AudibleSeconds(), 1.1 * chime.AudibleSeconds());
    EXPECT_GT(heard.LoudestBetween(0, 2), 0.8 * chime.LoudestBetween(0, 2));
}

TEST_F(HeardSoundPlayer, OneThatRepeatsGetsLouder) {
    Start(Device->Address(), {"--repeat", File("Tone.wav")});
    ASSERT_TRUE(Device->WaitForSound(6, 2 * kSoon)); // the tone is half a second long
    EXPECT_FALSE(WaitForEnd(0)) << "it has stopped";
    Stop();
    const HeardSound heard = Device->Heard();
    EXPECT_GT(heard.LikenessTo(ReadSound(File("Tone.wav"))), kAlike);
    const double early = heard.LoudestBetween(0, 1);
    const double middle = heard.LoudestBetween(2.5, 3.5);
    const double late = heard.LoudestBetween(5, 6);
    EXPECT_GT(middle, 1.08 * early);
    EXPECT_GT(late, 1.08 * middle);
    EXPECT_LT(early, 0.5 * ReadSound(File("Tone.wav")).LoudestBetween(0, 0.5)) << "it began loudly";
}

// Two minutes long only where TAVO_WHOLE_RINGING is set.
TEST_F(HeardSoundPlayer, OneThatRepeatsEndsAfterTwoMinutes) {
    const bool isWhole = getenv("TAVO_WHOLE_RINGING") != nullptr;
    WriteTone(File("Long.wav"), kPitch, 150); // as one that is longer itself does
    const auto begin = std::chrono::steady_clock::now();
    Start(Device->Address(), {"--repeat", File("Long.wav")});
    ASSERT_TRUE(Device->WaitForSound(1, kSoon));
    EXPECT_FALSE(WaitForEnd(isWhole ? 115 : 2)) << "it has stopped";
    if (isWhole) {
        EXPECT_TRUE(EndedWith(WaitForEnd(kSoon), 0));
        const std::chrono::duration<double> rung = std::chrono::steady_clock::now() - begin;
        EXPECT_NEAR(rung.count(), 120, 4);
        const HeardSound heard = Device->Heard();
        const double full = ReadSound(File("Long.wav")).LoudestBetween(0, 0.5);
        EXPECT_LT(heard.LoudestBetween(30, 31), 0.8 * full);
        EXPECT_GT(heard.LoudestBetween(62, 63), 0.9 * full);
    }
}

TEST_F(SoundPlayer, WithoutAnyFileEndsWithAFailure) {
    Start("unix:" + File("nobody").string(), {});
    EXPECT_TRUE(EndedWith(WaitForEnd(kSoon), 1));
}

TEST_F(HeardSoundPlayer, WithoutAFileThatIsASoundEndsWithAFailure) {
    std::ofstream(File("Bad.wav")) << "This is a letter, not a sound.\n";
    Start(Device->Address(), {File("Bad.wav")});
    EXPECT_TRUE(EndedWith(WaitForEnd(kSoon), 1));
}

TEST_F(SoundPlayer, WithoutADeviceEndsAtOnce) {
    for (const bool repeats : {false, true}) {
        std::vector<std::string> arguments{File("Tone.wav")};
        if (repeats) {
            arguments.emplace_back("--repeat");
        }
        Start("unix:" + File("nobody").string(), arguments);
        EXPECT_TRUE(EndedWith(WaitForEnd(kSoon), 1));
    }
}

TEST_F(HeardSoundPlayer, EndsWhenTheServerHangs) {
    Device->Freeze();
    Start(Device->Address(), {"--repeat", File("Tone.wav")});
    EXPECT_TRUE(WaitForEnd(2 * kSoon));
}

struct BadFile {
    const char* Name;
    void (*Make)(const std::filesystem::path& file);

    friend void PrintTo(const BadFile& bad, std::ostream* stream) { *stream << bad.Name; }
};

class BadSoundFile : public HeardSoundPlayer, public ::testing::WithParamInterface<BadFile> {};

TEST_P(BadSoundFile, LetsTheNextOneBeHeard) {
    GetParam().Make(File("Bad.wav"));
    Start(Device->Address(), {File("Bad.wav"), kHouseSounds / "Chime.wav"});
    EXPECT_TRUE(EndedWith(WaitForEnd(2 * kSoon), 0));
    EXPECT_GT(Device->Heard().LikenessTo(ReadSound(kHouseSounds / "Chime.wav")), kAlike);
}

// The first so many bytes of a real sound.
template <std::size_t Length> void Cut(const std::filesystem::path& file) {
    std::filesystem::copy_file(kHouseSounds / "Aurora.wav", file);
    std::filesystem::resize_file(file, Length);
}

INSTANTIATE_TEST_SUITE_P(
    , BadSoundFile,
    ::testing::Values(BadFile{"Missing", [](const std::filesystem::path&) {}},
                      BadFile{"AFolder", [](const std::filesystem::path& file) { create_directory(file); }},
                      BadFile{"ALetter",
                              [](const std::filesystem::path& file) { std::ofstream(file) << "Dear all,\n"; }},
                      BadFile{"Empty", Cut<0>}, BadFile{"HalfAHeader", Cut<20>}, BadFile{"NoSamples", Cut<44>},
                      BadFile{"CutShort", Cut<3000>}),
    [](const auto& bad) { return bad.param.Name; });

// The player as the companion starts it.
class RingingCompanion : public CompanionTest {
  protected:
    void SetUp() override {
        MAKE_DEVICE_OR_SKIP(Device);
        create_directory(Folder.Path / "Windows");
        WriteTone(Folder.Path / "Windows" / "Tone.wav", kPitch, 0.5);
        SoundServer = Device->Address();
        StartCompanion(Bus.Address());
    }

    // A reminder that is due at once and shown.
    std::uint32_t Remind(const std::string& title, std::int32_t options, const std::u16string& sound) {
        AddReminder({title.begin(), title.end()}, 600, 30, options, sound);
        EXPECT_TRUE(Service.WaitFor(++Shown, kSoon));
        EXPECT_TRUE(WaitForState(title, 2, kSoon));
        return Service.Came.empty() ? 0 : Service.Came.back().Number;
    }

    bool IsTone(const HeardSound& heard) const {
        return heard.LikenessTo(ReadSound(Folder.Path / "Windows" / "Tone.wav")) > kAlike;
    }

    static bool IsChime(const HeardSound& heard) {
        return heard.LikenessTo(ReadSound(kHouseSounds / "Chime.wav")) > kAlike;
    }

    SessionBus Bus;
    NotificationService Service{Bus};
    std::optional<SoundDevice> Device;
    std::size_t Shown = 0;
};

TEST_F(RingingCompanion, AnItemRingsItsOwnSoundOnce) {
    Remind("Train", kRingOnce, u"Tone.wav");
    ASSERT_TRUE(Device->WaitForSound(0.4, kSoon));
    ASSERT_TRUE(Device->WaitForSilence(1, kSoon));
    EXPECT_TRUE(IsTone(Device->Heard()));
    EXPECT_LT(Device->Heard().AudibleSeconds(), 0.7);
}

TEST_F(RingingCompanion, AMissingSoundIsTheHousesOwn) {
    Remind("Train", kRingOnce, u"Nothing.wav");
    ASSERT_TRUE(Device->WaitForSound(1, kSoon));
    EXPECT_TRUE(IsChime(Device->Heard()));
}

TEST_F(RingingCompanion, AFileThatIsNoSoundIsTheHousesOwn) {
    std::ofstream(Folder.Path / "Windows" / "Letter.wav") << "Dear all,\n";
    Remind("Train", kRingOnce, u"Letter.wav");
    ASSERT_TRUE(Device->WaitForSound(1, kSoon));
    EXPECT_TRUE(IsChime(Device->Heard()));
}

TEST_F(RingingCompanion, DismissingStopsTheRinging) {
    const std::uint32_t card = Remind("Train", kRingOn, u"Tone.wav");
    ASSERT_TRUE(Device->WaitForSound(1.5, kSoon)); // it would go on for two minutes
    Service.Choose(card, "dismiss");
    EXPECT_TRUE(Device->WaitForSilence(1, kSoon));
}

TEST_F(RingingCompanion, AKilledCompanionTakesTheRingingWithIt) {
    Remind("Train", kRingOn, u"Tone.wav");
    ASSERT_TRUE(Device->WaitForSound(1, kSoon));
    Kill(SIGKILL);
    EXPECT_TRUE(Device->WaitForSilence(1, kSoon));
}

TEST_F(RingingCompanion, TheListOfMissedOnesRingsOnce) {
    Service.Serve(0.5);
    Kill(SIGTERM);
    AddReminder(u"First", 2, 0, kRingOn, u"Tone.wav");
    AddReminder(u"Second", 3, 0, kRingOn, u"Tone.wav");
    BeOffForADay();
    StartCompanion(Bus.Address());
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    EXPECT_EQ(Service.Came.back().Summary, "2 missed reminders");
    ASSERT_TRUE(Device->WaitForSound(0.4, kSoon));
    ASSERT_TRUE(Device->WaitForSilence(2, kSoon));
    EXPECT_TRUE(IsTone(Device->Heard()));
    EXPECT_LT(Device->Heard().AudibleSeconds(), 0.7);
}

TEST_F(RingingCompanion, WithoutTheSoundBitIsSilent) {
    Remind("Train", kReminderLight | kReminderDialog | kReminderRepeat, u"Tone.wav");
    EXPECT_FALSE(Device->WaitForSound(0.02, 2));
}

TEST_F(RingingCompanion, SoundOffIsSilentWhateverTheOptions) {
    Remind("Train", kRingOn, u"Sound off");
    EXPECT_FALSE(Device->WaitForSound(0.02, 2));
}

TEST_F(RingingCompanion, ASilentReminderLeavesTheRingingToTheOneBefore) {
    const std::uint32_t train = Remind("Train", kRingOn, u"Tone.wav");
    ASSERT_TRUE(Device->WaitForSound(0.5, kSoon));
    const std::uint32_t tea = Remind("Tea", kReminderLight | kReminderDialog, u"");
    Service.Choose(tea, "dismiss");
    ASSERT_TRUE(WaitForState("Tea", 5, kSoon));
    Device->Forget();
    EXPECT_TRUE(Device->WaitForSound(1, kSoon)) << "the train is forgotten over the tea";
    Service.Choose(train, "dismiss");
    EXPECT_TRUE(Device->WaitForSilence(1, kSoon));
}

} // namespace
} // namespace tavo::companion::test
