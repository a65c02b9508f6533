#include "desktop/toolkit/radio_font.h"

#include <algorithm>
#include <string_view>

namespace qz7 {
namespace {

constexpr const char* kFace = "QZ7";
constexpr DWORD kCharacterSet = 254;

Font CreateFontOf(int height, DWORD character_set) {
  return Font(CreateFontA(height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, character_set,
                          OUT_RASTER_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                          FIXED_PITCH | FF_MODERN, kFace));
}

bool HasFace(HDC device, const Font& font) {
  const HGDIOBJ old = SelectObject(device, font.get());
  char face[LF_FACESIZE] = "";
  GetTextFaceA(device, LF_FACESIZE, face);
  SelectObject(device, old);
  return std::string_view(face) == kFace;
}

}  // namespace

int RadioFontHeight(int height, int dots_per_inch) {
  return height * std::max(1, dots_per_inch / USER_DEFAULT_SCREEN_DPI);
}

Font CreateRadioFont(HWND window, int base_height) {
  const HDC device = GetDC(window);
  const int height = RadioFontHeight(base_height, GetDeviceCaps(device, LOGPIXELSY));
  Font font = CreateFontOf(height, kCharacterSet);
  // Where the number of the character set means another one, the face is found without it.
  if (!HasFace(device, font)) {
    font = CreateFontOf(height, DEFAULT_CHARSET);
  }
  ReleaseDC(window, device);
  return font;
}

void UseFont(HWND dialog, int control, const Font& font) {
  SendDlgItemMessageA(dialog, control, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), TRUE);
}

SIZE CharacterSize(HWND window, const Font& font) {
  const HDC device = GetDC(window);
  const HGDIOBJ old = SelectObject(device, font.get());
  TEXTMETRICA metrics{};
  GetTextMetricsA(device, &metrics);
  SelectObject(device, old);
  ReleaseDC(window, device);
  return {metrics.tmAveCharWidth, metrics.tmHeight};
}

}  // namespace qz7
