#include "app/help.h"

#include <windows.h>
// Behind <windows.h>.
#include <shellapi.h>

#include <string>

#include "app/dialog_support.h"

namespace qz7 {
namespace {

bool FileExists(const std::string& path) {
  const DWORD attributes = GetFileAttributesA(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

// A viewer that is there but only says that it is no longer part of the system is a small one.
bool SystemHasViewer() {
  constexpr ULONGLONG kSmallestViewer = 64 * 1024;
  char folder[MAX_PATH] = "";
  GetWindowsDirectoryA(folder, MAX_PATH);
  const std::string path = std::string(folder) + "\\winhlp32.exe";
  WIN32_FILE_ATTRIBUTE_DATA data{};
  return GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data) &&
         ((static_cast<ULONGLONG>(data.nFileSizeHigh) << 32) | data.nFileSizeLow) >=
             kSmallestViewer;
}

bool UsesViewer() { return SystemHasViewer() && FileExists(dialog_modules.help_path); }

// The page in the browser: "file:///C:/folder/qz7.html#102".
void OpenPage(const std::string& anchor) {
  std::string path = dialog_modules.help_path;
  const std::size_t dot = path.rfind('.');
  path = path.substr(0, dot) + ".html";
  if (!FileExists(path)) {
    return;
  }
  std::string url = "file:///";
  for (const char c : path) {
    url += c == '\\' ? std::string("/") : c == ' ' ? std::string("%20") : std::string(1, c);
  }
  ShellExecuteA(dialog_modules.main_window, "open", (url + anchor).c_str(), nullptr, nullptr,
                SW_SHOWNORMAL);
}

void AskViewer(UINT command, ULONG_PTR data) {
  WinHelpA(dialog_modules.main_window, dialog_modules.help_path.c_str(), command, data);
}

}  // namespace

void ShowHelp(int context) {
  if (UsesViewer()) {
    AskViewer(HELP_CONTEXT, static_cast<ULONG_PTR>(context));
  } else {
    OpenPage("#" + std::to_string(context));
  }
}

void ShowHelpContents() {
  if (UsesViewer()) {
    AskViewer(HELP_CONTENTS, 0);
  } else {
    OpenPage("");
  }
}

void ShowHelpSearch() {
  if (UsesViewer()) {
    AskViewer(HELP_PARTIALKEY, reinterpret_cast<ULONG_PTR>(""));
  } else {
    OpenPage("#search");
  }
}

void ShowHelpOnHelp() {
  if (SystemHasViewer()) {
    WinHelpA(dialog_modules.main_window, "WINHELP.HLP", HELP_CONTENTS, 0);
  } else {
    OpenPage("#help");
  }
}

void QuitHelp() {
  if (UsesViewer()) {
    AskViewer(HELP_QUIT, 0);
  }
}

}  // namespace qz7
