#pragma once

#include <string>
#include <vector>

namespace qz7 {

// The words of the command line behind the program's own name, each in UTF-8 (on Linux, where a
// name may be anything, as it stands).
std::vector<std::string> ProgramArguments(int argc, char** argv);

}  // namespace qz7
