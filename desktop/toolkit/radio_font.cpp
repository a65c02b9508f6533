#include "desktop/toolkit/radio_font.h"

#include <algorithm>
#include <string_view>
#include <utility>

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
  constexpr int kUsual = USER_DEFAULT_SCREEN_DPI;
  if (dots_per_inch >= 2 * kUsual) {
    return height * (dots_per_inch / kUsual);
  }
  const int quarters = std::clamp(dots_per_inch * 4 / kUsual, 4, 6);
  return height * quarters / 4;
}

Font CreateRadioFont(HDC device, int pixels) {
  Font font = CreateFontOf(pixels, kCharacterSet);
  // Where the number of the character set means another one, the face is found without it.
  return HasFace(device, font) ? std::move(font) : CreateFontOf(pixels, DEFAULT_CHARSET);
}

Font CreateRadioFont(HWND window, int height) {
  const HDC device = GetDC(window);
  Font font = CreateRadioFont(device, RadioFontHeight(height, GetDeviceCaps(device, LOGPIXELSY)));
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
