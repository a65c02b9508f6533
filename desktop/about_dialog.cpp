#include "desktop/about_dialog.h"

#include <windows.h>

#include "desktop/toolkit/dialog_support.h"
#include "desktop/version_texts.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

using Texts = std::optional<VersionTexts>;

void ShowTexts(HWND dialog, const VersionTexts& texts) {
  const auto show = [&](int control, const std::string& text) {
    SetDlgItemTextA(dialog, control, text.c_str());
  };
  show(ID_ABOUT_DESCRIPTION, texts.description);
  show(ID_ABOUT_VERSION, texts.version.empty() ? "" : "Version " + texts.version);
  show(ID_ABOUT_COMPANY, texts.company);
  show(ID_ABOUT_ADDRESS, texts.address);
  show(ID_ABOUT_SUPPORT, texts.support);
  show(ID_ABOUT_LEGAL, texts.legal);
}

BOOL OnInit(HWND dialog, LPARAM state) {
  SetUpDialog(dialog, state);
  const HICON icon = LoadIconA(dialog_modules.program, "Icon");
  SendDlgItemMessageA(dialog, ID_ABOUT_ICON, STM_SETICON, reinterpret_cast<WPARAM>(icon), 0);
  const auto& texts = StateOf<const Texts>(dialog);
  if (texts) {
    ShowTexts(dialog, *texts);
  }
  return TRUE;
}

}  // namespace

extern "C" INT_PTR CALLBACK DlgProcAbout(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_INITDIALOG:
      return OnInit(dialog, l);
    case WM_COMMAND:
      if (LOWORD(w) == IDOK || LOWORD(w) == IDCANCEL) {
        EndDialog(dialog, 0);
      }
      return TRUE;
    default:
      return FALSE;
  }
}

void ShowAboutDialog(const std::filesystem::path& program_path) {
  Texts texts = ReadVersionTexts(program_path);
  RunDialog("DLLDlgAbout", DlgProcAbout, &texts);
}

}  // namespace qz7
