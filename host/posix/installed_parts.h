// Where the parts of this system lie, found from the place of the one that runs: beside each other in a build, in the
// folders of a prefix once they are installed.
#pragma once

#include <string>

namespace tavo::posix {

// The folder of the running executable; empty when the system does not tell.
std::string RunningProgramFolder();

// The path of one of our programs, seen from a folder of them: where it is, or else where it would be beside them.
std::string FindProgram(const std::string& folder, const std::string& name);

// The folder of what all our programs share, seen from a folder of them; it need not be there.
std::string FindShared(const std::string& folder, const std::string& name);

} // namespace tavo::posix
