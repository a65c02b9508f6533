#include <windows.h>
// Behind <windows.h>.
#include <shellapi.h>

#include <memory>
#include <string_view>

#include "ctl/process.h"

namespace qz7 {
namespace {

std::string Utf8Of(std::wstring_view text) {
  const auto size = static_cast<int>(text.size());
  const int needed =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(needed), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), size, bytes.data(), needed, nullptr, nullptr);
  return bytes;
}

}  // namespace

// What the runtime hands over has been through the code page.
std::vector<std::string> ProgramArguments(int /*argc*/, char** /*argv*/) {
  int count = 0;
  const std::unique_ptr<wchar_t*, decltype(&LocalFree)> words(
      CommandLineToArgvW(GetCommandLineW(), &count), &LocalFree);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) {
    arguments.push_back(Utf8Of(words.get()[i]));
  }
  return arguments;
}

}  // namespace qz7
