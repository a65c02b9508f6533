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

// The height in pixels at a resolution: the font has bitmaps of the two heights above, which finer
// screens show twice as large, three times and so on.
int RadioFontHeight(int height, int dots_per_inch);

// The fixed-pitch font of the radio's own texts at the window's resolution. It must outlive the
// controls that use it.
Font CreateRadioFont(HWND window, int height);

// Gives it to a control.
void UseFont(HWND dialog, int control, const Font& font);

// Height and width of its characters in pixels.
SIZE CharacterSize(HWND window, const Font& font);

}  // namespace qz7
