#pragma once

#include <windows.h>

#include <string>

namespace qz7 {

// The program from start to end; returns its exit code.
int RunProgram(HINSTANCE instance, const std::string& command_line, int show_state);

}  // namespace qz7
