#pragma once

#include <string>

namespace qz7 {

// Where a list of samples/ lies.
std::string SamplePath(const std::string& name);

}  // namespace qz7
