#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "desktop/app_state.h"
#include "resources/control_ids.h"
#include "tests/ui/window_fixture.h"
#include "tests/unit/samples.h"

// What the tests of the import and merge windows share.
namespace qz7 {

class InterchangeWindowTest : public WindowTest {
 protected:
  InterchangeWindowTest() {
    app.import_session = {};
    app.merge_options = {};
  }

  // A file in the test's folder, to be chosen in the next file box.
  void ChooseFile(const std::string& name, const Bytes& bytes) {
    PutFile(folder.File(name), bytes);
    test_seams.files.push_back(Chosen(folder.File(name)));
  }
  void ChooseText(const std::string& name, std::string_view text) {
    ChooseFile(name, Bytes(text.begin(), text.end()));
  }

  static CloneImage& Image() { return app.document.image; }
  static void Command(int command) {
    SendMessageA(app.main_window, WM_COMMAND, static_cast<WPARAM>(command), 0);
  }
  static void Import() { Command(149); }
  static void Merge() { Command(112); }
};

// A list of the program's samples.
inline Bytes Sample(const std::string& name) { return FileBytes(SamplePath(name)); }

inline std::vector<std::string> RowsOf(HWND dialog, int list) {
  std::vector<std::string> rows;
  const LRESULT count = SendDlgItemMessageA(dialog, list, LB_GETCOUNT, 0, 0);
  for (LRESULT row = 0; row < count; ++row) {
    char text[300] = "";
    SendDlgItemMessageA(dialog, list, LB_GETTEXT, static_cast<WPARAM>(row),
                        reinterpret_cast<LPARAM>(text));
    rows.emplace_back(text);
  }
  return rows;
}

// With the mouse, where the row is.
inline void ClickRow(HWND dialog, int list, int row) {
  const HWND window = GetDlgItem(dialog, list);
  RECT area;
  SendMessageA(window, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
  const LPARAM place = MAKELPARAM(area.left + 2, area.top + 2);
  SendMessageA(window, WM_LBUTTONDOWN, MK_LBUTTON, place);
  SendMessageA(window, WM_LBUTTONUP, 0, place);
}

// One more row of a list of many choices.
inline void AddToSelection(HWND dialog, int list, int row) {
  const HWND window = GetDlgItem(dialog, list);
  SendMessageA(window, LB_SETSEL, TRUE, row);
  SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(list, LBN_SELCHANGE),
               reinterpret_cast<LPARAM>(window));
}

inline std::string CaptionOf(HWND dialog) {
  char text[200] = "";
  GetWindowTextA(dialog, text, sizeof text);
  return text;
}

// The steps of a test that are not about the dialog in question.
inline void AcceptDialog(HWND dialog) { Press(dialog, IDOK); }
inline void CancelDialog(HWND dialog) { Press(dialog, IDCANCEL); }
inline void BrowseAndAccept(HWND dialog) {
  Press(dialog, ID_BROWSE_IMPORT);
  Press(dialog, IDOK);
}
inline void BrowseWithHeaders(HWND dialog) {
  Press(dialog, ID_HEADERS);
  BrowseAndAccept(dialog);
}

}  // namespace qz7
