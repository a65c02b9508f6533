#pragma once

#include <string>

#include "core/files/defaults_record.h"

namespace qz7 {

// Folders are without a "\" at their end.
std::string ProgramFolder();
std::string ProgramPath();
// A file that ships beside the program.
std::string BesideProgram(const char* name);

// "Tamro.ini": in the system's profile folder where that can be written (tried once in a run),
// otherwise in the user's application data.
const std::string& ProfilePath();

// "qz7.def" as of the current folder of now.
DefaultsFile FindDefaultsFile();

}  // namespace qz7
