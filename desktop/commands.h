#pragma once

#include <filesystem>
#include <span>

#include "desktop/command_table.h"

namespace qz7 {

// Every command of the main menu.
std::span<const Command> Commands();

// Runs a command of the main menu; false for a number that is none.
bool RunCommand(int command);

// Files have been dropped on the main window, at least one, by their full paths: the first is
// opened, imported, or becomes the template.
void RunDrop(std::span<const std::filesystem::path> files);

}  // namespace qz7
