#include <windows.h>
// Behind <windows.h>.
#include <commdlg.h>

#include <ctime>
#include <string>

#include "core/files/seams.h"
#include "desktop/link/exchange_window.h"
#include "desktop/link/port_dialog.h"
#include "desktop/locations.h"
#include "desktop/printing/printing.h"
#include "desktop/toolkit/dialog_support.h"

// What the core asks of its program, answered with the system's own boxes and files.
namespace qz7 {
namespace {

UINT BoxStyle(Buttons buttons, Icon icon) {
  constexpr UINT kButtonStyles[] = {MB_OK, MB_YESNO, MB_YESNOCANCEL, MB_RETRYCANCEL};
  constexpr UINT kIconStyles[] = {0, MB_ICONSTOP, MB_ICONQUESTION, MB_ICONWARNING,
                                  MB_ICONINFORMATION};
  return kButtonStyles[static_cast<int>(buttons)] | kIconStyles[static_cast<int>(icon)];
}

Answer AnswerOf(int button) {
  switch (button) {
    case IDOK:
      return Answer::kOk;
    case IDYES:
      return Answer::kYes;
    case IDNO:
      return Answer::kNo;
    case IDRETRY:
      return Answer::kRetry;
    default:
      return Answer::kCancel;
  }
}

// "text\0pattern\0text\0pattern\0\0"
std::string FilterText(const FileBox& box) {
  std::string text;
  for (const FileFilter& filter : box.filters) {
    text.append(filter.text).push_back('\0');
    text.append(filter.pattern).push_back('\0');
  }
  return text;
}

using ShowBox = decltype(&GetOpenFileNameA);

std::optional<ChosenFile> RunFileBox(const FileBox& box, DWORD flags, ShowBox show) {
  char path[MAX_PATH] = "";
  char name[MAX_PATH] = "";
  box.initial_name.copy(path, MAX_PATH - 1);
  const std::string filter = FilterText(box);
  // "C:" alone would be the current folder of that drive.
  const std::string folder = box.folder.ends_with(':') ? box.folder + '\\' : box.folder;
  OPENFILENAMEA open{};
  open.lStructSize = sizeof open;
  open.hwndOwner = DialogOwner();
  open.lpstrFilter = filter.c_str();
  open.nFilterIndex = 1;
  open.lpstrFile = path;
  open.nMaxFile = MAX_PATH;
  open.lpstrFileTitle = name;
  open.nMaxFileTitle = MAX_PATH;
  open.lpstrInitialDir = folder.c_str();
  open.lpstrTitle = box.title;
  open.lpstrDefExt = box.default_extension;
  // The current folder holds the defaults file, so that a box must not change it.
  open.Flags = flags | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_EXPLORER;
  if (!show(&open)) {
    return std::nullopt;
  }
  return ChosenFile{.path = path, .name = name, .name_offset = open.nFileOffset};
}

}  // namespace

Answer ShowMessage(const std::string& text, const std::string& caption, Buttons buttons,
                   Icon icon) {
  // Without a caption the system puts its own word for an error.
  const char* title = caption.empty() ? nullptr : caption.c_str();
  return AnswerOf(MessageBoxA(DialogOwner(), text.c_str(), title, BoxStyle(buttons, icon)));
}

void ShowBoxWithoutOwner(const std::string& text, const std::string& caption) {
  MessageBoxA(nullptr, text.c_str(), caption.c_str(), MB_OK);
}

std::uint32_t CurrentTimeSeconds() { return static_cast<std::uint32_t>(std::time(nullptr)); }

std::optional<ChosenFile> ShowOpenBox(const FileBox& box) {
  return RunFileBox(box, OFN_FILEMUSTEXIST, GetOpenFileNameA);
}

std::optional<ChosenFile> ShowSaveBox(const FileBox& box) {
  return RunFileBox(box, OFN_OVERWRITEPROMPT, GetSaveFileNameA);
}

std::optional<ChosenPrinter> ShowPrintBox() {
  PRINTDLGA box = MakePrintBox(DialogOwner());
  if (!PrintDlgA(&box)) {
    return std::nullopt;
  }
  return ChosenPrinter{
      .device = box.hDC, .copies = box.nCopies, .settings = box.hDevMode, .names = box.hDevNames};
}

std::optional<int> AskForPort(int index) { return ShowPortDialog(index); }

std::string ReadProfile(const std::string& key, const std::string& missing, std::size_t most) {
  std::string value(most + 1, '\0');
  const DWORD size =
      GetPrivateProfileStringA(kProgramTitle, key.c_str(), missing.c_str(), value.data(),
                               static_cast<DWORD>(value.size()), ProfilePath().c_str());
  value.resize(size);
  return value;
}

void WriteProfile(const std::string& key, const std::string& value) {
  WritePrivateProfileStringA(kProgramTitle, key.c_str(), value.c_str(), ProfilePath().c_str());
}

}  // namespace qz7
