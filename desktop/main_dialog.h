#pragma once

#include <windows.h>

namespace qz7 {

// The modeless dialog that fills the main window and shows the document's general settings. It
// keeps its handle in AppState; null when it cannot be created.
HWND CreateMainDialog(HWND main_window);

}  // namespace qz7
