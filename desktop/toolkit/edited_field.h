#pragma once

#include <windows.h>

namespace qz7 {

// What fields of their own kind do with what is typed and pasted, from now on. Both are for edit
// controls of one line.

// Decimal commas become points.
void TakeCommasAsPoints(HWND edit);

// A paste that the field cannot hold whole beeps and leaves the field as it was.
void RefuseLongPastes(HWND edit);

}  // namespace qz7
