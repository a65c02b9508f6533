#include "desktop/link/meter_painting.h"

#include <string>

#include "desktop/link/meter_bar.h"

namespace qz7 {
namespace {

constexpr COLORREF kBarColour = RGB(0, 0, 255);
constexpr COLORREF kBackground = RGB(255, 255, 255);

void PaintFrame(HDC device, const RECT& area) {
  FrameRect(device, &area, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
}

// Black and white: the text on white, then inverted as far as the bar goes.
void DrawInner(HDC device, HWND control, SIZE inner, const ProgressMeter& meter) {
  const HGDIOBJ font = reinterpret_cast<HGDIOBJ>(SendMessageA(control, WM_GETFONT, 0, 0));
  const HGDIOBJ old_font =
      SelectObject(device, font != nullptr ? font : GetStockObject(DEFAULT_GUI_FONT));
  PatBlt(device, 0, 0, inner.cx, inner.cy, WHITENESS);
  const std::string text = ProgressText(meter);
  const int length = static_cast<int>(text.size());
  SIZE extent{};
  GetTextExtentPoint32A(device, text.c_str(), length, &extent);
  SetBkMode(device, TRANSPARENT);
  TextOutA(device, (inner.cx - extent.cx) / 2, (inner.cy - extent.cy) / 2, text.c_str(), length);
  const MeterBar bar = MeterBarOf(meter.percent, inner.cx);
  if (bar.filled_width != 0) {
    PatBlt(device, 0, 0, bar.filled_width, inner.cy, DSTINVERT);
  }
  SelectObject(device, old_font);
}

}  // namespace

void PaintMeter(const DRAWITEMSTRUCT& item, const ProgressMeter& meter) {
  PaintFrame(item.hDC, item.rcItem);
  const SIZE inner = {InsideMeterFrame(item.rcItem.right), InsideMeterFrame(item.rcItem.bottom)};
  const HBITMAP bitmap = CreateBitmap(inner.cx, inner.cy, 1, 1, nullptr);
  const HDC memory = CreateCompatibleDC(item.hDC);
  if (bitmap != nullptr && memory != nullptr) {
    const HGDIOBJ old_bitmap = SelectObject(memory, bitmap);
    DrawInner(memory, item.hwndItem, inner, meter);
    // Black becomes the text colour, white the background.
    SetTextColor(item.hDC, kBarColour);
    SetBkColor(item.hDC, kBackground);
    BitBlt(item.hDC, 1, 1, inner.cx, inner.cy, memory, 0, 0, SRCCOPY);
    SelectObject(memory, old_bitmap);
  }
  DeleteDC(memory);
  DeleteObject(bitmap);
}

}  // namespace qz7
