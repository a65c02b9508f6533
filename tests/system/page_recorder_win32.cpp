// Stands in for the browser: `page_recorder FILE PAGE` adds a line to FILE, in UTF-8: the command
// line that the system has made.
#include <windows.h>
// Behind <windows.h>.
#include <shellapi.h>

#include <string>

namespace {

std::string Utf8(const std::wstring& text) {
  std::string bytes(text.size() * 3, '\0');
  bytes.resize(static_cast<std::size_t>(
      WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                          static_cast<int>(bytes.size()), nullptr, nullptr)));
  return bytes;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  int count = 0;
  wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  if (arguments == nullptr || count < 2) {
    return 1;
  }
  const std::string line = Utf8(GetCommandLineW()) + "\n";
  const HANDLE file =
      CreateFileW(arguments[1], FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                  OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  DWORD written = 0;
  const BOOL done =
      WriteFile(file, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
  return done ? 0 : 1;
}
