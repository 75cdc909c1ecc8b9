// What became of an import, in words.
#include "host/exchange/import_words.h"

#include "host/exchange/calendar_text.h"

#include <cstddef>
#include <filesystem>
#include <vector>

namespace tavo::exchange {

std::string DescribeCounts(const ImportCounts& counts) {
    return std::to_string(counts.New) + " new, " + std::to_string(counts.Changed) + " changed, " +
           std::to_string(counts.Unchanged) + " unchanged, " + std::to_string(counts.Refused) + " refused" +
           (counts.Mended == 0 ? std::string() : ", " + std::to_string(counts.Mended) + " mended");
}

std::string DescribePassedOver(const ImportCounts& counts) {
    std::vector<std::string> parts;
    const auto add = [&parts](int number, std::string_view one, std::string_view several) {
        if (number > 0) {
            parts.push_back(CountOf(number, one, several));
        }
    };
    add(counts.OlderVersions, "older version of an entry", "older versions of entries");
    add(counts.Cancelled, "cancelled event", "cancelled events");
    add(counts.OtherKinds, "task or note", "tasks or notes");
    if (parts.empty()) {
        return {};
    }
    std::string text = parts.front();
    for (std::size_t index = 1; index < parts.size(); ++index) {
        text += (index + 1 == parts.size() ? " and " : ", ") + parts[index];
    }
    const bool isOne = counts.OlderVersions + counts.Cancelled + counts.OtherKinds == 1;
    return text + (isOne ? " was" : " were") + " passed over.";
}

std::string CountOf(int number, std::string_view one, std::string_view several) {
    return std::to_string(number).append(" ").append(number == 1 ? one : several);
}

std::u16string NameImport(const std::string& path) {
    return u"Import of " + DecodeText(std::filesystem::path(path).filename().string());
}

} // namespace tavo::exchange
