#include "desktop/toolkit/system_library.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "desktop/locations.h"

namespace qz7 {
namespace {

TEST(SystemLibrary, HasEachFunctionThatTheProgramLoadsLater) {
  EXPECT_NE(FindSystemFunction("comdlg32.dll", "GetOpenFileNameW"), nullptr);
  EXPECT_NE(FindSystemFunction("comdlg32.dll", "GetSaveFileNameW"), nullptr);
  EXPECT_NE(FindSystemFunction("comdlg32.dll", "PrintDlgA"), nullptr);
  EXPECT_NE(FindSystemFunction("shell32.dll", "ShellExecuteW"), nullptr);
  EXPECT_NE(FindSystemFunction("shell32.dll", "DragQueryFileW"), nullptr);
  EXPECT_NE(FindSystemFunction("shell32.dll", "DragFinish"), nullptr);
  EXPECT_NE(FindSystemFunction("shell32.dll", "SHGetFolderPathW"), nullptr);
}

// A library beside the program is not the system's.
TEST(SystemLibrary, ComesFromTheSystemsFolderAlone) {
  ASSERT_NE(GetFileAttributesW(BesideProgram("qz732.dll").c_str()), INVALID_FILE_ATTRIBUTES);
  SetLastError(0);
  EXPECT_EQ(FindSystemFunction("qz732.dll", "anything"), nullptr);
  EXPECT_EQ(GetLastError(), DWORD{ERROR_MOD_NOT_FOUND});
}

std::set<std::string> ImportsOf(HMODULE program) {
  const auto* base = reinterpret_cast<const char*>(program);
  const auto& start = *reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto& headers = *reinterpret_cast<const IMAGE_NT_HEADERS*>(base + start.e_lfanew);
  const auto& table = headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  std::set<std::string> names;
  for (const auto* one =
           reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + table.VirtualAddress);
       one->Name != 0; ++one) {
    std::string name = base + one->Name;
    CharLowerA(name.data());
    names.insert(name);
  }
  return names;
}

// What the start waits for. The boxes' library and the shell bring a dozen others with them.
TEST(SystemLibrary, TheProgramNamesNoLibraryThatItsFirstPictureDoesWithout) {
  const HMODULE program =
      LoadLibraryExW(BesideProgram("qz7.exe").c_str(), nullptr, DONT_RESOLVE_DLL_REFERENCES);
  ASSERT_NE(program, nullptr);
  EXPECT_EQ(ImportsOf(program),
            (std::set<std::string>{"advapi32.dll", "comctl32.dll", "gdi32.dll", "kernel32.dll",
                                   "msvcrt.dll", "user32.dll", "version.dll"}));
  FreeLibrary(program);
}

}  // namespace
}  // namespace qz7
