#pragma once

#include <windows.h>

namespace qz7 {

inline constexpr const char* kMainWindowClass = "QZ7HMainWin";

bool RegisterMainWindow();
// Not yet shown; the main dialog gives it its size. Null when it cannot be created.
HWND CreateMainWindow();

// Frees the resource library where it is still loaded.
void UnloadResourceLibrary();

}  // namespace qz7
