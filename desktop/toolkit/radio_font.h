#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace qz7 {

struct FontDeleter {
  void operator()(HFONT font) const { DeleteObject(font); }
};
using Font = std::unique_ptr<std::remove_pointer_t<HFONT>, FontDeleter>;

inline constexpr int kListFontHeight = 16;
inline constexpr int kNameFontHeight = 18;

// The height in pixels at a resolution: the font has bitmaps of the two heights above, of 5/4 and
// of 3/2 of them; from twice the usual resolution on they are shown in whole multiples.
int RadioFontHeight(int height, int dots_per_inch);

// The fixed-pitch font of the radio's own texts at the window's resolution. It must outlive the
// controls that use it.
Font CreateRadioFont(HWND window, int height);
// Of that height on the device.
Font CreateRadioFont(HDC device, int pixels);

// Gives it to a control.
void UseFont(HWND dialog, int control, const Font& font);

// Height and width of its characters in pixels.
SIZE CharacterSize(HWND window, const Font& font);

}  // namespace qz7
