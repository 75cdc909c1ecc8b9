// Step by step, as the program asks for it.
#include "host/backup/chosen_backup.h"

#include "host/exchange/short_text.h"
#include "host/locale/utf.h"

#include <filesystem>
#include <utility>

namespace tavo::backup {

std::optional<std::u16string> ChosenBackup::NextFile() {
    if (Chosen.empty()) {
        return std::nullopt;
    }
    const std::string path = std::exchange(Chosen, {});
    Items = 0;
    Reason.clear();
    Current = std::make_unique<DeviceBackup>(Root, path);
    return exchange::ShortenForPeople(std::filesystem::path(path).filename().string(), exchange::kLongestName);
}

bool ChosenBackup::ExportOn() {
    if (!Current || Current->Step()) {
        return Current != nullptr;
    }
    Reason = locale::ToUtf16(Current->Problem());
    Items = Current->Contents().Items;
    return false;
}

void ChosenBackup::Leave() {
    Current.reset();
}

int ChosenBackup::Progress() const {
    return Current ? Current->Progress() : 0;
}

} // namespace tavo::backup
