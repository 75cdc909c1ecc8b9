// Which files an import is to read.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tavo::tools {

struct ImportFile {
    std::string Path; // of standard input, how people call it
    std::int64_t Size = 0;
    bool IsStandardInput = false;
};

struct PathProblem {
    std::string Path;
    std::string Reason;
    bool IsAskedFor = true; // false: it was met in a folder and passed over
};

// A file stands for itself, - for standard input; a folder for the .ics files in it and its subfolders, in order of
// their names. Links to folders are not followed, so that one in a circle is harmless.
void CollectFiles(const std::vector<std::string>& paths, std::vector<ImportFile>& files,
                  std::vector<PathProblem>& problems);

} // namespace tavo::tools
