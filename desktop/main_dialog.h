#pragma once

#include <windows.h>

#include <string>

namespace qz7 {

// The modeless dialog that fills the main window and shows the document's general settings. It
// keeps its handle in AppState; null when it cannot be created.
HWND CreateMainDialog(HWND main_window);

// Puts a text into the line at the dialog's lower edge; a tooltip has what does not fit there.
void ShowStatusText(const std::string& text);

}  // namespace qz7
