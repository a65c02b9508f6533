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

void OnCreate(HWND dialog) {
  if (CreateTemplate(StateOf<Document>(dialog), ControlText(dialog, ID_NEW_TEMPLATE_NAME))) {
    EndDialog(dialog, 0);
  }
}

// The Help button does nothing here, as it stands.
void OnCommand(HWND dialog, int control, int /*notification*/) {
  if (control == ID_CREATE) {
    OnCreate(dialog);
  } else if (control == IDCANCEL) {
    EndDialog(dialog, -1);
  }
}

}  // namespace

extern "C" INT_PTR CALLBACK DlgProcCreateTemplate(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  return HandleDialogMessage({OnInit, OnCommand}, dialog, message, w, l);
}

bool ShowTemplateDialog(Document& document) {
  return RunDialog("DLLDlgCreateTemplate", DlgProcCreateTemplate, &document) == 0;
}

}  // namespace qz7
