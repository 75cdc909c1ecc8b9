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
    return {path.string(), error ? 0 : static_cast<std::int64_t>(size), false};
}

void CollectFolder(const fs::path& folder, std::vector<ImportFile>& files, std::vector<PathProblem>& problems) {
    std::vector<fs::path> found;
    std::error_code error;
    fs::recursive_directory_iterator entry(folder, error);
    for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
        std::error_code ignored; // what cannot be looked at is no file
        const bool isCalendar = IsCalendarName(entry->path());
        if (entry->is_symlink(ignored) && entry->is_directory(ignored)) {
            problems.push_back({entry->path().string(), "passed over: a link to a folder", false});
        } else if (isCalendar && entry->is_regular_file(ignored)) {
            found.push_back(entry->path());
        } else if (isCalendar && !entry->is_directory(ignored)) {
            problems.push_back({entry->path().string(), "passed over: not a regular file", false});
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
        if (path == "-") {
            files.push_back({"standard input", 0, true});
        } else if (status.type() == fs::file_type::not_found) {
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
