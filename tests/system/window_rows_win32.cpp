#include "tests/system/window_rows_win32.h"

#include <algorithm>

namespace {

Fields FieldsOf(const RECT& area) {
  return {std::to_string(area.left), std::to_string(area.top), std::to_string(area.right),
          std::to_string(area.bottom)};
}

std::string RowText(HWND list, WPARAM row) {
  std::wstring text(static_cast<std::size_t>(Ask(list, LB_GETTEXTLEN, row)) + 1, L'\0');
  const LRESULT size = Ask(list, LB_GETTEXT, row, reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(std::max<LRESULT>(0, size)));
  return Utf8(text);
}

HWND ListOf(const Fields& fields) { return ControlOf(fields[1], fields[2], "ListBox"); }

struct OpenedClipboard {
  OpenedClipboard() {
    if (!OpenClipboard(nullptr)) {
      throw Refused("the clipboard is another program's");
    }
  }
  ~OpenedClipboard() { CloseClipboard(); }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;
};

}  // namespace

Fields Rows(const Fields& fields) {
  const HWND list = ListOf(fields);
  const auto count = static_cast<WPARAM>(Ask(list, LB_GETCOUNT));
  Fields rows;
  for (WPARAM row = 0; row < count; ++row) {
    rows.push_back(RowText(list, row));
  }
  return rows;
}

Fields SelectedRows(const Fields& fields) {
  const HWND list = ListOf(fields);
  const auto count = static_cast<WPARAM>(Ask(list, LB_GETCOUNT));
  Fields rows;
  for (WPARAM row = 0; row < count; ++row) {
    if (Ask(list, LB_GETSEL, row) > 0) {
      rows.push_back(std::to_string(row));
    }
  }
  return rows;
}

Fields RowArea(const Fields& fields) {
  const HWND list = ListOf(fields);
  RECT area{};
  if (Ask(list, LB_GETITEMRECT, static_cast<WPARAM>(Number(fields[3])),
          reinterpret_cast<LPARAM>(&area)) == LB_ERR) {
    throw Refused("no such row: " + fields[3]);
  }
  MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&area), 2);
  return FieldsOf(area);
}

Fields Area(const Fields& fields) {
  RECT area{};
  GetWindowRect(fields[2].empty() ? WindowOf(fields[1]) : ControlOf(fields[1], fields[2]), &area);
  return FieldsOf(area);
}

Fields Inside(const Fields& fields) {
  const HWND window = WindowOf(fields[1]);
  RECT area{};
  GetClientRect(window, &area);
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&area), 2);
  return FieldsOf(area);
}

Fields Said(const Fields& fields) { return {TextOf(WindowOf(fields[1]))}; }

Fields Clipboard(const Fields& /*fields*/) {
  const OpenedClipboard opened;
  const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
  if (memory == nullptr) {
    return {""};
  }
  std::string text = Utf8(static_cast<const wchar_t*>(GlobalLock(memory)));
  GlobalUnlock(memory);
  return {text};
}

Fields SetClipboard(const Fields& fields) {
  const std::wstring text = Wide(fields[1]);
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
  std::copy_n(text.c_str(), text.size() + 1, static_cast<wchar_t*>(GlobalLock(memory)));
  GlobalUnlock(memory);
  const OpenedClipboard opened;
  EmptyClipboard();
  if (SetClipboardData(CF_UNICODETEXT, memory) == nullptr) {
    throw Refused("the clipboard takes no text");
  }
  return {};
}
