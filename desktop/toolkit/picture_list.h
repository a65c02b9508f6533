#pragma once

#include <windows.h>

#include <span>
#include <string>
#include <vector>

namespace qz7 {

// Lists whose entries are pictures of the resource library.

// What WM_DRAWITEM brings.
const DRAWITEMSTRUCT& DrawnItem(LPARAM parameter);

// The pictures of a list, for as long as its dialog is open.
class PictureList {
 public:
  explicit PictureList(std::span<const std::string> names);
  PictureList(const PictureList&) = delete;
  PictureList& operator=(const PictureList&) = delete;
  ~PictureList();

  // The entries and the closed list become as high as the first picture, whatever their font, and
  // the open list does not take the whole screen.
  void Fit(HWND dialog, int control) const;
  // The answer to WM_DRAWITEM: the entry's picture at its top left corner, a frame around the
  // chosen entry and the focus around the focused one. An empty choice shows nothing.
  void Draw(const DRAWITEMSTRUCT& item) const;

 private:
  std::vector<HBITMAP> pictures_;
};

}  // namespace qz7
