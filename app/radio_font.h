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

// The fixed-pitch font of the radio's own texts, its height in pixels. It has bitmaps of these two
// heights and none for finer screens. It must outlive the controls that use it.
Font CreateRadioFont(HWND window, int height);

// Gives it to a control.
void UseFont(HWND dialog, int control, const Font& font);

// Height and width of its characters in pixels.
SIZE CharacterSize(HWND window, const Font& font);

}  // namespace qz7
