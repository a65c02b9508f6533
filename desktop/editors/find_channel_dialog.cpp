#include "desktop/editors/find_channel_dialog.h"

#include <windows.h>

#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/help.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

constexpr std::size_t kLongestText = 31;  // a comment

BOOL OnInit(HWND dialog, LPARAM state) {
  SetUpDialog(dialog, state);
  LimitText(dialog, ID_FIND_TEXT, kLongestText);
  SetDlgItemTextA(dialog, ID_FIND_TEXT, StateOf<std::string>(dialog).c_str());
  return TRUE;
}

void OnCommand(HWND dialog, int control, int /*notification*/) {
  switch (control) {
    case IDOK:
      StateOf<std::string>(dialog) = ControlText(dialog, ID_FIND_TEXT);
      EndDialog(dialog, 0);
      break;
    case IDCANCEL:
      EndDialog(dialog, -1);
      break;
    case ID_HELP:
      ShowHelp(kHelpMemoryList);
      break;
    default:
      break;
  }
}

}  // namespace

extern "C" INT_PTR CALLBACK DlgProcFindChannel(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  return HandleDialogMessage({OnInit, OnCommand}, dialog, message, w, l);
}

bool AskWhatToFind(std::string& text) {
  return RunDialog("DLLDlgFindChannel", DlgProcFindChannel, &text) == 0;
}

}  // namespace qz7
