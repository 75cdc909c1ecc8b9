// What a store's object was told, in order, as lines of text: "Subject Tea", "Start 46344.500000", "AllDayEvent true".
#pragma once

#include "platform/outlook.h"

#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace tavo::test {

class PutNotes {
  public:
    void Add(const std::string& name, std::u16string_view text) {
        Lines.push_back(name + ' ' + std::string(text.begin(), text.end()));
    }

    template <class Value>
    requires std::is_arithmetic_v<Value>

    void Add(const std::string& name, Value value) {
        if constexpr (std::is_same_v<Value, bool>) {
            Lines.push_back(name + (value ? " true" : " false"));
        } else {
            Lines.push_back(name + ' ' + std::to_string(value));
        }
    }

    // What was told since the last time.
    std::vector<std::string> Take() { return std::exchange(Lines, {}); }

    std::vector<std::string> Lines;
};

} // namespace tavo::test
