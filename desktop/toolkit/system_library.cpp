#include "desktop/toolkit/system_library.h"

#include <string>

namespace qz7 {

FARPROC FindSystemFunction(const char* library, const char* name) {
  wchar_t folder[MAX_PATH] = L"";
  GetSystemDirectoryW(folder, MAX_PATH);
  const std::string library_name(library);
  const std::wstring path =
      std::wstring(folder) + L"\\" + std::wstring(library_name.begin(), library_name.end());
  // It stays for as long as the program runs.
  const HMODULE module = LoadLibraryW(path.c_str());
  return module != nullptr ? GetProcAddress(module, name) : nullptr;
}

}  // namespace qz7
