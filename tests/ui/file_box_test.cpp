#include "desktop/file_box.h"

#include <gtest/gtest.h>

#include <cwchar>

namespace qz7 {
namespace {

const FileBox kBox = {.title = "Open Radio File",
                      .filters = {{"Radio Files (*.rdf)", "*.rdf"}, {"All files (*.*)", "*.*"}},
                      .default_extension = "rdf",
                      .folder = u8"C:\\Žluťoučký кот 日本",
                      .initial_name = u8"日本.rdf"};
const HWND kOwner = GetDesktopWindow();

TEST(FileBoxes, AnOpenedFileAndItsFolderExistAndThereIsNoReadOnlyBox) {
  const SystemFileBox box(kBox, FileBoxKind::kOpen, kOwner);
  EXPECT_EQ(box.open.Flags, static_cast<DWORD>(OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST |
                                               OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_EXPLORER));
}

TEST(FileBoxes, ASavedFilesFolderExistsAndOverwritingIsAskedAbout) {
  const SystemFileBox box(kBox, FileBoxKind::kSave, kOwner);
  EXPECT_EQ(box.open.Flags, static_cast<DWORD>(OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST |
                                               OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_EXPLORER));
}

TEST(FileBoxes, SayWhatTheProgramAsksFor) {
  for (const FileBoxKind kind : {FileBoxKind::kOpen, FileBoxKind::kSave}) {
    const SystemFileBox box(kBox, kind, kOwner);
    EXPECT_EQ(box.open.lStructSize, sizeof(OPENFILENAMEW));
    EXPECT_EQ(box.open.hwndOwner, kOwner);
    EXPECT_STREQ(box.open.lpstrTitle, L"Open Radio File");
    EXPECT_STREQ(box.open.lpstrDefExt, L"rdf");
    EXPECT_STREQ(box.open.lpstrInitialDir, kBox.folder.c_str());
    EXPECT_STREQ(box.open.lpstrFile, kBox.initial_name.c_str());
    EXPECT_EQ(box.open.nFilterIndex, 1U);
    constexpr wchar_t kFilter[] = L"Radio Files (*.rdf)\0*.rdf\0All files (*.*)\0*.*\0";
    EXPECT_EQ(std::wmemcmp(box.open.lpstrFilter, kFilter, sizeof kFilter / sizeof(wchar_t)), 0);
  }
}

TEST(FileBoxes, TakeNamesOfAnyLength) {
  const SystemFileBox box(kBox, FileBoxKind::kOpen, kOwner);
  EXPECT_EQ(box.open.nMaxFile, 32'768U);
  EXPECT_EQ(box.open.nMaxFileTitle, 32'768U);
  box.open.lpstrFile[32'767] = L'\0';
  box.open.lpstrFileTitle[32'767] = L'\0';
}

TEST(FileBoxes, OpenInTheRootOfADriveThatIsTheDataFolder) {
  FileBox asked = kBox;
  asked.folder = "C:";
  const SystemFileBox box(asked, FileBoxKind::kOpen, kOwner);
  EXPECT_STREQ(box.open.lpstrInitialDir, L"C:\\");
}

TEST(FileBoxes, TellTheChosenFileToTheLetter) {
  SystemFileBox box(kBox, FileBoxKind::kOpen, kOwner);
  std::wcscpy(box.open.lpstrFile, L"C:\\\u043A\u043E\u0442\\\u65E5\u672C.rdf");
  std::wcscpy(box.open.lpstrFileTitle, L"\u65E5\u672C.rdf");
  box.open.nFileOffset = 7;
  const ChosenFile file = box.Chosen();
  EXPECT_EQ(file.path.native(), L"C:\\\u043A\u043E\u0442\\\u65E5\u672C.rdf");
  EXPECT_EQ(file.name.native(), L"\u65E5\u672C.rdf");
  EXPECT_EQ(file.name_offset, 7U);
}

}  // namespace
}  // namespace qz7
