#pragma once

#include "desktop/editors/list_window.h"

namespace qz7 {

// Each column is as wide as its longest text and its title; the tab stops of the list are where the
// columns start, in quarters of a character.
void SetColumns(HWND dialog, ListWindow& window);
void PaintHeader(HWND dialog, const ListColumns& columns, const DRAWITEMSTRUCT& item);

}  // namespace qz7
