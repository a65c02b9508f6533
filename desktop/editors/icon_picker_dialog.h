#pragma once

#include <windows.h>

#include <array>
#include <memory>
#include <type_traits>

#include "core/editors/icons.h"

namespace qz7 {

struct BitmapDeleter {
  void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
using Bitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, BitmapDeleter>;

// The pictures of the icons, from the resource library.
using IconPictures = std::array<Bitmap, kIconCount>;
IconPictures LoadIconPictures();

// Fills an owner-drawn list of several columns so that it shows all icons at once.
void FillIconPicker(HWND list);
// The answer to its WM_DRAWITEM: the picture as large as its place allows, the chosen one framed.
void DrawIconItem(const DRAWITEMSTRUCT& item, const IconPictures& pictures);

}  // namespace qz7
