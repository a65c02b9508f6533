#include "desktop/editors/list_columns.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace qz7 {
namespace {

struct Column {
  const char* title;
  int characters;  // of its longest text
};
// "999.9900" and the shift mark are 9 characters.
constexpr std::array<Column, kListColumnCount> kColumns = {
    Column{"Ch", 3},   Column{"Receive", 9}, Column{"Tone", 3}, Column{"Skip", 1},
    Column{"Mask", 1}, Column{"Power", 1},   Column{"Name", 8}};
constexpr int kColumnGap = 2;       // in characters, behind the longest text
constexpr int kTitleGap = 12;       // in pixels, behind a title
constexpr int kUnitsPerLetter = 4;  // of the tab stops

HGDIOBJ FontOf(HWND control) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the system hands the font out as a number
  return reinterpret_cast<HGDIOBJ>(SendMessageA(control, WM_GETFONT, 0, 0));
}

int TitleWidth(HWND header, const char* title) {
  const HDC device = GetDC(header);
  const HGDIOBJ old = SelectObject(device, FontOf(header));
  SIZE size{};
  GetTextExtentPoint32A(device, title, static_cast<int>(std::strlen(title)), &size);
  SelectObject(device, old);
  ReleaseDC(header, device);
  return static_cast<int>(size.cx);
}

}  // namespace

void SetColumns(HWND dialog, ListWindow& window) {
  ListColumns& columns = window.columns;
  const HWND header = GetDlgItem(dialog, ID_CHANNEL_HEADER);
  columns.character_width = std::max(1, static_cast<int>(CharacterSize(dialog, window.font).cx));
  int start = 0;
  std::vector<int> stops;
  for (std::size_t i = 0; i < kColumns.size(); ++i) {
    columns.starts[i] = start;
    const int title = TitleWidth(header, kColumns[i].title) + kTitleGap;
    const int letters = (title + columns.character_width - 1) / columns.character_width;
    start += std::max(kColumns[i].characters + kColumnGap, letters);
    stops.push_back(start * kUnitsPerLetter);
  }
  SendMessageA(ListOf(dialog), LB_SETTABSTOPS, stops.size() - 1,
               reinterpret_cast<LPARAM>(stops.data()));
}

void PaintHeader(HWND dialog, const ListColumns& columns, const DRAWITEMSTRUCT& item) {
  RECT list{};
  GetWindowRect(ListOf(dialog), &list);
  POINT origin{0, 0};
  ClientToScreen(ListOf(dialog), &origin);
  const LONG margin = origin.x - list.left + 1;
  FillRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_BTNFACE));
  const HGDIOBJ old = SelectObject(item.hDC, FontOf(item.hwndItem));
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, GetSysColor(COLOR_BTNTEXT));
  for (std::size_t i = 0; i < kColumns.size(); ++i) {
    RECT area = item.rcItem;
    area.left += margin + columns.starts[i] * columns.character_width;
    DrawTextA(item.hDC, kColumns[i].title, -1, &area,
              DT_SINGLELINE | DT_BOTTOM | DT_NOPREFIX | DT_NOCLIP);
  }
  SelectObject(item.hDC, old);
}

}  // namespace qz7
