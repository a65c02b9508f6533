#include "desktop/editors/memory_list_dialog.h"

#include <windows.h>
// Behind <windows.h>.
#include <commctrl.h>

#include <vector>

#include "core/editors/memory_list.h"
#include "core/files/unexpected.h"
#include "desktop/editors/channel_rows_dialog.h"
#include "desktop/editors/list_columns.h"
#include "desktop/editors/list_commands.h"
#include "desktop/editors/list_keys.h"
#include "desktop/editors/list_layout.h"
#include "desktop/editors/list_tips.h"
#include "desktop/editors/list_window.h"
#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/help.h"

namespace qz7 {
namespace {

constexpr UINT_PTR kListSubclass = 1;

void OnOk(HWND dialog) {
  Document& document = StateOf<ListWindow>(dialog).document;
  switch (AcceptMemoryList(document.image, document.working_copy)) {
    case ListEnd::kStaysOpen:
      SelectRow(ListOf(dialog), 0);
      ShowRow(ListOf(dialog), 0);
      return;
    case ListEnd::kChanged:
      AcceptImage(document);
      break;
    case ListEnd::kUnchanged:
      break;
  }
  EndDialog(dialog, 0);
}

void OnCancel(HWND dialog) {
  Document& document = StateOf<ListWindow>(dialog).document;
  if (MayCancelMemoryList(document.image, document.working_copy)) {
    TakeWorkingCopy(document);
    EndDialog(dialog, -1);
  }
}

void OnButton(HWND dialog, int button);

void RunKey(HWND list, WPARAM key) {
  if (const auto command = CommandOfKey(static_cast<int>(key))) {
    OnButton(GetParent(list), *command);
  }
}

// A row that is not selected is what its menu is for.
void SelectUnder(HWND list, POINT at) {
  const int row = RowAt(list, at);
  if (row >= 0 && SendMessageA(list, LB_GETSEL, static_cast<WPARAM>(row), 0) == 0) {
    SelectRow(list, row);
  }
  SetFocus(list);
}

POINT PointOf(LPARAM l) { return {static_cast<short>(LOWORD(l)), static_cast<short>(HIWORD(l))}; }

// What a list box does not tell its dialog.
void OnListMessage(HWND list, UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_SYSKEYDOWN:
      RunKey(list, w);
      break;
    case WM_MOUSEMOVE:
      PointAtRow(GetParent(list), StateOf<ListWindow>(GetParent(list)), PointOf(l));
      break;
    case WM_RBUTTONDOWN:
      SelectUnder(list, PointOf(l));
      break;
    default:
      break;
  }
}

LRESULT CALLBACK ListProc(HWND list, UINT message, WPARAM w, LPARAM l, UINT_PTR id, DWORD_PTR) {
  try {
    OnListMessage(list, message, w, l);
  } catch (...) {
    ShowUnexpected();
  }
  if (message == WM_NCDESTROY) {
    RemoveWindowSubclass(list, ListProc, id);
  }
  return DefSubclassProc(list, message, w, l);
}

// At the pointer; from the keyboard, at the row with the caret.
void OnMenu(HWND dialog, WPARAM w, LPARAM l) {
  const HWND list = ListOf(dialog);
  if (w != reinterpret_cast<WPARAM>(list)) {
    return;
  }
  POINT at = PointOf(l);
  if (l == -1) {
    const auto caret = static_cast<WPARAM>(SendMessageA(list, LB_GETCARETINDEX, 0, 0));
    RECT row{};
    SendMessageA(list, LB_GETITEMRECT, caret, reinterpret_cast<LPARAM>(&row));
    at = {row.left, row.bottom};
    ClientToScreen(list, &at);
  }
  ShowListMenu(dialog, at, StateOf<ListWindow>(dialog).history);
}

BOOL OnInit(HWND dialog, LPARAM state) {
  const std::vector<Tooltip> tooltips = {
      {ID_EDIT_CHANNEL, "Enter, or a double-click"},
      {ID_MOVE_UP, "Alt+Up"},
      {ID_MOVE_DOWN, "Alt+Down"},
      {ID_INSERT_CHANNEL, "Insert key: an empty channel here, the others move down"},
      {ID_DELETE_CHANNEL, "Delete key: the channels below move up"},
      {ID_CLEAR_CHANNEL, "Ctrl+Delete: empties the channel, the others stay"},
  };
  SetUpDialog(dialog, state, tooltips);
  auto& window = StateOf<ListWindow>(dialog);
  window.font = CreateRadioFont(dialog, kListFontHeight);
  UseFont(dialog, ID_CHANNEL_LIST, window.font);
  SetColumns(dialog, window);
  OpenLayout(dialog, window.layout);
  AddRowTips(dialog, window.tips);
  const HWND list = ListOf(dialog);
  SetWindowSubclass(list, ListProc, kListSubclass, 0);
  FillRows(list, window.document.image, window.document.region);
  SelectRow(list, 0);
  SetFocus(list);
  return FALSE;
}

// Each gives the keyboard back to the list: on a button the arrows would go to other buttons, and
// Enter would press one of them.
void OnButton(HWND dialog, int button) {
  switch (button) {
    case IDOK:
      OnOk(dialog);
      break;
    case IDCANCEL:
      OnCancel(dialog);
      break;
    case ID_HELP:
      ShowHelp(kHelpMemoryList);
      break;
    default:
      RunListCommand(dialog, button);
      break;
  }
  MoveFocus(dialog, ID_CHANNEL_LIST);
}

void OnCommand(HWND dialog, int control, int notification) {
  if (control != ID_CHANNEL_LIST) {
    OnButton(dialog, control);
  } else if (notification == LBN_DBLCLK) {
    OnButton(dialog, ID_EDIT_CHANNEL);
  }
}

INT_PTR OnKey(HWND dialog, int key) {
  constexpr INT_PTR kListsOwn = -1;
  constexpr INT_PTR kDone = -2;
  const auto command = CommandOfKey(key);
  if (!command) {
    return kListsOwn;
  }
  OnButton(dialog, *command);
  return kDone;
}

// Left to the list, a character would select all rows up to the next one that begins with it.
INT_PTR OnCharacter(HWND dialog, WPARAM w) {
  constexpr INT_PTR kDone = -2;
  FindTyped(dialog, static_cast<char>(LOWORD(w)), HIWORD(w));
  return kDone;
}

// What comes before the window is set up has no state to work on.
bool IsSetUp(HWND dialog) { return GetWindowLongPtrA(dialog, DWLP_USER) != 0; }

}  // namespace

