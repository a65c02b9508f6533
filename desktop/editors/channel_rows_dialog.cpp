#include "desktop/editors/channel_rows_dialog.h"

#include <algorithm>

#include "core/image/channel_text.h"
#include "desktop/toolkit/held_drawing.h"

namespace qz7 {
namespace {

LRESULT Ask(HWND list, UINT message, WPARAM w = 0, LPARAM l = 0) {
  return SendMessageA(list, message, w, l);
}

}  // namespace

std::vector<int> SelectedRows(HWND list) {
  std::vector<int> rows(static_cast<std::size_t>(std::max<LRESULT>(0, Ask(list, LB_GETSELCOUNT))));
  Ask(list, LB_GETSELITEMS, rows.size(), reinterpret_cast<LPARAM>(rows.data()));
  return rows;
}

void ShowRow(HWND list, int row) {
  RECT client;
  GetClientRect(list, &client);
  const int visible = std::max(
      1, static_cast<int>(client.bottom / std::max<LRESULT>(1, Ask(list, LB_GETITEMHEIGHT))));
  const int top = static_cast<int>(Ask(list, LB_GETTOPINDEX));
  if (row < top) {
    Ask(list, LB_SETTOPINDEX, static_cast<WPARAM>(row));
  } else if (row >= top + visible) {
    const int new_top = row - visible + 1;
    Ask(list, LB_SETTOPINDEX, static_cast<WPARAM>(new_top));
  }
}

void SelectRows(HWND list, std::span<const int> rows) {
  const int top = static_cast<int>(Ask(list, LB_GETTOPINDEX));
  Ask(list, LB_SETSEL, FALSE, -1);
  for (const int row : rows) {
    Ask(list, LB_SETSEL, TRUE, row);
  }
  if (!rows.empty()) {
    Ask(list, LB_SETANCHORINDEX, static_cast<WPARAM>(rows.front()));
    Ask(list, LB_SETCARETINDEX, static_cast<WPARAM>(rows.back()));
  }
  Ask(list, LB_SETTOPINDEX, static_cast<WPARAM>(top));
}

void SelectRow(HWND list, int row) { SelectRows(list, {&row, 1}); }

void FillRows(HWND list, const CloneImage& image, const RegionVariant& region) {
  const HeldDrawing held(list);
  const int count = GetChannelCount(image);
  constexpr int kRowBytes = 40;
  Ask(list, LB_INITSTORAGE, static_cast<WPARAM>(count), LPARAM{count} * kRowBytes);
  for (int n = 1; n <= count; ++n) {
    Ask(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(FormatListRow(image, n, region).c_str()));
  }
}

void RedrawRowsFrom(HWND list, const CloneImage& image, const RegionVariant& region, int n,
                    int rows) {
  const int top = static_cast<int>(Ask(list, LB_GETTOPINDEX));
  for (int row = n - 1; row < n - 1 + rows; ++row) {
    Ask(list, LB_DELETESTRING, static_cast<WPARAM>(row));
    Ask(list, LB_INSERTSTRING, static_cast<WPARAM>(row),
        reinterpret_cast<LPARAM>(FormatListRow(image, row + 1, region).c_str()));
  }
  Ask(list, LB_SETTOPINDEX, static_cast<WPARAM>(top));
}

}  // namespace qz7
