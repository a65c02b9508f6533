#pragma once

#include <filesystem>
#include <string>

#include "core/files/profile.h"

namespace qz7 {

// A section of a profile file, its values as the system gives each by its key, but read in one go:
// the system opens the file for each. Empty where it cannot be read.
Profile ReadProfileFile(const std::filesystem::path& path, const std::string& section);

}  // namespace qz7
