#include <windows.h>

#include "desktop/program.h"

int WINAPI WinMain(HINSTANCE instance, HINSTANCE /*previous*/, LPSTR /*command_line*/,
                   int show_state) {
  return qz7::RunProgram(instance, GetCommandLineW(), show_state);
}
