#pragma once

#include <span>

#include "desktop/command_table.h"

namespace qz7 {

// Every command of the main menu.
std::span<const Command> Commands();

// Runs a command of the main menu; false for a number that is none.
bool RunCommand(int command);

}  // namespace qz7
