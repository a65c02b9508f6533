#pragma once

#include <string>

namespace qz7 {

// Shows the version record of a program file; without one the fields stay as the template has them.
void ShowAboutDialog(const std::string& program_path);

}  // namespace qz7
