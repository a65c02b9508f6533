#pragma once

#include <filesystem>

namespace qz7 {

// Shows the version record of a program file; without one the fields stay as the template has them.
void ShowAboutDialog(const std::filesystem::path& program_path);

}  // namespace qz7
