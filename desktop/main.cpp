#include <windows.h>

#include "core/files/unexpected.h"
#include "desktop/program.h"

int WINAPI WinMain(HINSTANCE instance, HINSTANCE /*previous*/, LPSTR /*command_line*/,
                   int show_state) {
  try {
    return qz7::RunProgram(instance, GetCommandLineW(), show_state);
  } catch (...) {
    qz7::ShowUnexpected();
    return -1;
  }
}
