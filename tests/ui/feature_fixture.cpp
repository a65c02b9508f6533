#include "tests/ui/feature_fixture.h"

#include <commctrl.h>

namespace qz7 {

int Selection(HWND dialog, int list) {
  return static_cast<int>(SendDlgItemMessageA(dialog, list, CB_GETCURSEL, 0, 0));
}

std::string EntryText(HWND dialog, int list, int position) {
  char text[50] = "";
  SendDlgItemMessageA(dialog, list, CB_GETLBTEXT, static_cast<WPARAM>(position),
                      reinterpret_cast<LPARAM>(text));
  return text;
}

std::string FaceOf(HWND dialog, int control) {
  LOGFONTA font{};
  GetObjectA(reinterpret_cast<HFONT>(SendDlgItemMessageA(dialog, control, WM_GETFONT, 0, 0)),
             sizeof font, &font);
  return font.lfFaceName;
}

std::string TooltipOf(HWND dialog, int control) {
  struct Search {
    HWND dialog;
    HWND tool;
    std::string text;
  } search{dialog, GetDlgItem(dialog, control), ""};
  const auto look = [](HWND window, LPARAM found) -> BOOL {
    auto& wanted = *reinterpret_cast<Search*>(found);
    char name[40] = "";
    GetClassNameA(window, name, sizeof name);
    if (std::string(name) == TOOLTIPS_CLASSA &&
        GetWindow(window, GW_OWNER) == GetAncestor(wanted.dialog, GA_ROOT)) {
      char text[1024] = "";
      TOOLINFOA tool{};
      tool.cbSize = sizeof tool;
      tool.hwnd = wanted.dialog;
      tool.uId = reinterpret_cast<UINT_PTR>(wanted.tool);
      tool.lpszText = text;
      SendMessageA(window, TTM_GETTEXTA, sizeof text, reinterpret_cast<LPARAM>(&tool));
      wanted.text += text;
    }
    return TRUE;
  };
  EnumThreadWindows(GetCurrentThreadId(), look, reinterpret_cast<LPARAM>(&search));
  return search.text;
}

}  // namespace qz7
