#include "desktop/toolkit/held_drawing.h"

namespace qz7 {

HeldDrawing::HeldDrawing(HWND list)
    : list_((GetWindowLongPtrA(list, GWL_STYLE) & WS_VISIBLE) != 0 ? list : nullptr) {
  if (list_ != nullptr) {
    SendMessageA(list_, WM_SETREDRAW, FALSE, 0);
  }
}

HeldDrawing::~HeldDrawing() {
  if (list_ != nullptr) {
    SendMessageA(list_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list_, nullptr, FALSE);
  }
}

}  // namespace qz7
