#include "desktop/editors/copy_many_dialog.h"

#include <windows.h>

#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/help.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

constexpr std::size_t kLongestNumber = 3;

bool remembered_option_a = false;

BOOL OnInit(HWND dialog, LPARAM state) {
  SetUpDialog(dialog, state);
  const auto& chosen = StateOf<CopyMany>(dialog);
  for (const int field : {ID_COPY_FIRST, ID_COPY_SECOND}) {
    LimitText(dialog, field, kLongestNumber);
  }
  SetDlgItemInt(dialog, ID_COPY_FIRST, static_cast<UINT>(chosen.first), TRUE);
  SetDlgItemInt(dialog, ID_COPY_SECOND, static_cast<UINT>(chosen.second), TRUE);
  Check(dialog, ID_COPY_OPTION_A, remembered_option_a);
  SetFocus(GetDlgItem(dialog, ID_COPY_SECOND));
  SendDlgItemMessageA(dialog, ID_COPY_SECOND, EM_SETSEL, 0, -1);
  return FALSE;
}

void OnOk(HWND dialog) {
  auto& chosen = StateOf<CopyMany>(dialog);
  chosen.first = static_cast<int>(GetDlgItemInt(dialog, ID_COPY_FIRST, nullptr, TRUE));
  chosen.second = static_cast<int>(GetDlgItemInt(dialog, ID_COPY_SECOND, nullptr, TRUE));
  chosen.option_a = IsChecked(dialog, ID_COPY_OPTION_A);
  chosen.option_b = IsChecked(dialog, ID_COPY_OPTION_B);
  remembered_option_a = chosen.option_a;
  EndDialog(dialog, 0);
}

void OnCommand(HWND dialog, int control, int /*notification*/) {
  switch (control) {
    case IDOK:
      OnOk(dialog);
      break;
    case IDCANCEL:
      EndDialog(dialog, -1);
      break;
    case ID_HELP:
      ShowHelp(kHelpCopyMany);
      break;
    default:
      break;
  }
}

}  // namespace

// The program exports it (desktop/qz7.def).
extern "C" INT_PTR CALLBACK DlgProcCopyMany(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  return HandleDialogMessage({OnInit, OnCommand}, dialog, message, w, l);
}

bool ShowCopyManyDialog(int number, CopyMany& chosen) {
  chosen = {.first = number, .second = number};
  return RunDialog("DLLDlgCopyMany", DlgProcCopyMany, &chosen) == 0;
}

}  // namespace qz7
