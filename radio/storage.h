#pragma once

#include <string>

#include "radio/memory.h"

namespace qz7radio {

// Each returns why it could not be done, or an empty text when it was.

// Fills `memory` from a file of the bare memory or from a radio data file, which holds it among
// other things. A file that does not exist leaves `memory` as it is.
std::string LoadMemory(const std::string& path, Memory& memory);

// Whether a received memory may go into this file: it holds a bare memory or does not exist yet.
// Anything else is somebody's other file and stays.
std::string CheckTarget(const std::string& path);

// Replaces the file in one step.
std::string StoreMemory(const std::string& path, const Memory& memory);

}  // namespace qz7radio
