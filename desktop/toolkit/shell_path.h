#pragma once

#include <filesystem>

namespace qz7 {

// The path as the shell, the browser and the system's boxes and fonts take it: without the mark of
// long paths, and where it reaches 260 characters, with its folder's short name. It stays long on a
// drive that keeps no short names.
std::filesystem::path ShellPath(const std::filesystem::path& path);

}  // namespace qz7
