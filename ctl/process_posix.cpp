#include "ctl/process.h"

namespace qz7 {

std::vector<std::string> ProgramArguments(int argc, char** argv) {
  return argc > 0 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

}  // namespace qz7
