#pragma once

#include <windows.h>

#include <string_view>

namespace qz7 {

// The program from start to end; returns its exit code. The
// command line is the whole one.
int RunProgram(HINSTANCE instance, std::wstring_view command_line, int show_state);

}  // namespace qz7