extern "C" INT_PTR CALLBACK DlgProcListMemory(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  if (message != WM_INITDIALOG && !IsSetUp(dialog)) {
    return FALSE;
  }
  switch (message) {
    case WM_VKEYTOITEM:
      return OnKey(dialog, LOWORD(w));
    case WM_CHARTOITEM:
      return OnCharacter(dialog, w);
    case WM_CONTEXTMENU:
      OnMenu(dialog, w, l);
      return TRUE;
    case WM_SIZE:
      Arrange(dialog, StateOf<ListWindow>(dialog).layout);
      return TRUE;
    case WM_GETMINMAXINFO:
      // NOLINTNEXTLINE(performance-no-int-to-ptr): the system passes the pointer as a number
      LimitSize(StateOf<ListWindow>(dialog).layout, *reinterpret_cast<MINMAXINFO*>(l));
      return TRUE;
    case WM_DESTROY:
      CloseLayout(dialog, StateOf<ListWindow>(dialog).layout);
      return TRUE;
    case WM_DRAWITEM:
      // NOLINTNEXTLINE(performance-no-int-to-ptr): the system passes the pointer as a number
      PaintHeader(dialog, StateOf<ListWindow>(dialog).columns,
                  *reinterpret_cast<const DRAWITEMSTRUCT*>(l));
      return TRUE;
    default:
      return HandleDialogMessage({OnInit, OnCommand}, dialog, message, w, l);
  }
}

bool ShowMemoryListDialog(Document& document) {
  TakeWorkingCopy(document);
  ListWindow window{.document = document};
  window.history = StartHistory(document);
  return RunDialog("DLLDlgListMemory", DlgProcListMemory, &window) == 0;
}

}  // namespace qz7
