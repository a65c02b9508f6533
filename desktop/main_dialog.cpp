#include "desktop/main_dialog.h"

#include <algorithm>
#include <string>
#include <vector>

#include "core/editors/main_fields.h"
#include "core/files/document_header.h"
#include "core/files/seams.h"
#include "desktop/app_state.h"
#include "desktop/locations.h"
#include "desktop/toolkit/dialog_support.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

void ShowField(HWND dialog, const MainField& field, std::optional<int> choice) {
  switch (field.kind) {
    case FieldKind::kList:
      SelectInList(dialog, field.control, choice.value_or(-1));
      break;
    case FieldKind::kRadioGroup:
      for (int i = 0; i < field.buttons; ++i) {
        CheckDlgButton(dialog, field.control + i, choice == i ? BST_CHECKED : BST_UNCHECKED);
      }
      break;
    case FieldKind::kCheckBox:
      CheckDlgButton(dialog, field.control, choice == 1 ? BST_CHECKED : BST_UNCHECKED);
      break;
  }
}

std::optional<int> ChosenInField(HWND dialog, const MainField& field) {
  const auto checked = [dialog](int control) {
    return IsDlgButtonChecked(dialog, control) == BST_CHECKED;
  };
  if (field.kind == FieldKind::kCheckBox) {
    return checked(field.control) ? 1 : 0;
  }
  if (field.kind == FieldKind::kList) {
    const int position = SelectedInList(dialog, field.control);
    return position >= 0 ? std::optional(position) : std::nullopt;
  }
  for (int i = 0; i < field.buttons; ++i) {
    if (checked(field.control + i)) {
      return i;
    }
  }
  return std::nullopt;
}

void EnableDefaultsButtons(HWND dialog, bool enabled) {
  const HWND use = GetDlgItem(dialog, ID_USE_DEFAULTS);
  const HWND store = GetDlgItem(dialog, ID_STORE_DEFAULTS);
  // A disabled button would keep the keyboard to itself. The focus moves first, because the control
  // that gets it sends a notification that enables the buttons.
  if (!enabled && (GetFocus() == use || GetFocus() == store)) {
    const HWND first = GetDlgItem(dialog, ID_FILE_COMMENT);
    SendMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(first), TRUE);
  }
  EnableWindow(use, enabled);
  EnableWindow(store, enabled);
}

// The frame, where the template has one, lies outside the main window's client area; the main
// window takes the dialog's size.
void FillMainWindow(HWND dialog) {
  const HWND parent = GetParent(dialog);
  RECT client;
  GetClientRect(dialog, &client);
  POINT origin{0, 0};
  MapWindowPoints(dialog, parent, &origin, 1);
  RECT own;
  GetWindowRect(dialog, &own);
  MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&own), 2);
  SetWindowPos(dialog, nullptr, own.left - origin.x, own.top - origin.y, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  RECT frame = client;
  AdjustWindowRect(&frame, static_cast<DWORD>(GetWindowLongPtrA(parent, GWL_STYLE)), TRUE);
  SetWindowPos(parent, nullptr, 0, 0, frame.right - frame.left, frame.bottom - frame.top,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Controls whose meaning nothing tells show their place in the radio's memory.
std::vector<Tooltip> PlaceTooltips() {
  std::vector<Tooltip> tooltips;
  for (const MainField& field : MainFields()) {
    for (int i = 0; i < std::max(field.buttons, 1); ++i) {
      if (field.kind != FieldKind::kList) {
        tooltips.push_back({field.control + i, FieldPlace(field)});
      }
    }
  }
  return tooltips;
}

BOOL OnInit(HWND dialog, LPARAM state) {
  FillMainWindow(dialog);
  for (const MainField& field : MainFields()) {
    FillList(dialog, field.control, field.texts);
  }
  LimitText(dialog, ID_FILE_COMMENT, kLongestFileComment);
  SetUpDialog(dialog, state, PlaceTooltips());
  return TRUE;
}

void OnUseDefaults(HWND dialog) {
  ApplyMainDefaults(app.document);
  EnableDefaultsButtons(dialog, false);
}

void OnStoreDefaults(HWND dialog) {
  StoreMainDefaults(app.document);
  EnableDefaultsButtons(dialog, false);
  SaveDefaultsRecord(app.document.defaults, app.defaults_file);
}

void OnClose(HWND dialog) {
  const HWND parent = GetParent(dialog);
  DestroyWindow(dialog);
  PostMessageA(parent, WM_CLOSE, 0, 0);
}

void OnCommand(HWND dialog, int control, int notification) {
  switch (control) {
    case ID_USE_DEFAULTS:
      if (notification == BN_CLICKED) {
        OnUseDefaults(dialog);
      }
      break;
    case ID_STORE_DEFAULTS:
      if (notification == BN_CLICKED) {
        OnStoreDefaults(dialog);
      }
      break;
    default:
      if (TouchesMainDefaults(control)) {
        EnableDefaultsButtons(dialog, true);
      }
      break;
  }
}

INT_PTR CALLBACK DlgProcMain(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_INITDIALOG:
      return OnInit(dialog, l);
    case WM_COMMAND:
      OnCommand(dialog, LOWORD(w), HIWORD(w));
      return TRUE;
    case WM_CLOSE:
      OnClose(dialog);
      return TRUE;
    case WM_DESTROY:
      app.main_dialog = nullptr;
      return TRUE;
    default:
      return FALSE;
  }
}

}  // namespace

HWND CreateMainDialog(HWND main_window) {
  app.main_dialog = CreateModelessDialog("DLLDlgMain", main_window, DlgProcMain, nullptr);
  return app.main_dialog;
}

void LoadMainDialog(const CloneImage& image) {
  for (const MainField& field : MainFields()) {
    ShowField(app.main_dialog, field, ReadMainField(image, field));
  }
  SetDlgItemTextA(app.main_dialog, ID_FILE_COMMENT, std::string(FileComment(image)).c_str());
}

void ReadMainControls(CloneImage& image) {
  if (app.main_dialog == nullptr) {
    return;
  }
  for (const MainField& field : MainFields()) {
    WriteMainField(image, field, ChosenInField(app.main_dialog, field));
  }
  WriteFileComment(image, ControlText(app.main_dialog, ID_FILE_COMMENT));
}

void SetMainTitle(const std::string& title) { SetWindowTextA(app.main_window, title.c_str()); }

}  // namespace qz7
