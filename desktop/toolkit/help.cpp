#include "desktop/toolkit/help.h"

#include <windows.h>

#include <string>

#include "core/files/seams.h"
#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/help_viewer.h"

namespace qz7 {
namespace {

bool FileExists(const std::filesystem::path& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool UsesViewer() { return FileExists(dialog_modules.help_path) && HasHelpViewer(); }

// The page beside the help file, at one of its anchors; nothing where it is not there.
void OpenPage(const std::string& anchor) {
  std::string path = PathText(dialog_modules.help_path);
  path.replace(path.rfind('.'), std::string::npos, ".html");
  if (!FileExists(path)) {
    return;
  }
  std::string url = "file:///";
  for (const char c : path) {
    url += c == '\\' ? std::string("/") : c == ' ' ? std::string("%20") : std::string(1, c);
  }
  OpenHelpPage(url + anchor);
}

void AskViewer(UINT command, ULONG_PTR data) {
  AskHelpViewer(PathText(dialog_modules.help_path), command, data);
}

}  // namespace

void ShowHelp(int context) {
  if (UsesViewer()) {
    AskViewer(HELP_CONTEXT, static_cast<ULONG_PTR>(context));
  } else {
    OpenPage("#" + std::to_string(context));
  }
}

void ShowHelpContents() {
  if (UsesViewer()) {
    AskViewer(HELP_CONTENTS, 0);
  } else {
    OpenPage("");
  }
}

void ShowHelpSearch() {
  if (UsesViewer() && HelpViewerSearches()) {
    AskViewer(HELP_PARTIALKEY, reinterpret_cast<ULONG_PTR>(""));
  } else {
    OpenPage("#search");
  }
}

void ShowHelpOnHelp() {
  if (HasHelpViewer() && HasHelpOnHelp()) {
    AskHelpViewer("WINHELP.HLP", HELP_CONTENTS, 0);
  } else {
    OpenPage("#help");
  }
}

void QuitHelp() {
  if (UsesViewer()) {
    AskViewer(HELP_QUIT, 0);
  }
}

}  // namespace qz7
