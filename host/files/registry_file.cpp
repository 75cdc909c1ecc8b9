// The registry's calls on its text file.
#include "host/files/registry_file.h"

#include <exception>
#include <memory>

namespace tavo::files {

namespace {

constexpr std::size_t kLargestRegistry = 4u << 20;
constexpr std::u16string_view kUserRoot = u"HKEY_CURRENT_USER\\";
constexpr std::string_view kHeading =
    "# Settings of Tavo Calendar. Lines that the program does not know are kept as they are.\n";

// "\A\\B\" and "A\B" name the same key.
std::u16string CleanPath(std::u16string_view path) {
    std::u16string clean;
    for (const char16_t unit : path) {
        if (unit != u'\\' || (!clean.empty() && clean.back() != u'\\')) {
            clean += unit;
        }
    }
    if (clean.ends_with(u'\\')) {
        clean.pop_back();
    }
    return clean;
}

std::u16string UserSection(std::u16string_view path) {
    return std::u16string(kUserRoot) + CleanPath(path);
}

} // namespace

int RegistryFile::GetProfileIntW(std::u16string_view section, std::u16string_view key, int standard) {
    try {
        RegistryText text;
        if (Load(text) != ErrorCode::Success) {
            return standard;
        }
        return text.FindNumber(ProfileSection(section), key).value_or(standard);
    } catch (const std::exception&) {
        return standard;
    }
}

bool RegistryFile::WriteProfileInt(std::u16string_view section, std::u16string_view key, int value) {
    const ErrorCode error = Rewrite([&](RegistryText& text) { text.SetNumber(ProfileSection(section), key, value); });
    return error == ErrorCode::Success;
}

ErrorCode RegistryFile::RegCreateKeyExW(std::u16string_view path, KeyHandle& key) {
    key = KeyHandle::None;
    const std::u16string section = UserSection(path);
    RegistryText known;
    ErrorCode error = Load(known);
    if (error == ErrorCode::Success && !known.HasSection(section)) {
        error = Rewrite([&](RegistryText& text) { text.AddSection(section); });
    }
    if (error != ErrorCode::Success) {
        return error;
    }
    key = static_cast<KeyHandle>(++LastKey);
    OpenKeys[key] = section;
    return ErrorCode::Success;
}

ErrorCode RegistryFile::RegSetValueExW(KeyHandle key, std::u16string_view name, std::uint32_t type,
                                       std::span<const std::uint8_t> data) {
    const auto open = OpenKeys.find(key);
    if (open == OpenKeys.end()) {
        return ErrorCode::InvalidHandle;
    }
    const RegistryValue value{type, {data.begin(), data.end()}};
    return Rewrite([&](RegistryText& text) { text.SetValue(open->second, name, value); });
}

void RegistryFile::RegCloseKey(KeyHandle key) {
    OpenKeys.erase(key);
}

std::optional<RegistryValue> RegistryFile::ReadValue(std::u16string_view path, std::u16string_view name) const {
    RegistryText text;
    if (Load(text) != ErrorCode::Success) {
        return std::nullopt;
    }
    return text.FindValue(UserSection(path), name);
}

ErrorCode RegistryFile::Rewrite(const std::function<void(RegistryText&)>& change) {
    try {
        const std::unique_ptr<disk::IHeldFile> lock = Disk.Hold(LockPath); // a disk without locks is used without
        RegistryText text;
        if (const ErrorCode error = Load(text); error != ErrorCode::Success) {
            return error;
        }
        const std::string before = text.ToText();
        change(text);
        std::string after = text.ToText();
        if (after == before) {
            return ErrorCode::Success;
        }
        if (before.empty()) {
            after.insert(0, kHeading);
        }
        return Disk.Replace(Path, {reinterpret_cast<const std::uint8_t*>(after.data()), after.size()}, {});
    } catch (const std::exception&) {
        return ErrorCode::CannotComplete;
    }
}

// A missing file is an empty registry.
ErrorCode RegistryFile::Load(RegistryText& text) const {
    std::vector<std::uint8_t> bytes;
    const ErrorCode error = Disk.Read(Path, kLargestRegistry, bytes);
    if (error == ErrorCode::FileNotFound) {
        return ErrorCode::Success;
    }
    if (error == ErrorCode::Success) {
        text = RegistryText({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    }
    return error;
}

std::u16string RegistryFile::ProfileSection(std::u16string_view section) const {
    return Company.empty() ? std::u16string(section) : Company + u'\\' + std::u16string(section);
}

} // namespace tavo::files
