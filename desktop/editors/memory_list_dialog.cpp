#include "desktop/editors/memory_list_dialog.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <vector>

#include "core/editors/memory_list.h"
#include "desktop/editors/channel_editor_dialog.h"
#include "desktop/editors/channel_rows_dialog.h"
#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/help.h"
#include "desktop/toolkit/radio_font.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

struct Column {
  const char* title;
  int characters;  // of its longest text
};
// "999.9900" and the shift mark are 9 characters.
constexpr std::array kColumns = {Column{"Ch", 3},   Column{"Receive", 9}, Column{"Tone", 3},
                                 Column{"Skip", 1}, Column{"Mask", 1},    Column{"Power", 1},
                                 Column{"Name", 8}};
constexpr int kColumnGap = 2;       // in characters, behind the longest text
constexpr int kTitleGap = 12;       // in pixels, behind a title
constexpr int kUnitsPerLetter = 4;  // of the tab stops

struct ListWindow {
  Document& document;
  Font font{};
  std::array<int, kColumns.size()> columns{};  // where each starts, in characters
  int character_width = 1;
};

HWND ListOf(HWND dialog) { return GetDlgItem(dialog, ID_CHANNEL_LIST); }

// The row that a command works on. Several selected rows are none: it would change only one.
std::optional<int> SelectedRow(HWND list) {
  const std::vector<int> rows = SelectedRows(list);
  return rows.size() == 1 ? std::optional(rows.front()) : std::nullopt;
}

// The row that was selected before is shown where it was; one that is selected anew comes into
// view.
void ShowChange(HWND dialog, const ListChange& change, std::optional<int> selected_before) {
  if (change.beep) {
    MessageBeep(MB_OK);
    return;
  }
  const HWND list = ListOf(dialog);
  ChangeRows(list, [&] {
    const Document& document = StateOf<ListWindow>(dialog).document;
    RedrawRowsFrom(list, document.image, document.region, change.first_row + 1, change.row_count);
    if (change.selection) {
      SelectRow(list, *change.selection);
      if (change.selection != selected_before) {
        ShowRow(list, *change.selection);
      }
    }
  });
}

using ListCommand = ListChange (*)(CloneImage& image, std::optional<int> row);

ListCommand CommandOf(int control) {
  switch (control) {
    case ID_MOVE_UP:
      return MoveRowUp;
    case ID_MOVE_DOWN:
      return MoveRowDown;
    case ID_INSERT_CHANNEL:
      return InsertRow;
    case ID_DELETE_CHANNEL:
      return DeleteRow;
    case ID_CLEAR_CHANNEL:
      return ClearRow;
    default:
      return nullptr;
  }
}

void RunListCommand(HWND dialog, ListCommand command) {
  const std::optional<int> row = SelectedRow(ListOf(dialog));
  ShowChange(dialog, command(StateOf<ListWindow>(dialog).document.image, row), row);
}

void OnEdit(HWND dialog) {
  const HWND list = ListOf(dialog);
  auto& window = StateOf<ListWindow>(dialog);
  const RowToEdit edit = ChannelToEdit(SelectedRows(list));
  if (edit.beep) {
    MessageBeep(MB_OK);
  }
  if (edit.channel == 0) {
    return;
  }
  const auto written = [&](int n) {
    ChangeRows(list, [&] {
      const std::vector<int> selected = SelectedRows(list);
      RedrawRowsFrom(list, window.document.image, window.document.region, n, 1);
      if (!selected.empty()) {
        SelectRow(list, selected.front());
      }
    });
  };
  const auto shown = [&](int n) {
    SelectRow(list, n - 1);
    ShowRow(list, n - 1);
  };
  ShowChannelEditorDialog(window.document, edit.channel, {.written = written, .shown = shown});
}

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

HGDIOBJ FontOf(HWND control) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the system hands the font out as a number
  return reinterpret_cast<HGDIOBJ>(SendMessageA(control, WM_GETFONT, 0, 0));
}

int TitleWidth(HWND header, const char* title) {
  const HDC device = GetDC(header);
  const HGDIOBJ old = SelectObject(device, FontOf(header));
  SIZE size{};
  GetTextExtentPoint32A(device, title, static_cast<int>(std::strlen(title)), &size);
  SelectObject(device, old);
  ReleaseDC(header, device);
  return static_cast<int>(size.cx);
}

