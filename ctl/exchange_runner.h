#pragma once

#include <string>

#include "core/link/clone_read.h"
#include "core/link/clone_write.h"

namespace qz7 {

// Each runs an exchange that has begun to its end, with a progress bar, and returns true on
// success. An error message ends it; so do Ctrl-C and a port that has gone away, and both say so.
bool RunCloneRead(CloneRead& read, SerialPort& port, const std::string& device);
bool RunCloneWrite(CloneWrite& write, SerialPort& port, const std::string& device);

// From now on Ctrl-C asks an exchange to end instead of ending the program.
void CatchInterrupt();

}  // namespace qz7
