#pragma once

#include "desktop/editors/list_window.h"

namespace qz7 {

// The memory list's window is resizable: the list takes the room, the buttons stay at their edges.
// Where it was left is a preference; without one it stands where dialogs stand.

// When the controls have the places of the template.
void OpenLayout(HWND dialog, ListLayout& layout);
// When the window closes: remembers its place if the user has changed it.
void CloseLayout(HWND dialog, const ListLayout& layout);

// When the window has got another size.
void Arrange(HWND dialog, const ListLayout& layout);
void LimitSize(const ListLayout& layout, MINMAXINFO& limits);

}  // namespace qz7
