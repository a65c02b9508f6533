#include "desktop/editors/list_layout.h"

#include <algorithm>

namespace qz7 {
namespace {

constexpr const char* kPlaceKey = "MemoryListPlace";

// How a control follows the lower right corner of the window.
struct Anchor {
  int control;
  bool moves_right;
  bool moves_down;
  bool grows_right;
  bool grows_down;
};
constexpr Anchor AtTheRight(int control) { return {control, true, false, false, false}; }
constexpr Anchor AtTheCorner(int control) { return {control, true, true, false, false}; }
constexpr std::array kAnchors = {
    Anchor{ID_CHANNEL_HEADER, false, false, true, false},
    Anchor{ID_CHANNEL_LIST, false, false, true, true},
    AtTheRight(ID_EDIT_CHANNEL),
    AtTheRight(ID_MOVE_UP),
    AtTheRight(ID_MOVE_DOWN),
    AtTheRight(ID_INSERT_CHANNEL),
    AtTheRight(ID_DELETE_CHANNEL),
    AtTheRight(ID_CLEAR_CHANNEL),
    AtTheCorner(IDOK),
    AtTheCorner(IDCANCEL),
    AtTheCorner(ID_HELP),
};
static_assert(kAnchors.size() == std::tuple_size_v<decltype(ListLayout::controls)>);

SIZE SizeOf(const RECT& area) { return {area.right - area.left, area.bottom - area.top}; }

SIZE ClientSize(HWND window) {
  RECT area{};
  GetClientRect(window, &area);
  return SizeOf(area);
}

// As near to the remembered place as the screen that is there now lets it be.
void TakePlace(HWND dialog, const WindowPlace& place, SIZE smallest) {
  const RECT wanted{place.left, place.top, place.left + place.width, place.top + place.height};
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoA(MonitorFromRect(&wanted, MONITOR_DEFAULTTONEAREST), &monitor);
  const RECT& work = monitor.rcWork;
  const SIZE room = SizeOf(work);
  const LONG width = std::max(smallest.cx, std::min<LONG>(place.width, room.cx));
  const LONG height = std::max(smallest.cy, std::min<LONG>(place.height, room.cy));
  const LONG left = std::max(work.left, std::min<LONG>(place.left, work.right - width));
  const LONG top = std::max(work.top, std::min<LONG>(place.top, work.bottom - height));
  SetWindowPos(dialog, nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

void OpenLayout(HWND dialog, ListLayout& layout) {
  GetWindowRect(dialog, &layout.opened);
  layout.window = SizeOf(layout.opened);
  layout.client = ClientSize(dialog);
  for (std::size_t i = 0; i < kAnchors.size(); ++i) {
    RECT& area = layout.controls[i];
    GetWindowRect(GetDlgItem(dialog, kAnchors[i].control), &area);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&area), 2);
  }
  if (const auto place = ReadWindowPlace(kPlaceKey)) {
    TakePlace(dialog, *place, layout.window);
    GetWindowRect(dialog, &layout.opened);
  }
}

void CloseLayout(HWND dialog, const ListLayout& layout) {
  RECT area{};
  GetWindowRect(dialog, &area);
  if (EqualRect(&area, &layout.opened) == FALSE) {
    const SIZE size = SizeOf(area);
    WriteWindowPlace(kPlaceKey, {.left = static_cast<int>(area.left),
                                 .top = static_cast<int>(area.top),
                                 .width = static_cast<int>(size.cx),
                                 .height = static_cast<int>(size.cy)});
  }
}

void Arrange(HWND dialog, const ListLayout& layout) {
  const SIZE client = ClientSize(dialog);
  const int right = client.cx - layout.client.cx;
  const int down = client.cy - layout.client.cy;
  HDWP moves = BeginDeferWindowPos(static_cast<int>(kAnchors.size()));
  for (std::size_t i = 0; i < kAnchors.size(); ++i) {
    const Anchor& anchor = kAnchors[i];
    const RECT& area = layout.controls[i];
    const SIZE size = SizeOf(area);
    moves = DeferWindowPos(moves, GetDlgItem(dialog, anchor.control), nullptr,
                           area.left + (anchor.moves_right ? right : 0),
                           area.top + (anchor.moves_down ? down : 0),
                           size.cx + (anchor.grows_right ? right : 0),
                           size.cy + (anchor.grows_down ? down : 0), SWP_NOZORDER | SWP_NOACTIVATE);
  }
  EndDeferWindowPos(moves);
}

void LimitSize(const ListLayout& layout, MINMAXINFO& limits) {
  limits.ptMinTrackSize = {layout.window.cx, layout.window.cy};
}

}  // namespace qz7
