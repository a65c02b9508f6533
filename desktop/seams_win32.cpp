#include <windows.h>
// Behind <windows.h>.
#include <commdlg.h>
#include <shlobj.h>

#include <ctime>
#include <string>

#include "core/files/seams.h"
#include "desktop/file_box.h"
#include "desktop/files/profile_file.h"
#include "desktop/link/exchange_window.h"
#include "desktop/link/port_dialog.h"
#include "desktop/locations.h"
#include "desktop/printing/printing.h"
#include "desktop/toolkit/ansi_text.h"
#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/system_library.h"

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

constexpr const char* kBoxLibrary = "comdlg32.dll";

std::optional<ChosenFile> RunFileBox(const FileBox& box, FileBoxKind kind, const char* function) {
  const auto show = SystemFunction<decltype(&GetOpenFileNameW)>(kBoxLibrary, function);
  SystemFileBox system_box(box, kind, DialogOwner());
  return show(&system_box.open) ? std::optional(system_box.Chosen()) : std::nullopt;
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

std::string PathText(const std::filesystem::path& path) { return AnsiText(path.native()); }

std::filesystem::path PathOfText(std::string_view text) { return WideText(text); }

std::string ShownText(std::string_view bytes) { return std::string(bytes); }

void TellRecentDocument(const std::filesystem::path& path) {
  SystemFunction<decltype(&SHAddToRecentDocs)>("shell32.dll", "SHAddToRecentDocs")(SHARD_PATHW,
                                                                                   path.c_str());
}

std::uint32_t CurrentTimeSeconds() { return static_cast<std::uint32_t>(std::time(nullptr)); }

std::optional<ChosenFile> ShowOpenBox(const FileBox& box) {
  return RunFileBox(box, FileBoxKind::kOpen, "GetOpenFileNameW");
}

std::optional<ChosenFile> ShowSaveBox(const FileBox& box) {
  return RunFileBox(box, FileBoxKind::kSave, "GetSaveFileNameW");
}

std::optional<ChosenPrinter> ShowPrintBox() {
  PRINTDLGA box = MakePrintBox(DialogOwner());
  const auto show = SystemFunction<decltype(&PrintDlgA)>(kBoxLibrary, "PrintDlgA");
  if (!show(&box)) {
    return std::nullopt;
  }
  return ChosenPrinter{
      .device = box.hDC, .copies = box.nCopies, .settings = box.hDevMode, .names = box.hDevNames};
}

std::optional<int> AskForPort(int index) { return ShowPortDialog(index); }

Profile ReadProfile() { return ReadProfileFile(ProfilePath(), kProgramTitle); }

void WriteProfile(const std::string& key, const std::string& value) {
  WritePrivateProfileStringW(WideText(kProgramTitle).c_str(), WideText(key).c_str(),
                             WideText(value).c_str(), ProfilePath().c_str());
}

void ForgetProfile(const std::string& key) {
  WritePrivateProfileStringW(WideText(kProgramTitle).c_str(), WideText(key).c_str(), nullptr,
                             ProfilePath().c_str());
}

}  // namespace qz7
