#pragma once

#include <string>
#include <vector>

#include "core/image/channel_record.h"
#include "desktop/editors/memory_list_dialog.h"
#include "resources/control_ids.h"
#include "tests/ui/window_fixture.h"

// What the tests of the memory list's window share.
namespace qz7 {

inline CloneImage& Image() { return app.document.image; }
inline CloneImage& Working() { return app.document.working_copy; }

inline HWND ListOf(HWND dialog) { return GetDlgItem(dialog, ID_CHANNEL_LIST); }

inline void Select(HWND dialog, const std::vector<int>& rows) {
  SendMessageA(ListOf(dialog), LB_SETSEL, FALSE, -1);
  for (const int row : rows) {
    SendMessageA(ListOf(dialog), LB_SETSEL, TRUE, row);
    SendMessageA(ListOf(dialog), LB_SETCARETINDEX, static_cast<WPARAM>(row), 0);
  }
}
inline void Select(HWND dialog, int row) { Select(dialog, std::vector<int>{row}); }

inline std::vector<int> Selected(HWND dialog) {
  std::vector<int> rows(240);
  rows.resize(static_cast<std::size_t>(SendMessageA(ListOf(dialog), LB_GETSELITEMS, rows.size(),
                                                    reinterpret_cast<LPARAM>(rows.data()))));
  return rows;
}

inline std::string Row(HWND dialog, int row) {
  char text[100] = "";
  SendMessageA(ListOf(dialog), LB_GETTEXT, static_cast<WPARAM>(row),
               reinterpret_cast<LPARAM>(text));
  return text;
}

// A key that goes down in the list while these are held: VK_CONTROL, VK_SHIFT, VK_MENU.
inline void Key(HWND dialog, int key, const std::vector<int>& held = {}) {
  BYTE keys[256] = {};
  GetKeyboardState(keys);
  const auto hold = [&](BYTE state) {
    for (const int modifier : held) {
      keys[modifier] = state;
    }
    SetKeyboardState(keys);
  };
  const bool alt = held == std::vector<int>{VK_MENU};
  hold(0x80);
  SendMessageA(ListOf(dialog), alt ? WM_SYSKEYDOWN : WM_KEYDOWN, static_cast<WPARAM>(key),
               alt ? 0x20000001 : 1);
  hold(0);
}
inline const std::vector<int> kCtrl{VK_CONTROL};
inline const std::vector<int> kShift{VK_SHIFT};
inline const std::vector<int> kAlt{VK_MENU};

// 145.5 MHz in channel n, with a name and a comment of its own.
inline void Program(CloneImage& image, int n) {
  SetProgrammed(image, n, true);
  SetMasked(image, n, false);
  std::uint8_t* record = GetChannelRecord(image, n);
  std::fill_n(record, kRecordSize, std::uint8_t{0});
  record[2] = 0x14;
  record[3] = 0x55;
  SetChannelName(image, n, "CH" + std::to_string(n));
  ChannelComment(image, n)[0] = static_cast<char>(n);
}

class MemoryListTest : public WindowTest {
 protected:
  MemoryListTest() {
    for (const int n : {2, 3, 12, 219, 220, 221, 240}) {
      Program(Image(), n);
    }
    Working() = Image();
  }
  static void Open(const std::function<void(HWND)>& script) {
    const DialogScript run(script);
    ShowMemoryListDialog(app.document);
  }
  // Closes the list, whatever has changed.
  static void Drop(HWND dialog) {
    test_seams.answers = {Answer::kYes};
    Press(dialog, IDCANCEL);
  }
};

}  // namespace qz7
