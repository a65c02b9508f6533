#include "desktop/interchange/import_columns_dialog.h"

#include <windows.h>
// Behind <windows.h>.
#include <commctrl.h>

#include "core/interchange/import_columns.h"
#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/help.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

constexpr UINT_PTR kScrollSubclass = 1;

struct ColumnsWindow {
  ImportSession& session;
  ImportLines& lines;
  ColumnDialog columns;
};

int SelectedRow(HWND dialog) {
  return static_cast<int>(SendDlgItemMessageA(dialog, ID_COLUMN_TEXTS, LB_GETCURSEL, 0, 0));
}

void AddRow(HWND dialog, int list, const std::string& text) {
  SendDlgItemMessageA(dialog, list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

// The left list shows the same rows as the right one.
void FollowScroll(HWND dialog) {
  const auto top =
      static_cast<WPARAM>(SendDlgItemMessageA(dialog, ID_COLUMN_TEXTS, LB_GETTOPINDEX, 0, 0));
  SendDlgItemMessageA(dialog, ID_COLUMN_FIELDS, LB_SETTOPINDEX, top, 0);
}

LRESULT CALLBACK ScrollProc(HWND list, UINT message, WPARAM w, LPARAM l, UINT_PTR id, DWORD_PTR) {
  if (message == WM_NCDESTROY) {
    RemoveWindowSubclass(list, ScrollProc, id);
  }
  const LRESULT result = DefSubclassProc(list, message, w, l);
  if (message == WM_VSCROLL || message == WM_MOUSEWHEEL || message == WM_KEYDOWN) {
    FollowScroll(GetParent(list));
  }
  return result;
}

void ShowButtons(HWND dialog) {
  const ColumnDialog& columns = StateOf<ColumnsWindow>(dialog).columns;
  // A button that is switched off must not keep the keyboard.
  SetFocus(GetDlgItem(dialog, ID_COLUMN_TEXTS));
  for (int k = 0; k < kCsvColumnCount; ++k) {
    EnableWindow(GetDlgItem(dialog, ID_FIRST_FIELD + k),
                 columns.enabled[static_cast<std::size_t>(k)] ? TRUE : FALSE);
  }
}

void ShowFieldOfRow(HWND dialog, int row) {
  const auto& names = StateOf<ColumnsWindow>(dialog).columns.names;
  if (row < 0 || static_cast<std::size_t>(row) >= names.size()) {
    return;
  }
  const auto place = static_cast<WPARAM>(row);
  SendDlgItemMessageA(dialog, ID_COLUMN_FIELDS, LB_DELETESTRING, place, 0);
  SendDlgItemMessageA(dialog, ID_COLUMN_FIELDS, LB_INSERTSTRING, place,
                      reinterpret_cast<LPARAM>(names[place].c_str()));
  FollowScroll(dialog);
}

BOOL OnInit(HWND dialog, LPARAM state) {
  SetUpDialog(dialog, state);
  auto& window = StateOf<ColumnsWindow>(dialog);
  SetWindowTextA(dialog, ImportCaption(window.session).c_str());
  window.columns = OpenColumnDialog(window.session, window.lines);
  for (std::size_t row = 0; row < window.columns.texts.size(); ++row) {
    AddRow(dialog, ID_COLUMN_FIELDS, window.columns.names[row]);
    AddRow(dialog, ID_COLUMN_TEXTS, window.columns.texts[row]);
  }
  SetWindowSubclass(GetDlgItem(dialog, ID_COLUMN_TEXTS), ScrollProc, kScrollSubclass, 0);
  ShowButtons(dialog);
  return FALSE;
}

void OnSelect(HWND dialog) {
  const int row = SelectedRow(dialog);
  SelectColumn(StateOf<ColumnsWindow>(dialog).columns, row);
  ShowFieldOfRow(dialog, row);
  ShowButtons(dialog);
}

void OnField(HWND dialog, int field) {
  const int row = SelectedRow(dialog);
  PressFieldButton(StateOf<ColumnsWindow>(dialog).columns, field, row);
  ShowFieldOfRow(dialog, row);
  ShowButtons(dialog);
}

void OnCommand(HWND dialog, int control, int notification) {
  switch (control) {
    case ID_COLUMN_TEXTS:
      if (notification == LBN_SELCHANGE) {
        OnSelect(dialog);
      }
      break;
    case IDOK: {
      const auto& window = StateOf<ColumnsWindow>(dialog);
      AcceptColumns(window.session, window.columns);
      EndDialog(dialog, 0);
      break;
    }
    case IDCANCEL:
      EndDialog(dialog, -1);
      break;
    case ID_HELP:
      ShowHelp(kHelpImportColumns);
      break;
    default:
      if (control >= ID_FIRST_FIELD && control < ID_FIRST_FIELD + kCsvColumnCount) {
        OnField(dialog, control - ID_FIRST_FIELD);
      }
      break;
  }
}

}  // namespace

extern "C" INT_PTR CALLBACK DlgProcImportList(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  return HandleDialogMessage({OnInit, OnCommand}, dialog, message, w, l);
}

bool ShowImportColumnsDialog(ImportSession& session, ImportLines& lines) {
  ColumnsWindow window{.session = session, .lines = lines, .columns = {}};
  return RunDialog("DlgImportList", DlgProcImportList, &window) == 0;
}

}  // namespace qz7
