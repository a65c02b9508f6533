#include "desktop/editors/list_keys.h"

#include <algorithm>
#include <array>

#include "desktop/toolkit/dialog_support.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

struct ListKey {
  int key;
  unsigned held;
  int command;
};
constexpr unsigned kShift = 1;
constexpr unsigned kCtrl = 2;
constexpr unsigned kAlt = 4;

constexpr std::array kKeys = {
    ListKey{VK_UP, kAlt, ID_MOVE_UP},
    ListKey{VK_UP, kCtrl, ID_MOVE_UP},
    ListKey{VK_DOWN, kAlt, ID_MOVE_DOWN},
    ListKey{VK_DOWN, kCtrl, ID_MOVE_DOWN},
    ListKey{VK_INSERT, 0, ID_INSERT_CHANNEL},
    ListKey{VK_DELETE, 0, ID_DELETE_CHANNEL},
    ListKey{VK_DELETE, kCtrl, ID_CLEAR_CHANNEL},
    ListKey{'Z', kCtrl, ID_UNDO},
    ListKey{VK_BACK, kAlt, ID_UNDO},
    ListKey{'Y', kCtrl, ID_REDO},
    ListKey{'Z', kCtrl | kShift, ID_REDO},
    ListKey{'X', kCtrl, ID_CUT},
    ListKey{VK_DELETE, kShift, ID_CUT},
    ListKey{'C', kCtrl, ID_COPY},
    ListKey{VK_INSERT, kCtrl, ID_COPY},
    ListKey{'V', kCtrl, ID_PASTE},
    ListKey{VK_INSERT, kShift, ID_PASTE},
    ListKey{'F', kCtrl, ID_FIND},
    ListKey{VK_F3, 0, ID_FIND_NEXT},
    ListKey{'A', kCtrl, ID_SELECT_ALL_ROWS},
};

unsigned HeldKeys() {
  const auto held = [](int key, unsigned mark) { return GetKeyState(key) < 0 ? mark : 0U; };
  return held(VK_SHIFT, kShift) | held(VK_CONTROL, kCtrl) | held(VK_MENU, kAlt);
}

}  // namespace

std::optional<int> CommandOfKey(int key) {
  const unsigned held = HeldKeys();
  const auto* entry = std::find_if(kKeys.begin(), kKeys.end(), [&](const ListKey& candidate) {
    return candidate.key == key && candidate.held == held;
  });
  return entry != kKeys.end() ? std::optional(entry->command) : std::nullopt;
}

void ShowListMenu(HWND dialog, POINT at, const ListHistory& history) {
  const HMENU menu = LoadMenuA(dialog_modules.program, "MemoryListMenu");
  const auto enable = [&](UINT command, bool enabled) {
    EnableMenuItem(menu, command, enabled ? MF_ENABLED : MF_GRAYED);
  };
  enable(ID_UNDO, CanUndo(history));
  enable(ID_REDO, CanRedo(history));
  TrackPopupMenu(GetSubMenu(menu, 0), TPM_RIGHTBUTTON, at.x, at.y, 0, dialog, nullptr);
  DestroyMenu(menu);
}

}  // namespace qz7