// Each column is as wide as its longest text and its title; the tab stops of the list are where the
// columns start, in quarters of a character.
void SetColumns(HWND dialog, ListWindow& window) {
  const HWND header = GetDlgItem(dialog, ID_CHANNEL_HEADER);
  window.character_width = std::max(1, static_cast<int>(CharacterSize(dialog, window.font).cx));
  int start = 0;
  std::vector<int> stops;
  for (std::size_t i = 0; i < kColumns.size(); ++i) {
    window.columns[i] = start;
    const int title = TitleWidth(header, kColumns[i].title) + kTitleGap;
    const int letters = (title + window.character_width - 1) / window.character_width;
    start += std::max(kColumns[i].characters + kColumnGap, letters);
    stops.push_back(start * kUnitsPerLetter);
  }
  SendMessageA(ListOf(dialog), LB_SETTABSTOPS, stops.size() - 1,
               reinterpret_cast<LPARAM>(stops.data()));
}

void PaintHeader(HWND dialog, const DRAWITEMSTRUCT& item) {
  const auto& window = StateOf<ListWindow>(dialog);
  RECT list{};
  GetWindowRect(ListOf(dialog), &list);
  POINT origin{0, 0};
  ClientToScreen(ListOf(dialog), &origin);
  const LONG margin = origin.x - list.left + 1;
  FillRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_BTNFACE));
  const HGDIOBJ old = SelectObject(item.hDC, FontOf(item.hwndItem));
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, GetSysColor(COLOR_BTNTEXT));
  for (std::size_t i = 0; i < kColumns.size(); ++i) {
    RECT area = item.rcItem;
    area.left += margin + window.columns[i] * window.character_width;
    DrawTextA(item.hDC, kColumns[i].title, -1, &area,
              DT_SINGLELINE | DT_BOTTOM | DT_NOPREFIX | DT_NOCLIP);
  }
  SelectObject(item.hDC, old);
}

BOOL OnInit(HWND dialog, LPARAM state) {
  const std::vector<Tooltip> tooltips = {
      {ID_EDIT_CHANNEL, "Enter, or a double-click"},
      {ID_MOVE_UP, "Ctrl+Up"},
      {ID_MOVE_DOWN, "Ctrl+Down"},
      {ID_INSERT_CHANNEL, "Insert key: an empty channel here, the others move down"},
      {ID_DELETE_CHANNEL, "The channels below move up"},
      {ID_CLEAR_CHANNEL, "Delete key: empties the channel, the others stay"},
  };
  SetUpDialog(dialog, state, tooltips);
  auto& window = StateOf<ListWindow>(dialog);
  window.font = CreateRadioFont(dialog, kListFontHeight);
  UseFont(dialog, ID_CHANNEL_LIST, window.font);
  SetColumns(dialog, window);
  const HWND list = ListOf(dialog);
  ChangeRows(list, [&] { FillRows(list, window.document.image, window.document.region); });
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
    case ID_EDIT_CHANNEL:
      OnEdit(dialog);
      break;
    default:
      if (const ListCommand command = CommandOf(button)) {
        RunListCommand(dialog, command);
      }
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

// What a key does in the list, as the number of its button; 0 for the keys of the list itself.
int ControlOfKey(int key) {
  const bool ctrl = GetKeyState(VK_CONTROL) < 0;
  switch (key) {
    case VK_UP:
      return ctrl ? ID_MOVE_UP : 0;
    case VK_DOWN:
      return ctrl ? ID_MOVE_DOWN : 0;
    case VK_INSERT:
      return ID_INSERT_CHANNEL;
    case VK_DELETE:
      return ID_CLEAR_CHANNEL;
    default:
      return 0;
  }
}

INT_PTR OnKey(HWND dialog, int key) {
  constexpr INT_PTR kListsOwn = -1;
  constexpr INT_PTR kDone = -2;
  const int control = ControlOfKey(key);
  if (control == 0) {
    return kListsOwn;
  }
  OnCommand(dialog, control, BN_CLICKED);
  return kDone;
}

// A typed character chooses no row. Left to the list, it would select all rows up to the next one
// that begins with it; most commands then only beep.
constexpr INT_PTR kCharacterDone = -2;

}  // namespace

extern "C" INT_PTR CALLBACK DlgProcListMemory(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_VKEYTOITEM:
      return OnKey(dialog, LOWORD(w));
    case WM_CHARTOITEM:
      return kCharacterDone;
    case WM_DRAWITEM:
      // NOLINTNEXTLINE(performance-no-int-to-ptr): the system passes the pointer as a number
      PaintHeader(dialog, *reinterpret_cast<const DRAWITEMSTRUCT*>(l));
      return TRUE;
    default:
      return HandleDialogMessage({OnInit, OnCommand}, dialog, message, w, l);
  }
}

bool ShowMemoryListDialog(Document& document) {
  TakeWorkingCopy(document);
  ListWindow window{.document = document};
  return RunDialog("DLLDlgListMemory", DlgProcListMemory, &window) == 0;
}

}  // namespace qz7
