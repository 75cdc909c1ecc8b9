// tavo check: says whether the calendar's files are sound.
#include "host/files/device_files.h"
#include "host/locale/harmless_text.h"
#include "host/outlook/diagnosis.h"
#include "host/posix/posix_disk.h"
#include "host/posix/store_machine.h"
#include "platform/device_paths.h"
#include "store/category_codec.h"
#include "tools/commands.h"
#include "tools/device.h"
#include "tools/output.h"

#include <string>
#include <vector>

namespace tavo::tools {
namespace {

using locale::MakeHarmless;

// One sentence; `sound` becomes false when something is wrong.
std::string CheckStore(const files::DeviceRoot& root, bool& sound) {
    const outlook::Diagnosis diagnosis =
        outlook::DiagnoseStore(posix::SystemMachine(), root.StorePath(), outlook::CheckDepth::Full);
    const bool good = diagnosis.State == outlook::Verdict::Ok || diagnosis.State == outlook::Verdict::Missing;
    sound = sound && good && diagnosis.Findings.empty();
    std::string text = "Store: " + MakeHarmless(diagnosis.What);
    text += diagnosis.Advice.empty() ? "\n" : "\n  What to do: " + MakeHarmless(diagnosis.Advice) + "\n";
    for (const std::string& finding : diagnosis.Findings) {
        text += "  - " + MakeHarmless(finding) + "\n";
    }
    return text;
}

std::string CheckTags(const files::DeviceRoot& root, bool& sound) {
    posix::PosixDisk disk;
    files::DeviceFiles files(disk, {root.Path()});
    std::vector<std::uint8_t> bytes;
    const std::u16string devicePath = std::u16string(kDataFolder).append(u"\\").append(kCategoryFileName);
    const ErrorCode read = files.ReadWholeFile(devicePath, bytes);
    if (read == ErrorCode::FileNotFound || read == ErrorCode::PathNotFound) {
        return "Tags: there is no TavoCalendar.dat yet. It is made when Tavo Calendar starts.\n";
    }
    const std::string path = MakeHarmless(files.RealPathOfFile(devicePath).value_or("TavoCalendar.dat"));
    CategoryFileLists lists;
    if (read != ErrorCode::Success) {
        sound = false;
        return "Tags: " + path + " cannot be read.\n  What to do: make it readable for yourself (chmod u+rw).\n";
    }
    if (!DecodeCategoryFile(bytes, lists)) {
        sound = false;
        return "Tags: " + path +
               " is damaged.\n  What to do: put back a copy from your backup, or move the file away;"
               " the appointments themselves are not in it, only which of them are alarms, holidays and"
               " anniversaries.\n";
    }
    return "Tags: " + path + " is sound. Alarms: " + std::to_string(lists[0].size()) +
           ", holidays: " + std::to_string(lists[1].size()) + ", anniversaries: " + std::to_string(lists[2].size()) +
           ".\n";
}

} // namespace

int RunCheck(const CheckOptions&) {
    const std::optional<files::DeviceRoot> root = FindRoot();
    if (!root) {
        return kExitFailure;
    }
    bool sound = true;
    Output output;
    output.Write(CheckStore(*root, sound));
    output.Write(CheckTags(*root, sound));
    return output.Finish() && sound ? kExitSuccess : kExitFailure;
}

} // namespace tavo::tools
