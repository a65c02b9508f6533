#pragma once

#include <filesystem>

#include "core/files/defaults_record.h"

namespace qz7 {

// Folders are without a "\" at their end.
std::filesystem::path ProgramFolder();
std::filesystem::path ProgramPath();
// A file that ships beside the program.
std::filesystem::path BesideProgram(const char* name);

// "Tamro.ini": in the system's profile folder where that can be written, otherwise in the user's
// own folder; there may be none of those.
std::filesystem::path ChooseProfilePath(const std::filesystem::path& system_folder,
                                        const std::filesystem::path& user_folder);
// The one of this run, chosen once; the user's folder is "Tamro" in the application data.
const std::filesystem::path& ProfilePath();

// "qz7.def" as of the current folder of now.
DefaultsFile FindDefaultsFile();

}  // namespace qz7
