// Written there first, and only then taken away.
#include "store/declined_files.h"

#include "framework/format.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tavo {

namespace {

constexpr std::u16string_view kDeclinedFolder = u"\\Recovery\\Declined";
constexpr int kMostNames = 1000; // then the last one is written over

std::u16string FreePath(IFiles& files, std::u16string_view name) {
    std::u16string path = FormatText(u"%s\\%s", kDeclinedFolder, name);
    for (int number = 2; number <= kMostNames && files.FindFirstFileW(path) != nullptr; ++number) {
        path = FormatText(u"%s\\%d %s", kDeclinedFolder, number, name);
    }
    return path;
}

} // namespace

void PutToDeclined(IFiles& files, std::u16string_view path) {
    std::vector<std::uint8_t> bytes;
    if (files.ReadWholeFile(path, bytes) != ErrorCode::Success) {
        return;
    }
    // What is wrong with them shows when they are written to.
    static_cast<void>(files.CreateDirectoryW(kRecoveryFolder));
    static_cast<void>(files.CreateDirectoryW(kDeclinedFolder));
    const std::u16string declined = FreePath(files, path.substr(path.rfind(u'\\') + 1));
    if (files.WriteWholeFile(declined, bytes) == ErrorCode::Success) {
        static_cast<void>(files.DeleteFileW(path)); // one that stays is asked about again
    }
}

} // namespace tavo
