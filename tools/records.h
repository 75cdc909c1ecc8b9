// Lists for other programs, the same of every command that lists: tab-separated lines or JSON.
#pragma once

#include "tools/arguments.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tavo::tools {

// Appends records to a text. In JSON all are one array of objects, one on each line; otherwise each is a line of its
// fields' values, separated by tabs, in which signs stand for line breaks and tabs.
class Records {
  public:
    Records(ListFormat format, std::string& text) : Format(format), Text(text) {}

    void Begin();
    void Add(std::string_view name, std::string_view value);
    void Add(std::string_view name, std::int64_t value);
    void Add(std::string_view name, bool value);
    void End();
    // Behind the last one; there may have been none.
    void Finish();

  private:
    void BeginField(std::string_view name);
    void AddQuoted(std::string_view value);

    ListFormat Format;
    std::string& Text;
    bool HasRecords = false;
    bool HasFields = false; // of this record
};

} // namespace tavo::tools
