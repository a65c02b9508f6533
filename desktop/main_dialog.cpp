#include "desktop/main_dialog.h"

// Behind <windows.h>.
#include <commctrl.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/editors/main_fields.h"
#include "core/files/document_header.h"
#include "core/files/seams.h"
#include "desktop/app_state.h"
#include "desktop/editors/setting_controls.h"
#include "desktop/locations.h"
#include "desktop/main_window.h"
#include "desktop/toolkit/dialog_support.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

// The lists tell what they are; what nothing tells shows its place in the radio's memory.
const std::vector<SettingField>& Fields() {
  const auto list = [](int number) {
    return SettingControl{.number = number, .tells_place = false};
  };
  static const std::vector<SettingField> fields =
      FieldsOf(MainScreen(), {{"auto-power-off", list(ID_AUTO_POWER_OFF)},
                              {"transmit-time-out", list(ID_TRANSMIT_TIME_OUT)},
                              {"lock", list(ID_LOCK)},
                              {"bell", list(ID_BELL)},
                              {"receive-saver", list(ID_RECEIVE_SAVER)},
                              {"lamp", list(ID_LAMP)},
                              {"option-a", {ID_OPTION_A_FIRST}},
                              {"option-b", {ID_OPTION_B_FIRST}},
                              {"option-c", {ID_OPTION_C_FIRST}},
                              {"switch-1", {ID_SWITCH_1}},
                              {"switch-2", {ID_SWITCH_2}},
                              {"switch-3", {ID_SWITCH_3}},
                              {"switch-4", {ID_SWITCH_4}},
                              {"switch-5", {ID_SWITCH_5}},
                              {"switch-6", {ID_SWITCH_6}},
                              {"switch-7", {ID_SWITCH_7}},
                              {"switch-8", {ID_SWITCH_8}},
                              {"switch-9", {ID_SWITCH_9}},
                              {"switch-10", {ID_SWITCH_10}},
                              {"switch-11", {ID_SWITCH_11}},
                              {"switch-12", {ID_SWITCH_12}}});
  return fields;
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

HWND status_tip = nullptr;

void AddStatusTip(HWND dialog) {
  const Tooltip tip{.control = ID_STATUS_LINE, .text = ControlText(dialog, ID_STATUS_LINE)};
  status_tip = AddTooltips(dialog, {&tip, 1});
  RECT line;
  GetClientRect(app.status_line, &line);
  SendMessageA(status_tip, TTM_SETMAXTIPWIDTH, 0, line.right);
}

// The tooltips come when the first picture is there: timers wait for everything else.
constexpr UINT_PTR kTooltipsTimer = 1;

BOOL OnInit(HWND dialog, LPARAM state) {
  FillMainWindow(dialog);
  for (const SettingField& field : Fields()) {
    SetUpField(dialog, field);
  }
  LimitText(dialog, ID_FILE_COMMENT, kLongestFileComment);
  app.status_line = GetDlgItem(dialog, ID_STATUS_LINE);
  SetUpDialog(dialog, state);
  SetTimer(dialog, kTooltipsTimer, USER_TIMER_MINIMUM, nullptr);
  return TRUE;
}

void OnTimer(HWND dialog) {
  KillTimer(dialog, kTooltipsTimer);
  AddTooltips(dialog, PlaceTooltips(Fields()));
  AddStatusTip(dialog);
}

// Any notification of a field or the comment, the arriving focus too.
bool TouchesDefaults(int control) {
  return control == ID_FILE_COMMENT ||
         std::any_of(Fields().begin(), Fields().end(),
                     [control](const SettingField& field) { return BelongsTo(field, control); });
}

void OnUseDefaults(HWND dialog) {
  ApplyMainDefaults(app.document);
  RefreshStatusLine();
  DisableDefaultsButtons(dialog, ID_FILE_COMMENT);
}

void OnStoreDefaults(HWND dialog) {
  StoreMainDefaults(app.document);
  DisableDefaultsButtons(dialog, ID_FILE_COMMENT);
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
      if (TouchesDefaults(control)) {
        EnableDefaultsButtons(dialog);
        RefreshStatusLine();
      }
      break;
  }
}

}  // namespace

extern "C" INT_PTR CALLBACK DlgProcMain(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_CLOSE:
      OnClose(dialog);
      return TRUE;
    case WM_DESTROY:
      app.main_dialog = nullptr;
      app.status_line = nullptr;
      status_tip = nullptr;
      return TRUE;
    case WM_TIMER:
      OnTimer(dialog);
      return TRUE;
    default:
      return HandleDialogMessage({OnInit, OnCommand}, dialog, message, w, l);
  }
}

HWND CreateMainDialog(HWND main_window) {
  app.main_dialog = CreateModelessDialog("DLLDlgMain", main_window, DlgProcMain, nullptr);
  return app.main_dialog;
}

void ShowStatusText(const std::string& text) {
  SetWindowTextA(app.status_line, text.c_str());
  ChangeTooltip(status_tip, app.main_dialog, {.control = ID_STATUS_LINE, .text = text});
}

void LoadMainDialog(const CloneImage& image) {
  for (const SettingField& field : Fields()) {
    ShowInField(app.main_dialog, field, LoadSetting(*field.row, SourceIn(image)));
  }
  SetDlgItemTextA(app.main_dialog, ID_FILE_COMMENT, std::string(FileComment(image)).c_str());
}

void ReadMainControls(CloneImage& image) {
  if (app.main_dialog == nullptr) {
    return;
  }
  for (const SettingField& field : Fields()) {
    StoreSetting(*field.row, ValueInField(app.main_dialog, field), TargetIn(image));
  }
  WriteFileComment(image, ControlText(app.main_dialog, ID_FILE_COMMENT));
}

void SetMainTitle(const std::string& title) { SetWindowTextA(app.main_window, title.c_str()); }

}  // namespace qz7
