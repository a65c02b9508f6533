#pragma once

#include <string>

namespace qz7 {

// The JSON schema (draft 2020-12) of what dump writes and build takes.
std::string CodeplugSchema();

}  // namespace qz7
