#pragma once

#include <windows.h>

#include <span>
#include <vector>

#include "desktop/command_table.h"

namespace qz7 {

// The keys of these commands, as the system takes them.
std::vector<ACCEL> Accelerators(std::span<const Command> commands);

// The program's message loop, until it is told to end. While a dialog disables the main window, no
// key is a command.
void RunMessageLoop();

}  // namespace qz7
