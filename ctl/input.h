#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace qz7 {

// An input that is read whole.
struct Input {
  enum class State { kRead, kCannotOpen, kTooLarge };
  State state = State::kRead;
  std::vector<std::uint8_t> bytes;
};

// The file, or standard input for "-"; at most 64 MiB.
Input ReadInput(const std::filesystem::path& path);

}  // namespace qz7
