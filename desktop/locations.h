#pragma once

#include <filesystem>

#include "core/files/defaults_record.h"

namespace qz7 {

// Folders are without a "\" at their end.
std::filesystem::path ProgramFolder();
std::filesystem::path ProgramPath();
// A file that ships beside the program.
std::filesystem::path BesideProgram(const char* name);

// "Tamro.ini": in the system's profile folder where that can be written (tried once in a run),
// otherwise in the user's application data.
const std::filesystem::path& ProfilePath();

// "qz7.def" as of the current folder of now.
DefaultsFile FindDefaultsFile();

}  // namespace qz7
