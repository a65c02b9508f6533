#include "desktop/toolkit/picture_list.h"

#include <commctrl.h>

#include "desktop/toolkit/dialog_support.h"

namespace qz7 {
namespace {

SIZE SizeOf(HBITMAP picture) {
  BITMAP bitmap{};
  GetObjectA(picture, sizeof bitmap, &bitmap);
  return {bitmap.bmWidth, bitmap.bmHeight};
}

void DrawPicture(HDC device, POINT corner, HBITMAP picture) {
  const SIZE size = SizeOf(picture);
  const HDC memory = CreateCompatibleDC(device);
  const HGDIOBJ old = SelectObject(memory, picture);
  BitBlt(device, corner.x, corner.y, size.cx, size.cy, memory, 0, 0, SRCCOPY);
  SelectObject(memory, old);
  DeleteDC(memory);
}

// Two pixels wide: inside the open list the pictures alone would not tell which one is chosen.
void FrameChosenEntry(HDC device, RECT area) {
  FrameRect(device, &area, GetSysColorBrush(COLOR_HIGHLIGHT));
  InflateRect(&area, -1, -1);
  FrameRect(device, &area, GetSysColorBrush(COLOR_HIGHLIGHT));
}

}  // namespace

const DRAWITEMSTRUCT& DrawnItem(LPARAM parameter) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the message brings it as a number
  return *reinterpret_cast<const DRAWITEMSTRUCT*>(parameter);
}

PictureList::PictureList(std::span<const std::string> names) {
  for (const std::string& name : names) {
    pictures_.push_back(LoadBitmapA(dialog_modules.library, name.c_str()));
  }
}

PictureList::~PictureList() {
  for (const HBITMAP picture : pictures_) {
    DeleteObject(picture);
  }
}

void PictureList::Fit(HWND dialog, int control) const {
  constexpr auto kClosedList = static_cast<WPARAM>(-1);
  constexpr WPARAM kOpenEntries = 7;
  const LONG height = SizeOf(pictures_.front()).cy;
  SendDlgItemMessageA(dialog, control, CB_SETITEMHEIGHT, 0, height);
  SendDlgItemMessageA(dialog, control, CB_SETITEMHEIGHT, kClosedList, height);
  SendDlgItemMessageA(dialog, control, CB_SETMINVISIBLE, kOpenEntries, 0);
}

void PictureList::Draw(const DRAWITEMSTRUCT& item) const {
  FillRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_WINDOW));
  if (item.itemID < pictures_.size()) {
    DrawPicture(item.hDC, {item.rcItem.left, item.rcItem.top}, pictures_[item.itemID]);
  }
  const bool closed = (item.itemState & ODS_COMBOBOXEDIT) != 0;
  if ((item.itemState & ODS_SELECTED) != 0 && !closed) {
    FrameChosenEntry(item.hDC, item.rcItem);
  }
  if ((item.itemState & ODS_FOCUS) != 0) {
    DrawFocusRect(item.hDC, &item.rcItem);
  }
}

}  // namespace qz7
