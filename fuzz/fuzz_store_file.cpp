// Opens any bytes as a store file, looks at what is in it and has it examined.
#include "host/outlook/diagnosis.h"
#include "host/outlook/occurrence_reader.h"
#include "host/outlook/store.h"
#include "host/posix/store_machine.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace {

using namespace tavo;
using namespace tavo::outlook;

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

// A folder of this process, gone with it.
class ScratchFolder {
  public:
    ScratchFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "tavo-fuzz-XXXXXX").string();
        Require(mkdtemp(pattern.data()) != nullptr);
        Path = pattern;
    }

    ~ScratchFolder() {
        std::error_code ignored; // a leftover does no harm
        std::filesystem::remove_all(Path, ignored);
    }

    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    std::filesystem::path Path;
};

std::string ReadWhole(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

StoreOptions MakeOptions(Access rights) {
    StoreOptions options;
    options.Rights = rights;
    options.DeviceZone = "UTC";
    options.LockPatience = 0;
    return options;
}

void Look(const StorePtr& store) {
    OccurrenceReader reader(store);
    const DayNumber first = DayFromCivil(2026, 1, 1);
    int lines = 0;
    // Any status will do, as long as the listing ends and is in order.
    Seconds last = INT64_MIN;
    static_cast<void>(reader.ListDays(first, first + 400, [&](const ListedOccurrence& occurrence) {
        Require(occurrence.Start >= last && occurrence.End >= occurrence.Start);
        last = occurrence.Start;
        ++lines;
    }));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const ScratchFolder kScratch;
    const std::filesystem::path path = kScratch.Path / "Outlook.db";
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
    StorePtr store;
    if (Succeeded(OpenStore(posix::SystemMachine(), path, MakeOptions(Access::ReadOnly), store))) {
        Look(store);
    }
    store.reset();
    const Diagnosis diagnosis = DiagnoseStore(posix::SystemMachine(), path, CheckDepth::Full, 0);
    Require(!diagnosis.What.empty() && (diagnosis.State == Verdict::Ok || !diagnosis.Advice.empty()));
    // Looking and examining write nothing into the file, nor does an opening that is refused.
    Require(ReadWhole(path) == bytes);
    if (Failed(OpenStore(posix::SystemMachine(), path, MakeOptions(Access::ReadWrite), store))) {
        Require(ReadWhole(path) == bytes);
    }
    store.reset();
    for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
        std::error_code ignored; // most of them are not there
        std::filesystem::remove(path.string() + suffix, ignored);
    }
    return 0;
}
