#include "desktop/editors/list_tips.h"

#include <windows.h>
// Behind <windows.h>.
#include <commctrl.h>

#include "core/editors/row_tip.h"

namespace qz7 {
namespace {

constexpr int kWidestInInches = 4;

TOOLINFOA ToolOf(HWND list) {
  TOOLINFOA tool{};
  tool.cbSize = sizeof tool;
  tool.uFlags = TTF_SUBCLASS;
  tool.hwnd = list;
  tool.uId = 1;
  return tool;
}

}  // namespace

void AddRowTips(HWND dialog, RowTips& tips) {
  tips.window =
      CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr,
                      WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT, CW_USEDEFAULT,
                      CW_USEDEFAULT, CW_USEDEFAULT, dialog, nullptr, nullptr, nullptr);
  char nothing[] = "";
  TOOLINFOA tool = ToolOf(ListOf(dialog));
  tool.lpszText = nothing;
  SendMessageA(tips.window, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
  const HDC device = GetDC(dialog);
  // A width of its own makes the line ends of a text count.
  SendMessageA(tips.window, TTM_SETMAXTIPWIDTH, 0,
               GetDeviceCaps(device, LOGPIXELSX) * kWidestInInches);
  ReleaseDC(dialog, device);
}

int RowAt(HWND list, POINT at) {
  const LRESULT place = SendMessageA(list, LB_ITEMFROMPOINT, 0, MAKELPARAM(at.x, at.y));
  return HIWORD(place) == 0 && LOWORD(place) < SendMessageA(list, LB_GETCOUNT, 0, 0) ? LOWORD(place)
                                                                                     : -1;
}

void PointAtRow(HWND dialog, ListWindow& window, POINT at) {
  const HWND list = ListOf(dialog);
  const int row = RowAt(list, at);
  if (row == window.tips.row) {
    return;
  }
  window.tips.row = row;
  std::string text = RowTip(window.document.image, row + 1, window.document.region);
  TOOLINFOA tool = ToolOf(list);
  tool.lpszText = text.data();
  // Outside every row the tip has no place to come up in.
  SendMessageA(list, LB_GETITEMRECT, static_cast<WPARAM>(row),
               reinterpret_cast<LPARAM>(&tool.rect));
  SendMessageA(window.tips.window, TTM_POP, 0, 0);
  SendMessageA(window.tips.window, TTM_NEWTOOLRECTA, 0, reinterpret_cast<LPARAM>(&tool));
  SendMessageA(window.tips.window, TTM_UPDATETIPTEXTA, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace qz7
