// A folder of memos in memory, which fails where a test wants it to.
#pragma once

#include "host/exchange/memo_folder.h"

#include <map>

namespace tavo::exchange {

class MemoryMemos final : public IMemoFolder {
  public:
    std::vector<std::string> List() override {
        std::vector<std::string> names;
        for (const auto& [name, ink] : Files) {
            names.push_back(name);
        }
        return names;
    }

    ErrorCode Read(const std::string& name, std::vector<std::uint8_t>& ink) override {
        if (Problem == ErrorCode::Success) {
            ink = Files[name];
        }
        return Problem;
    }

    ErrorCode Write(const std::string& name, std::span<const std::uint8_t> ink) override {
        if (Problem == ErrorCode::Success) {
            Files[name].assign(ink.begin(), ink.end());
        }
        return Problem;
    }

    std::map<std::string, std::vector<std::uint8_t>> Files;
    ErrorCode Problem = ErrorCode::Success; // of the next calls
};

} // namespace tavo::exchange
