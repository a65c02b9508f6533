#include "desktop/editors/icon_picker_dialog.h"

#include <algorithm>

#include "desktop/toolkit/dialog_support.h"

namespace qz7 {
namespace {

constexpr int kColumns = 9;
constexpr int kRows = 3;
static_assert(kColumns * kRows >= kIconCount);
constexpr int kFrame = 2;

void DrawPicture(HDC device, const RECT& area, HBITMAP picture) {
  BITMAP bitmap{};
  GetObjectA(picture, sizeof bitmap, &bitmap);
  const int width = area.right - area.left - 2 * kFrame;
  const int height = area.bottom - area.top - 2 * kFrame;
  const int side = std::min(width, height);
  const HDC memory = CreateCompatibleDC(device);
  const HGDIOBJ old = SelectObject(memory, picture);
  const int old_mode = SetStretchBltMode(device, HALFTONE);
  SetBrushOrgEx(device, 0, 0, nullptr);
  StretchBlt(device, area.left + kFrame + (width - side) / 2,
             area.top + kFrame + (height - side) / 2, side, side, memory, 0, 0, bitmap.bmWidth,
             bitmap.bmHeight, SRCCOPY);
  SetStretchBltMode(device, old_mode);
  SelectObject(memory, old);
  DeleteDC(memory);
}

void FrameItem(HDC device, RECT area) {
  for (int i = 0; i < kFrame; ++i) {
    FrameRect(device, &area, GetSysColorBrush(COLOR_HIGHLIGHT));
    InflateRect(&area, -1, -1);
  }
}

}  // namespace

IconPictures LoadIconPictures() {
  IconPictures pictures;
  for (int icon = 0; icon < kIconCount; ++icon) {
    pictures[static_cast<std::size_t>(icon)] =
        Bitmap(LoadBitmapA(dialog_modules.library, IconName(icon).c_str()));
  }
  return pictures;
}

void FillIconPicker(HWND list) {
  RECT client{};
  GetClientRect(list, &client);
  SendMessageA(list, LB_SETITEMHEIGHT, 0, client.bottom / kRows);
  SendMessageA(list, LB_SETCOLUMNWIDTH, static_cast<WPARAM>(client.right / kColumns), 0);
  for (int icon = 0; icon < kIconCount; ++icon) {
    SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(IconName(icon).c_str()));
  }
}

void DrawIconItem(const DRAWITEMSTRUCT& item, const IconPictures& pictures) {
  FillRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_WINDOW));
  if (item.itemID < pictures.size()) {
    DrawPicture(item.hDC, item.rcItem, pictures[item.itemID].get());
  }
  if ((item.itemState & ODS_SELECTED) != 0) {
    FrameItem(item.hDC, item.rcItem);
  }
  if ((item.itemState & ODS_FOCUS) != 0) {
    DrawFocusRect(item.hDC, &item.rcItem);
  }
}

}  // namespace qz7
