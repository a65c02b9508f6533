#include "ctl/input.h"

#include <fstream>
#include <iostream>
#include <system_error>

#include "core/files/paths.h"

namespace qz7 {
namespace {

constexpr std::size_t kLargestInput = 64U << 20;

// All of it, but no more than tells that it is too large.
std::vector<std::uint8_t> ReadBytes(std::istream& in) {
  constexpr std::size_t kPiece = 1U << 16;
  std::vector<std::uint8_t> bytes;
  while (in && bytes.size() <= kLargestInput) {
    const std::size_t used = bytes.size();
    bytes.resize(used + kPiece);
    in.read(reinterpret_cast<char*>(bytes.data() + used), kPiece);
    bytes.resize(used + static_cast<std::size_t>(in.gcount()));
  }
  return bytes;
}

}  // namespace

Input ReadInput(const std::filesystem::path& path) {
  std::ifstream file;
  std::error_code error;
  if (path != "-" && !std::filesystem::is_directory(SystemPath(path), error)) {
    file = OpenToRead(path);
  }
  if (path != "-" && !file.is_open()) {
    return {.state = Input::State::kCannotOpen, .bytes = {}};
  }
  std::vector<std::uint8_t> bytes = ReadBytes(path == "-" ? std::cin : file);
  const bool too_large = bytes.size() > kLargestInput;
  return {.state = too_large ? Input::State::kTooLarge : Input::State::kRead,
          .bytes = std::move(bytes)};
}

}  // namespace qz7
