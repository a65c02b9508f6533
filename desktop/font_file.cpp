#include "desktop/font_file.h"

#include <windows.h>

#include <filesystem>

#include "desktop/locations.h"
#include "desktop/toolkit/shell_path.h"

namespace qz7 {
namespace {

// Nobody waits for the other windows: one that hangs must not keep the program from starting.
void TellFontChange() { PostMessageA(HWND_BROADCAST, WM_FONTCHANGE, 0, 0); }

std::filesystem::path FontPath() { return ShellPath(BesideProgram("qz7.fon")); }

}  // namespace

void InstallFontFile() {
  if (AddFontResourceW(FontPath().c_str()) != 0) {
    TellFontChange();
  }
}

void RemoveFontFile() {
  if (RemoveFontResourceW(FontPath().c_str())) {
    TellFontChange();
  }
}

}  // namespace qz7
