// Options may be followed by their value, or have it behind an equals sign; behind -- nothing is an option.
#include "tools/word_reader.h"

namespace tavo::tools {

std::string_view WordReader::Take() {
    std::string_view word = Words[Next++];
    HasAttached = false;
    if (const std::size_t equals = word.find('='); IsOption(word) && equals != std::string_view::npos) {
        Attached = word.substr(equals + 1);
        HasAttached = true;
        word = word.substr(0, equals);
    }
    Option = word;
    if (!OptionsOver && word == "--") {
        OptionsOver = true;
        return HasMore() ? Take() : std::string_view();
    }
    return word;
}

bool WordReader::TakeValue(std::string_view& value, std::string& error) {
    if (HasAttached) {
        value = Attached;
        HasAttached = false;
    } else if (HasMore()) {
        value = Words[Next++];
    } else {
        error = "The option " + std::string(Option) + " needs a value.";
        return false;
    }
    return true;
}

bool WordReader::RefuseValue(std::string& error) const {
    if (!HasAttached) {
        return true;
    }
    error = "The option " + std::string(Option) + " takes no value.";
    return false;
}

std::string WordReader::DescribeUnknown(std::string_view word) const {
    return IsOption(word) ? "There is no option " + std::string(word) + "."
                          : "\"" + std::string(word) + "\" is one word too many.";
}

bool IsHelp(std::string_view word) {
    return word == "--help" || word == "-h";
}

} // namespace tavo::tools
