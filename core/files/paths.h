#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>

namespace qz7 {

// File names are std::filesystem::path from where they come in to the system's call: no narrow text
// holds every name that Windows has. Their texts are PathText of core/files/seams.h.

inline constexpr std::filesystem::path::value_type kPathSeparator = '\\';

// Where the name behind the last "\" or "/" starts in path.native(); 0 for a bare name.
std::size_t NameOffset(const std::filesystem::path& path);
std::filesystem::path NamePart(const std::filesystem::path& path);

// The folder, "\" and the name; also for a folder that is a drive alone.
std::filesystem::path InFolder(const std::filesystem::path& folder,
                               const std::filesystem::path& name);

// Whether two paths are the same but for the case of their letters.
bool SamePath(const std::filesystem::path& a, const std::filesystem::path& b);

// The path as the system's calls take it whatever its length: Windows wants a mark before those
// beyond 260 characters.
std::filesystem::path SystemPath(const std::filesystem::path& path);

// Binary; not open where the file cannot be read.
std::ifstream OpenToRead(const std::filesystem::path& path);

}  // namespace qz7
