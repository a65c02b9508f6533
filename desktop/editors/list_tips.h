#pragma once

#include "desktop/editors/list_window.h"

namespace qz7 {

// Makes the window that tells what a row of the memory list has no room for.
void AddRowTips(HWND dialog, RowTips& tips);

// When the pointer is over a point of the list: the tip becomes that of the row there.
void PointAtRow(HWND dialog, ListWindow& window, POINT at);

// The row at a point of the list; -1 for none.
int RowAt(HWND list, POINT at);

}  // namespace qz7
