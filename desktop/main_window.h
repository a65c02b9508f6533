#pragma once

#include <windows.h>

namespace qz7 {

inline constexpr const char* kMainWindowClass = "QZ7HMainWin";

bool RegisterMainWindow();
// Not yet shown; the main dialog gives it its size. Null when it cannot be created.
HWND CreateMainWindow();

// The status line says anew where things are, once the messages before this one are handled.
void RefreshStatusLine();

// Once the program answers: the first message that waits, so that no window opens before it.
void InstallFontSoon();

// The program of this main window, whichever process it is, comes to the front. With a pop-up open
// the main window is disabled and is not activated: it would take the keyboard for nothing.
void BringToFront(HWND main_window);

// Frees the resource library where it is still loaded.
void UnloadResourceLibrary();

}  // namespace qz7
