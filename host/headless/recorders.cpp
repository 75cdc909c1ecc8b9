// Keeping calls.
#include "host/headless/recorders.h"

namespace tavo::headless {

bool RecordedSound::PlaySoundW(std::u16string_view path) {
    Calls.emplace_back(path);
    Playing.clear();
    if (path.empty()) {
        return true;
    }
    if (Files.FindFirstFileW(path) == nullptr) {
        return false;
    }
    Playing = path;
    return true;
}

bool RecordedProcesses::CreateProcessW(std::u16string_view path, std::u16string_view commandLine) {
    Started.push_back({std::u16string(path), std::u16string(commandLine)});
    return CanStart;
}

int RecordedRegistry::GetProfileIntW(std::u16string_view section, std::u16string_view key, int standard) {
    return ProfileInt(std::u16string(section), std::u16string(key)).value_or(standard);
}

bool RecordedRegistry::WriteProfileInt(std::u16string_view section, std::u16string_view key, int value) {
    Profile[{std::u16string(section), std::u16string(key)}] = value;
    return true;
}

ErrorCode RecordedRegistry::RegCreateKeyExW(std::u16string_view path, KeyHandle& key) {
    if (Failure != ErrorCode::Success) {
        return Failure;
    }
    key = KeyHandle{++LastKey};
    OpenKeys[key] = path;
    return ErrorCode::Success;
}

ErrorCode RecordedRegistry::RegSetValueExW(KeyHandle key, std::u16string_view name, std::uint32_t type,
                                           std::span<const std::uint8_t> data) {
    if (WriteFailure != ErrorCode::Success) {
        return WriteFailure;
    }
    const auto open = OpenKeys.find(key);
    if (open == OpenKeys.end()) {
        return ErrorCode::CannotComplete;
    }
    Values[{open->second, std::u16string(name)}] = {type, {data.begin(), data.end()}};
    return ErrorCode::Success;
}

std::optional<std::u16string> RecordedRegistry::TextValue(const std::u16string& path,
                                                          const std::u16string& name) const {
    const auto found = Values.find({path, name});
    if (found == Values.end() || found->second.Type != REG_SZ) {
        return std::nullopt;
    }
    const std::vector<std::uint8_t>& data = found->second.Data;
    constexpr int byteBits = 8;
    std::u16string text;
    for (std::size_t index = 0; index + 1 < data.size(); index += 2) {
        text += static_cast<char16_t>(data[index] | (data[index + 1] << byteBits));
    }
    if (!text.empty() && text.back() == 0) {
        text.pop_back();
    }
    return text;
}

std::optional<std::size_t> RecordedRegistry::ValueSize(const std::u16string& path, const std::u16string& name) const {
    const auto found = Values.find({path, name});
    return found == Values.end() ? std::nullopt : std::optional(found->second.Data.size());
}

std::optional<int> RecordedRegistry::ProfileInt(const std::u16string& section, const std::u16string& key) const {
    const auto found = Profile.find({section, key});
    return found == Profile.end() ? std::nullopt : std::optional(found->second);
}

} // namespace tavo::headless
