#include <windows.h>

#include <string>

#include "core/files/paths.h"

namespace qz7 {
namespace {

constexpr std::wstring_view kAnyLength = L"\\\\?\\";

std::wstring FullPath(const std::wstring& path) {
  std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
  const auto size = static_cast<DWORD>(full.size());
  full.resize(GetFullPathNameW(path.c_str(), size, full.data(), nullptr));
  return full;
}

}  // namespace

bool SamePath(const std::filesystem::path& a, const std::filesystem::path& b) {
  return CompareStringOrdinal(a.c_str(), -1, b.c_str(), -1, TRUE) == CSTR_EQUAL;
}

std::filesystem::path SystemPath(const std::filesystem::path& path) {
  // A new file beside it has room, too.
  constexpr std::size_t kLongestPlain = MAX_PATH - 40;
  const std::wstring full = FullPath(path.native());
  if (full.size() < kLongestPlain || full.starts_with(kAnyLength)) {
    return path;
  }
  const bool on_server = full.starts_with(L"\\\\");
  return std::wstring(kAnyLength) + (on_server ? L"UNC" + full.substr(1) : full);
}

}  // namespace qz7
