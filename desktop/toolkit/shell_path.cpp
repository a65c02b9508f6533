#include "desktop/toolkit/shell_path.h"

#include <windows.h>

#include <string>

#include "core/files/paths.h"

namespace qz7 {
namespace {

std::wstring WithoutMark(const std::wstring& path) {
  constexpr std::wstring_view kMark = L"\\\\?\\";
  constexpr std::wstring_view kServer = L"\\\\?\\UNC\\";
  if (path.starts_with(kServer)) {
    return L"\\\\" + path.substr(kServer.size());
  }
  return path.starts_with(kMark) ? path.substr(kMark.size()) : path;
}

// Empty where there is no such folder.
std::wstring ShortName(const std::filesystem::path& folder) {
  const std::filesystem::path path = SystemPath(folder);
  std::wstring name(GetShortPathNameW(path.c_str(), nullptr, 0), L'\0');
  name.resize(GetShortPathNameW(path.c_str(), name.data(), static_cast<DWORD>(name.size())));
  return WithoutMark(name);
}

}  // namespace

std::filesystem::path ShellPath(const std::filesystem::path& path) {
  std::filesystem::path plain = WithoutMark(path.native());
  if (plain.native().size() < MAX_PATH) {
    return plain;
  }
  // Only the folder's: the name tells the shell what kind of file it is.
  const std::wstring folder = ShortName(plain.parent_path());
  return folder.empty() ? plain : InFolder(folder, plain.filename());
}

}  // namespace qz7
