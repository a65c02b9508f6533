#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "core/files/profile.h"

namespace qz7 {

// A path among the preferences, at most `most` characters of it. A path that this text cannot hold,
// for its letters or its length, stands whole beside it under the key with "Utf8" behind it, its
// UTF-8 bytes written as "%XX" where they are no plain characters; it counts as long as the text is
// still the path's.
std::filesystem::path ReadProfilePath(const Profile& profile, const std::string& key,
                                      std::size_t most);
void WriteProfilePath(const std::string& key, const std::filesystem::path& path, std::size_t most);

}  // namespace qz7
