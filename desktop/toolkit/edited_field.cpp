#include "desktop/toolkit/edited_field.h"

#include <commctrl.h>

#include "core/image/typed_text.h"
#include "desktop/toolkit/clipboard.h"
#include "desktop/toolkit/dialog_support.h"

namespace qz7 {
namespace {

constexpr UINT_PTR kFieldSubclass = 1;

EditedField FieldIn(HWND edit) {
  DWORD begin = 0;
  DWORD end = 0;
  SendMessageA(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&begin), reinterpret_cast<LPARAM>(&end));
  const auto limit = static_cast<std::size_t>(SendMessageA(edit, EM_GETLIMITTEXT, 0, 0));
  return {.text = WindowText(edit), .selection_begin = begin, .selection_end = end, .limit = limit};
}

void PasteFrequency(HWND edit) {
  if (const auto pasted = TextOnClipboard(edit)) {
    const std::string text = PastedFrequency(FieldIn(edit), *pasted);
    SendMessageA(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
  }
}

bool HoldsPaste(HWND edit) {
  const auto pasted = TextOnClipboard(edit);
  return !pasted || PasteWhole(FieldIn(edit), *pasted);
}

LRESULT CALLBACK FrequencyProc(HWND edit, UINT message, WPARAM w, LPARAM l, UINT_PTR id,
                               DWORD_PTR) {
  switch (message) {
    case WM_CHAR:
      if (w == ',') {
        w = static_cast<unsigned char>(FrequencyCharacter(','));
      }
      break;
    case WM_PASTE:
      PasteFrequency(edit);
      return 0;
    case WM_NCDESTROY:
      RemoveWindowSubclass(edit, FrequencyProc, id);
      break;
    default:
      break;
  }
  return DefSubclassProc(edit, message, w, l);
}

LRESULT CALLBACK WholePasteProc(HWND edit, UINT message, WPARAM w, LPARAM l, UINT_PTR id,
                                DWORD_PTR) {
  if (message == WM_PASTE && !HoldsPaste(edit)) {
    MessageBeep(MB_OK);
    return 0;
  }
  if (message == WM_NCDESTROY) {
    RemoveWindowSubclass(edit, WholePasteProc, id);
  }
  return DefSubclassProc(edit, message, w, l);
}

}  // namespace

void TakeCommasAsPoints(HWND edit) { SetWindowSubclass(edit, FrequencyProc, kFieldSubclass, 0); }

void RefuseLongPastes(HWND edit) { SetWindowSubclass(edit, WholePasteProc, kFieldSubclass, 0); }

}  // namespace qz7
