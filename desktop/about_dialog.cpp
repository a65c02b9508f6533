#include "desktop/about_dialog.h"

#include <windows.h>

#include <cstdio>
#include <string>
#include <vector>

#include "desktop/locations.h"
#include "desktop/toolkit/dialog_support.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

struct VersionRecord {
  std::vector<char> data;
  std::string translation;  // eight hexadecimal digits; empty: no record
};

// The translation's language and code page are stored the other way round than the path names them.
void FindTranslation(VersionRecord& record) {
  void* value = nullptr;
  UINT size = 0;
  if (!VerQueryValueA(record.data.data(), "\\VarFileInfo\\Translation", &value, &size) ||
      size < 2 * sizeof(WORD)) {
    return;
  }
  const WORD* words = static_cast<const WORD*>(value);
  char digits[9] = "";
  std::snprintf(digits, sizeof digits, "%04x%04x", words[0], words[1]);
  record.translation = digits;
}

VersionRecord ReadVersionRecord() {
  VersionRecord record;
  std::string path = ProgramPath();
  OemToCharA(path.c_str(), path.data());
  DWORD ignored = 0;
  record.data.resize(GetFileVersionInfoSizeA(path.c_str(), &ignored));
  if (!record.data.empty() &&
      GetFileVersionInfoA(path.c_str(), 0, static_cast<DWORD>(record.data.size()),
                          record.data.data())) {
    FindTranslation(record);
  }
  return record;
}

// Empty for a value that the record does not have.
std::string VersionValue(const VersionRecord& record, const std::string& name) {
  const std::string path = "\\StringFileInfo\\" + record.translation + "\\" + name;
  void* value = nullptr;
  UINT size = 0;
  if (!VerQueryValueA(record.data.data(), path.c_str(), &value, &size) || size == 0) {
    return "";
  }
  return static_cast<const char*>(value);
}

void ShowRecord(HWND dialog, const VersionRecord& record) {
  const auto show = [&](int control, const std::string& text) {
    SetDlgItemTextA(dialog, control, text.c_str());
  };
  show(ID_ABOUT_DESCRIPTION, VersionValue(record, "FileDescription"));
  const std::string version = VersionValue(record, "FileVersion");
  show(ID_ABOUT_VERSION, version.empty() ? "" : "Version " + version);
  show(ID_ABOUT_COMPANY, VersionValue(record, "CompanyName"));
  show(ID_ABOUT_ADDRESS, VersionValue(record, "Address"));
  show(ID_ABOUT_SUPPORT, VersionValue(record, "Support"));
  show(ID_ABOUT_LEGAL, VersionValue(record, "LegalCopyRight"));
}

INT_PTR CALLBACK DlgProcAbout(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_INITDIALOG: {
      SetUpDialog(dialog, l);
      const auto& record = StateOf<const VersionRecord>(dialog);
      if (!record.translation.empty()) {
        ShowRecord(dialog, record);
      }
      return TRUE;
    }
    case WM_COMMAND:
      if (LOWORD(w) == IDOK || LOWORD(w) == IDCANCEL) {
        EndDialog(dialog, 0);
      }
      return TRUE;
    default:
      return FALSE;
  }
}

}  // namespace

void ShowAboutDialog() {
  VersionRecord record = ReadVersionRecord();
  RunDialog("DLLDlgAbout", DlgProcAbout, &record);
}

}  // namespace qz7
