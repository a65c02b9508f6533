#include "desktop/toolkit/help_viewer.h"

#include "desktop/toolkit/dialog_support.h"

namespace qz7 {
namespace {

bool IsViewer(const std::string& path) {
  constexpr ULONGLONG kSmallestViewer = 64 * 1024;
  WIN32_FILE_ATTRIBUTE_DATA data{};
  return GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data) &&
         ((static_cast<ULONGLONG>(data.nFileSizeHigh) << 32) | data.nFileSizeLow) >=
             kSmallestViewer;
}

std::string WindowsFolder() {
  char folder[MAX_PATH] = "";
  GetWindowsDirectoryA(folder, MAX_PATH);
  return folder;
}

std::string SystemFolder() {
  char folder[MAX_PATH] = "";
  GetSystemDirectoryA(folder, MAX_PATH);
  return folder;
}

}  // namespace

// Windows keeps it in its own folder, Wine in the system's.
bool HasHelpViewer() {
  return IsViewer(WindowsFolder() + "\\winhlp32.exe") ||
         IsViewer(SystemFolder() + "\\winhlp32.exe");
}

bool HelpViewerSearches() {
  return GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") == nullptr;
}

bool HasHelpOnHelp() {
  for (const char* place : {"\\Help\\WINHELP.HLP", "\\WINHELP.HLP"}) {
    if (GetFileAttributesA((WindowsFolder() + place).c_str()) != INVALID_FILE_ATTRIBUTES) {
      return true;
    }
  }
  return false;
}

void AskHelpViewer(const std::string& file, UINT command, ULONG_PTR data) {
  WinHelpA(dialog_modules.main_window, file.c_str(), command, data);
}

}  // namespace qz7
