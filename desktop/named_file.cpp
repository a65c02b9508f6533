#include "desktop/named_file.h"

#include <windows.h>

#include "core/files/seams.h"

namespace qz7 {
namespace {

std::wstring FullPath(const std::wstring& name) {
  std::wstring path(GetFullPathNameW(name.c_str(), 0, nullptr, nullptr), L'\0');
  path.resize(
      GetFullPathNameW(name.c_str(), static_cast<DWORD>(path.size()), path.data(), nullptr));
  return path;
}

}  // namespace

NamedFile FileOfWord(const CommandLineWord& word) {
  std::wstring name = WithExtension(word.name);
  CharUpperBuffW(name.data(), static_cast<DWORD>(name.size()));
  const std::wstring path = FullPath(name);
  NamedFile file{.name = PathText(word.name), .path = std::nullopt};
  if (!path.empty() && (word.quoted || path.size() < MAX_PATH)) {
    file.path = path;
  }
  return file;
}

}  // namespace qz7
