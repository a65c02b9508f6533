#pragma once

#include <windows.h>

namespace qz7 {

// Holds back the drawing of a list or a drop-down list, which otherwise draws at each change; it is
// drawn whole afterwards. A hidden one stays hidden. One at a time for a list.
class HeldDrawing {
 public:
  explicit HeldDrawing(HWND list);
  ~HeldDrawing();
  HeldDrawing(const HeldDrawing&) = delete;
  HeldDrawing& operator=(const HeldDrawing&) = delete;

 private:
  HWND list_;  // null when hidden: to draw again would show it
};

}  // namespace qz7
