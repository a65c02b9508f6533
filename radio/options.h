#pragma once

#include <optional>
#include <string>
#include <vector>

#include "radio/faults.h"
#include "radio/mode.h"

namespace qz7radio {

// Exit status. A failed exchange alone ends nothing; kExitFailed means that the one exchange asked
// for never came about.
inline constexpr int kExitDone = 0;
inline constexpr int kExitFailed = 1;
inline constexpr int kExitWrongUsage = 2;

struct Options {
  Mode mode = Mode::kServe;
  bool wire_speed = true;
  std::string image;  // empty: none
  std::string link;   // empty: none
  std::vector<Fault> faults;
};

// Reads the command line. Without a result there is nothing left to do but to exit with `status`:
// the help was asked for, or what is wrong has been said.
std::optional<Options> ReadOptions(int argc, char** argv, int& status);

}  // namespace qz7radio
