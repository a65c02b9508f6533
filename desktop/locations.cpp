#include "desktop/locations.h"

#include <windows.h>
// Behind <windows.h>.
#include <shlobj.h>

namespace qz7 {
namespace {

constexpr const char* kProfileName = "Tamro.ini";
constexpr const char* kDefaultsName = "qz7.def";
constexpr const char* kUserFolder = "Tamro";

// The user's own folder for this program, made when it is not there; empty where there is none.
std::string UserFolder() {
  char folder[MAX_PATH] = "";
  if (SHGetFolderPathA(nullptr, CSIDL_APPDATA | CSIDL_FLAG_CREATE, nullptr, SHGFP_TYPE_CURRENT,
                       folder) != S_OK) {
    return "";
  }
  std::string path = std::string(folder) + "\\" + kUserFolder;
  CreateDirectoryA(path.c_str(), nullptr);
  return path;
}

bool CanWrite(const std::string& path) {
  const HANDLE file = CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                  nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    return false;
  }
  CloseHandle(file);
  return true;
}

std::string ChooseProfilePath() {
  char folder[MAX_PATH] = "";
  GetWindowsDirectoryA(folder, MAX_PATH);
  std::string system_path = std::string(folder) + "\\" + kProfileName;
  if (CanWrite(system_path)) {
    return system_path;
  }
  const std::string user_folder = UserFolder();
  return user_folder.empty() ? system_path : user_folder + "\\" + kProfileName;
}

}  // namespace

std::string ProgramPath() {
  char path[MAX_PATH] = "";
  GetModuleFileNameA(nullptr, path, MAX_PATH);
  return path;
}

std::string ProgramFolder() {
  const std::string path = ProgramPath();
  return path.substr(0, path.rfind('\\'));
}

std::string BesideProgram(const char* name) {
  const std::string path = ProgramPath();
  const std::size_t separator = path.rfind('\\');
  return separator == std::string::npos ? path : path.substr(0, separator + 1) + name;
}

const std::string& ProfilePath() {
  static const std::string path = ChooseProfilePath();
  return path;
}

DefaultsFile FindDefaultsFile() {
  char current[MAX_PATH] = "";
  GetCurrentDirectoryA(MAX_PATH, current);
  const std::string user_folder = UserFolder();
  return ChooseDefaultsFile(std::string(current) + "\\" + kDefaultsName,
                            user_folder.empty() ? "" : user_folder + "\\" + kDefaultsName);
}

}  // namespace qz7
