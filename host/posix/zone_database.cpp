// The files of the time zone database.
#include "host/posix/zone_database.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>
#include <system_error>

namespace tavo::posix {

namespace {

constexpr std::uintmax_t kMaxZoneFile = 1 << 20; // bytes

std::filesystem::path ZoneFolder() {
    const char* folder = std::getenv("TZDIR");
    return folder != nullptr && *folder != '\0' ? folder : "/usr/share/zoneinfo";
}

std::string ReadFirstLine(const std::filesystem::path& path) {
    std::ifstream file(path);
    std::string line;
    return std::getline(file, line) ? line : std::string();
}

} // namespace

std::optional<std::string> ZoneDatabase::ReadZone(const std::string& name) {
    std::error_code error;
    const std::filesystem::path path = ZoneFolder() / name;
    if (!std::filesystem::is_regular_file(path, error) || std::filesystem::file_size(path, error) > kMaxZoneFile) {
        return std::nullopt;
    }
    std::ifstream file(path, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
}

std::string ZoneDatabase::GetDeviceZone() {
    if (const char* name = std::getenv("TZ"); name != nullptr && *name != '\0') {
        return *name == ':' ? name + 1 : name;
    }
    std::error_code error;
    const std::string target = std::filesystem::read_symlink("/etc/localtime", error).string();
    constexpr std::string_view kMark = "zoneinfo/";
    if (const std::size_t at = target.find(kMark); !error && at != std::string::npos) {
        std::string name = target.substr(at + kMark.size());
        return name == "Etc/UTC" ? "UTC" : name;
    }
    return ReadFirstLine("/etc/timezone");
}

std::string ZoneDatabase::GetRelease() {
    const std::string line = ReadFirstLine(ZoneFolder() / "tzdata.zi");
    constexpr std::string_view kMark = "# version ";
    return line.starts_with(kMark) ? line.substr(kMark.size()) : "";
}

rules::IZoneSource& SystemZones() {
    static ZoneDatabase database;
    return database;
}

} // namespace tavo::posix
