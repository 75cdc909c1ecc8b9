// A folder of the test's own, and processes to try things in.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

namespace tavo::files {

class TemporaryFolder {
  public:
    TemporaryFolder() : FolderPath(std::filesystem::canonical(std::filesystem::temp_directory_path()) / "tavo-XXXXXX") {
        if (mkdtemp(FolderPath.data()) == nullptr) {
            std::abort();
        }
    }

    ~TemporaryFolder() {
        std::error_code ignored; // a leftover does no harm
        std::filesystem::remove_all(FolderPath, ignored);
    }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& Path() const { return FolderPath; }

    std::string operator/(std::string_view name) const { return FolderPath + '/' + std::string(name); }

    void Put(std::string_view name, std::string_view bytes) const {
        const std::filesystem::path path = *this / name;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << bytes;
    }

    std::string Get(std::string_view name) const {
        std::ifstream file(*this / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    bool Has(std::string_view name) const { return std::filesystem::exists(*this / name); }

    // Names in a folder, sorted.
    std::vector<std::string> NamesIn(std::string_view folder) const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(*this / folder)) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

  private:
    std::string FolderPath;
};

inline std::vector<std::uint8_t> BytesOf(std::string_view text) {
    return {text.begin(), text.end()};
}

// How a process of its own ends that runs `action`: its result, or 128 and the number of the signal that ended it.
inline int RunApart(const std::function<int()>& action) {
    const pid_t child = fork();
    if (child == 0) {
        _exit(action());
    }
    int status = 0;
    if (waitpid(child, &status, 0) != child) {
        return -1;
    }
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

// The same as a user whom permissions stop. The folder is given to that user first.
inline int RunUnprivileged(const std::string& folder, const std::function<int()>& action) {
    constexpr uid_t kNobody = 65534;
    if (geteuid() == 0) {
        static_cast<void>(!chown(folder.c_str(), kNobody, kNobody)); // the action fails visibly if this does
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
            static_cast<void>(!lchown(entry.path().c_str(), kNobody, kNobody));
        }
    }
    return RunApart([&] {
        if (geteuid() == 0 && (setgid(kNobody) != 0 || setuid(kNobody) != 0)) {
            return 99;
        }
        return action();
    });
}

} // namespace tavo::files
