#include "desktop/toolkit/dialog_support.h"

#include <commctrl.h>

#include <algorithm>
#include <string_view>
#include <utility>

#include "core/files/unexpected.h"
#include "resources/control_ids.h"

namespace qz7 {

DialogModules dialog_modules;

namespace {

constexpr UINT_PTR kHelpKeySubclass = 1;

HINSTANCE ModuleOf(std::string_view template_name) {
  return template_name.starts_with("DLLDlg") ? dialog_modules.library : dialog_modules.program;
}

// F1 presses the Help button, where the dialog has one.
LRESULT CALLBACK HelpKeyProc(HWND dialog, UINT message, WPARAM w, LPARAM l, UINT_PTR id,
                             DWORD_PTR) {
  if (message == WM_HELP && GetDlgItem(dialog, ID_HELP) != nullptr) {
    SendMessageA(dialog, WM_COMMAND, ID_HELP, 0);
    return TRUE;
  }
  if (message == WM_NCDESTROY) {
    RemoveWindowSubclass(dialog, HelpKeyProc, id);
  }
  return DefSubclassProc(dialog, message, w, l);
}

RECT WorkArea(HWND window) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoA(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
  return monitor.rcWork;
}

// Over the owner where that can be seen, otherwise over the screen; never beyond its edges.
void CentreDialog(HWND dialog) {
  const HWND owner = GetWindow(dialog, GW_OWNER);
  const RECT area = WorkArea(owner != nullptr ? owner : dialog);
  RECT around = area;
  if (owner != nullptr && IsWindowVisible(owner) && !IsIconic(owner)) {
    GetWindowRect(owner, &around);
  }
  RECT own;
  GetWindowRect(dialog, &own);
  const LONG width = own.right - own.left;
  const LONG height = own.bottom - own.top;
  const LONG x = (around.left + around.right - width) / 2;
  const LONG y = (around.top + around.bottom - height) / 2;
  SetWindowPos(dialog, nullptr, std::max(area.left, std::min(x, area.right - width)),
               std::max(area.top, std::min(y, area.bottom - height)), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// What a dialog is created with.
struct Launch {
  DLGPROC procedure;
  LPARAM state;
  bool failed = false;  // it could not be opened, and that has been said
};

// The one that is on its way to its WM_INITDIALOG: what comes before that message knows no more.
Launch* launching = nullptr;

constexpr const char* kProcedureProperty = "QZ7DialogProcedure";

void SetProcedure(HWND dialog, DLGPROC procedure) {
  SetPropA(dialog, kProcedureProperty, reinterpret_cast<HANDLE>(procedure));
}

DLGPROC ProcedureOf(HWND dialog) {
  const auto procedure = reinterpret_cast<DLGPROC>(GetPropA(dialog, kProcedureProperty));
  return procedure == nullptr && launching != nullptr ? launching->procedure : procedure;
}

INT_PTR CALLBACK IgnoreMessage(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

// A dialog that cannot be opened hears no more.
BOOL Open(HWND dialog, WPARAM w, Launch& launch) {
  launching = nullptr;
  SetProcedure(dialog, launch.procedure);
  try {
    return launch.procedure(dialog, WM_INITDIALOG, w, launch.state) != 0;
  } catch (...) {
    SetProcedure(dialog, IgnoreMessage);
    launch.failed = true;
    ShowUnexpected();
    return FALSE;
  }
}

// No exception leaves a window procedure: the message is shown, and the dialog stays.
INT_PTR CALLBACK GuardedProc(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  if (message == WM_INITDIALOG) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the system passes the pointer as a number
    auto& launch = *reinterpret_cast<Launch*>(l);
    const BOOL focus = Open(dialog, w, launch);
    if (launch.failed) {
      EndDialog(dialog, -1);
    }
    return focus;
  }
  const DLGPROC procedure = ProcedureOf(dialog);
  if (message == WM_NCDESTROY) {
    RemovePropA(dialog, kProcedureProperty);
  }
  try {
    return procedure != nullptr ? procedure(dialog, message, w, l) : FALSE;
  } catch (...) {
    ShowUnexpected();
    return TRUE;
  }
}

void SendTooltip(HWND tooltips, UINT message, HWND dialog, const Tooltip& tip) {
  std::string text = tip.text;
  TOOLINFOA tool{};
  tool.cbSize = sizeof tool;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = dialog;
  tool.uId = reinterpret_cast<UINT_PTR>(GetDlgItem(dialog, tip.control));
  tool.lpszText = text.data();
  SendMessageA(tooltips, message, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace

HWND DialogOwner() {
  const HWND main = dialog_modules.main_window;
  return main != nullptr ? GetLastActivePopup(main) : nullptr;
}

INT_PTR RunDialog(const char* template_name, DLGPROC procedure, void* state) {
  Launch launch{.procedure = procedure, .state = reinterpret_cast<LPARAM>(state)};
  launching = &launch;
  const INT_PTR end = DialogBoxParamA(ModuleOf(template_name), template_name, DialogOwner(),
                                      GuardedProc, reinterpret_cast<LPARAM>(&launch));
  launching = nullptr;
  return end;
}

HWND CreateModelessDialog(const char* template_name, HWND parent, DLGPROC procedure, void* state) {
  Launch launch{.procedure = procedure, .state = reinterpret_cast<LPARAM>(state)};
  launching = &launch;
  const HWND dialog = CreateDialogParamA(ModuleOf(template_name), template_name, parent,
                                         GuardedProc, reinterpret_cast<LPARAM>(&launch));
  launching = nullptr;
  if (launch.failed) {
    DestroyWindow(dialog);
    return nullptr;
  }
  return dialog;
}

void SetUpDialog(HWND dialog, LPARAM state, std::span<const Tooltip> tooltips) {
  SetWindowLongPtrA(dialog, DWLP_USER, state);
  SetWindowSubclass(dialog, HelpKeyProc, kHelpKeySubclass, 0);
  if ((GetWindowLongPtrA(dialog, GWL_STYLE) & WS_CHILD) == 0) {
    CentreDialog(dialog);
  }
  AddTooltips(dialog, tooltips);
}

HWND AddTooltips(HWND dialog, std::span<const Tooltip> tooltips) {
  if (tooltips.empty()) {
    return nullptr;
  }
  const HWND window =
      CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr,
                      WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT, CW_USEDEFAULT,
                      CW_USEDEFAULT, CW_USEDEFAULT, dialog, nullptr, nullptr, nullptr);
  for (const Tooltip& tip : tooltips) {
    SendTooltip(window, TTM_ADDTOOLA, dialog, tip);
  }
  return window;
}

void ChangeTooltip(HWND tooltips, HWND dialog, const Tooltip& tip) {
  SendTooltip(tooltips, TTM_UPDATETIPTEXTA, dialog, tip);
}

INT_PTR HandleDialogMessage(const DialogActions& actions, HWND dialog, UINT message, WPARAM w,
                            LPARAM l) {
  switch (message) {
    case WM_INITDIALOG:
      return actions.init(dialog, l);
    case WM_COMMAND:
      actions.command(dialog, LOWORD(w), HIWORD(w));
      return TRUE;
    case WM_CLOSE:
      actions.command(dialog, IDCANCEL, BN_CLICKED);
      return TRUE;
    default:
      return FALSE;
  }
}

std::string WindowText(HWND window) {
  std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window)) + 1, '\0');
  text.resize(
      static_cast<std::size_t>(GetWindowTextA(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

std::string ControlText(HWND dialog, int control) {
  return WindowText(GetDlgItem(dialog, control));
}

void LimitText(HWND dialog, int control, std::size_t characters) {
  SendDlgItemMessageA(dialog, control, EM_LIMITTEXT, characters, 0);
}

void AddToList(HWND list, const std::string& text) {
  SendMessageA(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void FillList(HWND dialog, int control, int count, std::string (*text)(int position)) {
  const HWND list = GetDlgItem(dialog, control);
  const HeldDrawing held(list);
  for (int i = 0; i < count; ++i) {
    AddToList(list, text(i));
  }
}

void SelectInList(HWND dialog, int control, std::optional<int> position) {
  const HWND list = GetDlgItem(dialog, control);
  const HeldDrawing held(list);
  constexpr auto kNone = static_cast<WPARAM>(-1);
  if (!position || SendMessageA(list, CB_SETCURSEL, static_cast<WPARAM>(*position), 0) == CB_ERR) {
    // Not every system does that by itself for a position outside the list.
    SendMessageA(list, CB_SETCURSEL, kNone, 0);
  }
}

std::optional<int> ChosenInList(HWND dialog, int control) {
  const LRESULT position = SendDlgItemMessageA(dialog, control, CB_GETCURSEL, 0, 0);
  return position >= 0 ? std::optional(static_cast<int>(position)) : std::nullopt;
}

void Check(HWND dialog, int button, bool checked) {
  CheckDlgButton(dialog, button, checked ? BST_CHECKED : BST_UNCHECKED);
}

bool IsChecked(HWND dialog, int button) {
  return IsDlgButtonChecked(dialog, button) == BST_CHECKED;
}

void MoveFocus(HWND dialog, int control) {
  const HWND window = GetDlgItem(dialog, control);
  SendMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(window), TRUE);
}

}  // namespace qz7
