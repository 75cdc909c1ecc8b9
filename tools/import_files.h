// Which files an import is to read.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tavo::tools {

struct ImportFile {
    std::string Path;
    std::int64_t Size = 0;
};

struct PathProblem {
    std::string Path;
    std::string Reason;
};

// A file stands for itself; a folder for the .ics files in it and its subfolders, in order of their names.
void CollectFiles(const std::vector<std::string>& paths, std::vector<ImportFile>& files,
                  std::vector<PathProblem>& problems);

} // namespace tavo::tools
