#include "desktop/toolkit/shell_path.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <cwchar>

#include "desktop/file_box.h"
#include "tests/ui/long_folder.h"

namespace qz7 {
namespace {

namespace fs = std::filesystem;

TEST(ShellPath, OfUsualLengthIsThePathItself) {
  EXPECT_EQ(ShellPath("C:\\folder\\page.html").native(), L"C:\\folder\\page.html");
  EXPECT_EQ(ShellPath("page.html").native(), L"page.html");
}

TEST(ShellPath, HasNoMarkOfLongPaths) {
  EXPECT_EQ(ShellPath("\\\\?\\C:\\folder\\page.html").native(), L"C:\\folder\\page.html");
  EXPECT_EQ(ShellPath("\\\\?\\UNC\\server\\share\\page.html").native(),
            L"\\\\server\\share\\page.html");
}

TEST(ShellPath, BeyondTheShellsLengthHasItsFoldersShortName) {
  const LongFolder folder;
  folder.Put("page.html", "the page");
  const fs::path path = ShellPath(folder.path() / "page.html");
  EXPECT_LT(path.native().size(), static_cast<std::size_t>(MAX_PATH));
  EXPECT_EQ(path.filename(), "page.html");
  EXPECT_EQ(FileBytes(path).size(), 8U);
}

TEST(ShellPath, OfAFolderThatIsNotThereStaysLong) {
  const fs::path path = fs::path("C:\\") / std::wstring(300, L'x') / "page.html";
  EXPECT_EQ(ShellPath(path), path);
}

TEST(FileBoxes, OpenInAFolderOfAnyLengthAndTellItsWholeName) {
  const LongFolder folder;
  FileBox asked;
  asked.folder = folder.path();
  SystemFileBox box(asked, FileBoxKind::kSave, nullptr);
  EXPECT_LT(std::wcslen(box.open.lpstrInitialDir), static_cast<std::size_t>(MAX_PATH));
  const std::wstring chosen = box.open.lpstrInitialDir + std::wstring(L"\\below\\new.rdf");
  std::wcscpy(box.open.lpstrFile, chosen.c_str());
  EXPECT_EQ(box.Chosen().path, folder.path() / "below" / "new.rdf");
  EXPECT_EQ(box.Chosen().name_offset, folder.path().native().size() + 7);
}

TEST(FileBoxes, TellAFileOfAnotherFolderAsItIs) {
  const LongFolder folder;
  FileBox asked;
  asked.folder = folder.path();
  SystemFileBox box(asked, FileBoxKind::kOpen, nullptr);
  std::wcscpy(box.open.lpstrFile, L"C:\\other\\one.rdf");
  box.open.nFileOffset = 9;
  EXPECT_EQ(box.Chosen().path.native(), L"C:\\other\\one.rdf");
  EXPECT_EQ(box.Chosen().name_offset, 9U);
}

}  // namespace
}  // namespace qz7
