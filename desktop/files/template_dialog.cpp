#include "desktop/files/template_dialog.h"

#include <windows.h>

#include "desktop/toolkit/dialog_support.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

constexpr std::size_t kLongestName = 8;

BOOL OnInit(HWND dialog, LPARAM state) {
  SetUpDialog(dialog, state);
  LimitText(dialog, ID_NEW_TEMPLATE_NAME, kLongestName);
  SetDlgItemTextA(dialog, ID_NEW_TEMPLATE_NAME, "Template");
  return TRUE;
}

void OnCommand(HWND dialog, int control) {
  switch (control) {
    case ID_CREATE:
      if (CreateTemplate(StateOf<Document>(dialog), ControlText(dialog, ID_NEW_TEMPLATE_NAME))) {
        EndDialog(dialog, 0);
      }
      break;
    case IDCANCEL:
      EndDialog(dialog, -1);
      break;
    default:
      break;
  }
}

}  // namespace

extern "C" INT_PTR CALLBACK DlgProcCreateTemplate(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_INITDIALOG:
      return OnInit(dialog, l);
    case WM_COMMAND:
      OnCommand(dialog, LOWORD(w));
      return TRUE;
    case WM_CLOSE:
      EndDialog(dialog, -1);
      return TRUE;
    default:
      return FALSE;
  }
}

bool ShowTemplateDialog(Document& document) {
  return RunDialog("DLLDlgCreateTemplate", DlgProcCreateTemplate, &document) == 0;
}

}  // namespace qz7
