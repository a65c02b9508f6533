#pragma once

#include <windows.h>

#include <array>
#include <string>

#include "core/editors/list_find.h"
#include "core/editors/list_history.h"
#include "core/files/document.h"
#include "core/files/window_place.h"
#include "desktop/toolkit/radio_font.h"
#include "resources/control_ids.h"

namespace qz7 {

// What the parts of the memory list's window share.

inline constexpr int kListColumnCount = 7;

// The columns of the list and of the header above it.
struct ListColumns {
  std::array<int, kListColumnCount> starts{};  // in characters
  int character_width = 1;
};

// The sizes that the window had when it was made.
struct ListLayout {
  SIZE window{};  // it gets no smaller
  SIZE client{};
  std::array<RECT, 11> controls{};
  RECT opened{};  // where it was opened, in the screen's pixels
};

// What the pointer tells of a row.
struct RowTips {
  HWND window = nullptr;
  int row = -1;
};

struct ListWindow {
  Document& document;
  Font font{};
  ListColumns columns{};
  ListLayout layout{};
  RowTips tips{};
  ListHistory history{};
  TypedSearch typed{};
  std::string searched{};
};

inline HWND ListOf(HWND dialog) { return GetDlgItem(dialog, ID_CHANNEL_LIST); }

}  // namespace qz7
