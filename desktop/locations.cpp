#include "desktop/locations.h"

#include <windows.h>
// Behind <windows.h>.
#include <shlobj.h>

#include "core/files/paths.h"
#include "desktop/toolkit/system_library.h"

namespace qz7 {

namespace fs = std::filesystem;

namespace {

constexpr DWORD kLongestPath = 32'768;
constexpr const char* kProfileName = "Tamro.ini";
constexpr const char* kDefaultsName = "qz7.def";
constexpr const char* kUserFolder = "Tamro";

std::wstring Variable(const wchar_t* name) {
  std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
  value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
  return value;
}

fs::path FolderOfShell() {
  const auto ask = SystemFunction<decltype(&SHGetFolderPathW)>("shell32.dll", "SHGetFolderPathW");
  wchar_t folder[MAX_PATH] = L"";
  return ask(nullptr, CSIDL_APPDATA | CSIDL_FLAG_CREATE, nullptr, SHGFP_TYPE_CURRENT, folder) ==
                 S_OK
             ? fs::path(folder)
             : fs::path();
}

// The shell, a large library, is asked only where the session does not say.
fs::path ApplicationDataFolder() {
  const fs::path folder = Variable(L"APPDATA");
  const DWORD found = GetFileAttributesW(SystemPath(folder).c_str());
  const bool is_folder =
      found != INVALID_FILE_ATTRIBUTES && (found & FILE_ATTRIBUTE_DIRECTORY) != 0;
  return folder.is_absolute() && is_folder ? folder : FolderOfShell();
}

// The user's own folder for this program, made when it is not there; empty where there is none.
fs::path UserFolder() {
  const fs::path folder = ApplicationDataFolder();
  if (folder.empty()) {
    return {};
  }
  fs::path path = InFolder(folder, kUserFolder);
  CreateDirectoryW(SystemPath(path).c_str(), nullptr);
  return path;
}

bool CanWrite(const fs::path& path) {
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                  nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    return false;
  }
  CloseHandle(file);
  return true;
}

fs::path WindowsFolder() {
  wchar_t folder[MAX_PATH] = L"";
  GetWindowsDirectoryW(folder, MAX_PATH);
  return folder;
}

fs::path CurrentFolder() {
  std::wstring folder(GetCurrentDirectoryW(0, nullptr), L'\0');
  folder.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
  return folder;
}

}  // namespace

fs::path ProgramPath() {
  std::wstring path(kLongestPath, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), kLongestPath));
  return path;
}

fs::path ProgramFolder() {
  const fs::path path = ProgramPath();
  return path.native().substr(0, path.native().rfind(kPathSeparator));
}

fs::path BesideProgram(const char* name) {
  const fs::path path = ProgramPath();
  return path.native().substr(0, NameOffset(path)) + fs::path(name).native();
}

fs::path ChooseProfilePath(const fs::path& system_folder, const fs::path& user_folder) {
  const fs::path system_path = InFolder(system_folder, kProfileName);
  return user_folder.empty() || CanWrite(system_path) ? system_path
                                                      : InFolder(user_folder, kProfileName);
}

const fs::path& ProfilePath() {
  static const fs::path path = ChooseProfilePath(WindowsFolder(), UserFolder());
  return path;
}

DefaultsFile FindDefaultsFile() {
  const fs::path user_folder = UserFolder();
  return ChooseDefaultsFile(
      InFolder(CurrentFolder(), kDefaultsName),
      user_folder.empty() ? fs::path() : InFolder(user_folder, kDefaultsName));
}

}  // namespace qz7
