#pragma once

namespace qz7 {

// Runs a command of the main menu; false for a number that is none.
bool RunCommand(int command);

}  // namespace qz7
