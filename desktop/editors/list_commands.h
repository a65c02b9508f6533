#pragma once

#include "desktop/editors/list_window.h"

namespace qz7 {

// Runs a command of the memory list by its number, whatever gave it: button, key or menu. Numbers
// that are none do nothing.
void RunListCommand(HWND dialog, int command);

// A character typed in the list while the row has the caret.
void FindTyped(HWND dialog, char c, int row);

}  // namespace qz7
