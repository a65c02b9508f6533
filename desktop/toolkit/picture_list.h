#pragma once

#include <windows.h>

#include <span>
#include <string>
#include <vector>

namespace qz7 {

// Lists whose entries are pictures of the resource library.

// What WM_MEASUREITEM and WM_DRAWITEM bring.
MEASUREITEMSTRUCT& MeasuredItem(LPARAM parameter);
const DRAWITEMSTRUCT& DrawnItem(LPARAM parameter);

// The answer to WM_MEASUREITEM: the size of this picture.
void MeasurePicture(MEASUREITEMSTRUCT& item, const char* picture);
// The closed list becomes high enough for its pictures, whatever its font, and the open one does
// not take the whole screen.
void FitPictureList(HWND dialog, int control);

// The pictures of a list, for as long as its dialog is open.
class PictureList {
 public:
  explicit PictureList(std::span<const std::string> names);
  PictureList(const PictureList&) = delete;
  PictureList& operator=(const PictureList&) = delete;
  ~PictureList();

  // The answer to WM_DRAWITEM: the entry's picture at its top left corner, a frame around the
  // chosen entry and the focus around the focused one. An empty choice shows nothing.
  void Draw(const DRAWITEMSTRUCT& item) const;

 private:
  std::vector<HBITMAP> pictures_;
};

}  // namespace qz7
