// Sounds: found in the device's folders, played where there is something to play them.
#include "host/qt/sound.h"

#include "host/posix/posix_disk.h"
#include "tests/qt/temporary_root.h"

#include <fstream>
#include <gtest/gtest.h>

namespace tavo::qt {
namespace {

// A hundredth of a second of silence: 8 bit, 8000 a second.
void WriteSilence(const std::filesystem::path& path) {
    constexpr char header[] =
        "RIFF\x74\0\0\0WAVEfmt \x10\0\0\0\x01\0\x01\0\x40\x1f\0\0\x40\x1f\0\0\x01\0\x08\0data\x50\0\0";
    std::ofstream file(path, std::ios::binary);
    file.write(header, sizeof(header)); // with the zero at its end, the last byte of the length
    file << std::string(80, '\x80');
}

class SoundTest : public testing::Test {
  protected:
    TemporaryRoot Root;
    posix::PosixDisk Disk;
    files::DeviceFiles Files{Disk, {Root.Open().Path(), ""}};
    Sound Player{Files};
};

} // namespace

TEST_F(SoundTest, AMissingSoundIsTold) {
    EXPECT_FALSE(Player.PlaySoundW(u"\\Windows\\Nothing.wav"));
}

TEST_F(SoundTest, StoppingNothingIsFine) {
    EXPECT_TRUE(Player.PlaySoundW(u""));
}

TEST_F(SoundTest, ASoundPlaysAndStopsEvenWithoutADevice) {
    WriteSilence(Root.Path() / "Windows" / "Chime.wav");
    EXPECT_TRUE(Player.PlaySoundW(u"\\Windows\\chime.WAV"));
    EXPECT_TRUE(Player.PlaySoundW(u""));
}

} // namespace tavo::qt
