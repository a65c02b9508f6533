#include "desktop/file_box.h"

#include "core/files/paths.h"
#include "desktop/toolkit/ansi_text.h"
#include "desktop/toolkit/shell_path.h"

namespace qz7 {
namespace {

constexpr std::size_t kLongestPath = 32'768;

// "text\0pattern\0text\0pattern\0\0"
std::wstring FilterText(const FileBox& box) {
  std::wstring text;
  for (const FileFilter& filter : box.filters) {
    text.append(WideText(filter.text)).push_back(L'\0');
    text.append(WideText(filter.pattern)).push_back(L'\0');
  }
  return text;
}

// "C:" alone would be the current folder of that drive.
std::wstring WithRoot(const std::wstring& folder) {
  return folder.ends_with(L':') ? folder + L'\\' : folder;
}

DWORD FlagsOf(FileBoxKind kind) {
  // That a box leaves the current folder alone is not promised for every kind of it.
  constexpr DWORD kAll = OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_EXPLORER;
  return kAll | (kind == FileBoxKind::kOpen ? OFN_FILEMUSTEXIST : OFN_OVERWRITEPROMPT);
}

}  // namespace

SystemFileBox::SystemFileBox(const FileBox& box, FileBoxKind kind, HWND owner)
    : filter(FilterText(box)),
      asked_folder(box.folder),
      folder(WithRoot(ShellPath(box.folder).native())),
      title(WideText(box.title)),
      extension(WideText(box.default_extension)),
      path(box.initial_name.native()),
      name(kLongestPath, L'\0') {
  path.resize(kLongestPath);
  open.lStructSize = sizeof open;
  open.hwndOwner = owner;
  open.lpstrFilter = filter.c_str();
  open.nFilterIndex = 1;
  open.lpstrFile = path.data();
  open.nMaxFile = static_cast<DWORD>(path.size());
  open.lpstrFileTitle = name.data();
  open.nMaxFileTitle = static_cast<DWORD>(name.size());
  open.lpstrInitialDir = folder.c_str();
  open.lpstrTitle = title.c_str();
  open.lpstrDefExt = extension.c_str();
  open.Flags = FlagsOf(kind);
}

ChosenFile SystemFileBox::Chosen() const {
  ChosenFile chosen{.path = path.c_str(), .name = name.c_str(), .name_offset = open.nFileOffset};
  // A short name stands for the folder only in the box.
  const std::wstring_view in_box = path.c_str();
  if (folder != WithRoot(asked_folder.native()) && in_box.starts_with(folder + L'\\')) {
    chosen.path = asked_folder.native() + std::wstring(in_box.substr(folder.size()));
    chosen.name_offset = NameOffset(chosen.path);
  }
  return chosen;
}

}  // namespace qz7
