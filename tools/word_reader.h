// Walks the words of a command line.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace tavo::tools {

// Options with their values, and what is no option.
class WordReader {
  public:
    explicit WordReader(std::span<const std::string_view> words) : Words(words) {}

    bool HasMore() const { return Next < Words.size(); }

    // The next word; of --name=value only the name, whose value waits for TakeValue.
    std::string_view Take();

    bool IsOption(std::string_view word) const { return !OptionsOver && word.size() > 1 && word[0] == '-'; }

    // False, with a sentence in `error`, when there is none.
    bool TakeValue(std::string_view& value, std::string& error);

    // False, with a sentence in `error`, for --flag=value where the flag takes none.
    bool RefuseValue(std::string& error) const;

    // Says of a word that the command does not know why not.
    std::string DescribeUnknown(std::string_view word) const;

  private:
    std::span<const std::string_view> Words;
    std::size_t Next = 0;
    std::string_view Option;
    std::string_view Attached; // what stood behind an option's equals sign
    bool HasAttached = false;
    bool OptionsOver = false;
};

bool IsHelp(std::string_view word);

} // namespace tavo::tools
