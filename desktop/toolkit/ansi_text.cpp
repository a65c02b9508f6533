#include "desktop/toolkit/ansi_text.h"

#include <windows.h>

namespace qz7 {

std::string AnsiText(std::wstring_view text) {
  const auto size = static_cast<int>(text.size());
  const int needed =
      WideCharToMultiByte(CP_ACP, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(needed), '\0');
  WideCharToMultiByte(CP_ACP, 0, text.data(), size, bytes.data(), needed, nullptr, nullptr);
  return bytes;
}

std::wstring WideText(std::string_view text) {
  const auto size = static_cast<int>(text.size());
  const int needed = MultiByteToWideChar(CP_ACP, 0, text.data(), size, nullptr, 0);
  std::wstring letters(static_cast<std::size_t>(needed), L'\0');
  MultiByteToWideChar(CP_ACP, 0, text.data(), size, letters.data(), needed);
  return letters;
}

}  // namespace qz7
