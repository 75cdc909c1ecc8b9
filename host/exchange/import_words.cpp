// What became of an import, in words.
#include "host/exchange/import_words.h"

#include "host/exchange/calendar_text.h"

#include <filesystem>

namespace tavo::exchange {

std::string DescribeCounts(const ImportCounts& counts) {
    return std::to_string(counts.New) + " new, " + std::to_string(counts.Changed) + " changed, " +
           std::to_string(counts.Unchanged) + " unchanged, " + std::to_string(counts.Refused) + " refused" +
           (counts.Mended == 0 ? std::string() : ", " + std::to_string(counts.Mended) + " mended");
}

std::string DescribePassedOver(const ImportCounts& counts) {
    if (counts.PassedOver == 0) {
        return {};
    }
    return CountOf(counts.PassedOver, "task, note or cancelled event was", "tasks, notes or cancelled events were") +
           " passed over.";
}

std::string CountOf(int number, std::string_view one, std::string_view several) {
    return std::to_string(number).append(" ").append(number == 1 ? one : several);
}

std::u16string NameImport(const std::string& path) {
    return u"Import of " + DecodeText(std::filesystem::path(path).filename().string());
}

} // namespace tavo::exchange
