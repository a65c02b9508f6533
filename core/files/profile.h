#pragma once

#include <cstddef>
#include <string>

namespace qz7 {

// The preferences file "Tamro.ini", section kProgramTitle: text values by key, defined once per
// program. Failures are not reported.

// The value of a key, cut after `most` characters; `missing` where there is no such key.
std::string ReadProfile(const std::string& key, const std::string& missing, std::size_t most);
void WriteProfile(const std::string& key, const std::string& value);

}  // namespace qz7
