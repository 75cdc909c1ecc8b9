// Standard output, whose failures are noticed.
#pragma once

#include <string_view>

namespace tavo::tools {

class Output {
  public:
    void Write(std::string_view text);
    // False, with a sentence on standard error, when something could not be written.
    bool Finish();

  private:
    int Problem = 0; // errno of the first failure
};

// Writes a whole text; gives the exit status.
int Print(std::string_view text);

} // namespace tavo::tools
