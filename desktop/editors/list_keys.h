#pragma once

#include <windows.h>

#include <optional>

#include "core/editors/list_history.h"

namespace qz7 {

// The keys of the memory list: the command of a key that goes down, with the keys held beside it;
// nothing for the keys of the list itself.
std::optional<int> CommandOfKey(int key);

// The right mouse button's menu, at a point of the screen. What is chosen arrives as WM_COMMAND.
void ShowListMenu(HWND dialog, POINT at, const ListHistory& history);

}  // namespace qz7
