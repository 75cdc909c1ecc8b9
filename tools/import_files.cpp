// Which files an import is to read.
#include "tools/import_files.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace tavo::tools {
namespace {

namespace fs = std::filesystem;

bool IsCalendarName(const fs::path& path) {
    std::string extension = path.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(), [](char character) {
        return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
    });
    return extension == ".ics" || extension == ".ical";
}

ImportFile MakeFile(const fs::path& path) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(path, error);
    return {path.string(), error ? 0 : static_cast<std::int64_t>(size)};
}

void CollectFolder(const fs::path& folder, std::vector<ImportFile>& files, std::vector<PathProblem>& problems) {
    std::vector<fs::path> found;
    std::error_code error;
    // Links to folders are not followed, so a link in a circle is harmless.
    fs::recursive_directory_iterator entry(folder, error);
    for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
        std::error_code ignored; // an entry that cannot be looked at is not a calendar file
        if (IsCalendarName(entry->path()) && entry->is_regular_file(ignored)) {
            found.push_back(entry->path());
        }
    }
    if (error) {
        problems.push_back({folder.string(), error.message()});
    }
    std::sort(found.begin(), found.end());
    std::transform(found.begin(), found.end(), std::back_inserter(files), MakeFile);
}

} // namespace

void CollectFiles(const std::vector<std::string>& paths, std::vector<ImportFile>& files,
                  std::vector<PathProblem>& problems) {
    for (const std::string& path : paths) {
        std::error_code error;
        const fs::file_status status = fs::status(path, error);
        if (status.type() == fs::file_type::not_found) {
            problems.push_back({path, "there is no such file or folder"});
        } else if (error) {
            problems.push_back({path, error.message()});
        } else if (fs::is_directory(status)) {
            CollectFolder(path, files, problems);
        } else {
            files.push_back(MakeFile(path));
        }
    }
}

} // namespace tavo::tools
