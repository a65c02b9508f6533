#include "desktop/toolkit/help.h"

#include <windows.h>
// Behind <windows.h>.
#include <shellapi.h>

#include <array>
#include <filesystem>
#include <string>

#include "core/files/seams.h"
#include "desktop/toolkit/ansi_text.h"
#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/help_viewer.h"
#include "desktop/toolkit/shell_path.h"
#include "desktop/toolkit/system_library.h"

namespace qz7 {
namespace {

struct HelpPage {
  int context;
  const char* name;
};
// The page of each number; a test holds it against the topics.
constexpr std::array kHelpPages = {
    HelpPage{102, "getting_data"},
    HelpPage{103, "sending_data"},
    HelpPage{104, "data_sent"},
    HelpPage{105, "com_port"},
    HelpPage{106, "memory_list"},
    HelpPage{107, "channel_editor"},
    HelpPage{108, "autodial"},
    HelpPage{110, "merge"},
    HelpPage{111, "home_and_vfo_editor"},
    HelpPage{112, "copy_many"},
    HelpPage{119, "vorn"},
    HelpPage{120, "groups"},
    HelpPage{121, "settings"},
    HelpPage{122, "preferences"},
    HelpPage{123, "wx_names"},
    HelpPage{125, "icons"},
    HelpPage{224, "import_columns"},
};

const char* PageOf(int context) {
  for (const HelpPage& page : kHelpPages) {
    if (page.context == context) {
      return page.name;
    }
  }
  return "contents";
}

// The viewer takes names of the code page only; empty for a path that has none.
std::string ViewersName(const std::filesystem::path& path) {
  std::string name = AnsiText(path.native());
  return WideText(name) == path.native() ? name : "";
}

bool UsesViewer() {
  std::error_code ignored;
  return std::filesystem::is_regular_file(dialog_modules.help_path, ignored) &&
         !ViewersName(dialog_modules.help_path).empty() && HasHelpViewer();
}

// In the browser, as the plain file that it is: the system would drop an anchor behind its name.
void OpenPage(const char* name) {
  const std::filesystem::path below = std::filesystem::path("help") / (name + std::string(".html"));
  const std::filesystem::path page = ShellPath(dialog_modules.help_path.parent_path() / below);
  const auto open = SystemFunction<decltype(&ShellExecuteW)>("shell32.dll", "ShellExecuteW");
  const HINSTANCE opened =
      open(dialog_modules.main_window, L"open", page.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
  constexpr INT_PTR kLastError = 32;
  if (reinterpret_cast<INT_PTR>(opened) <= kLastError) {
    ShowFileError("Cannot open help page: " + below.string());
  }
}

void AskViewer(UINT command, ULONG_PTR data) {
  AskHelpViewer(ViewersName(dialog_modules.help_path), command, data);
}

}  // namespace

void ShowHelp(int context) {
  if (UsesViewer()) {
    AskViewer(HELP_CONTEXT, static_cast<ULONG_PTR>(context));
  } else {
    OpenPage(PageOf(context));
  }
}

void ShowHelpContents() {
  if (UsesViewer()) {
    AskViewer(HELP_CONTENTS, 0);
  } else {
    OpenPage("contents");
  }
}

void ShowHelpSearch() {
  if (UsesViewer() && HelpViewerSearches()) {
    AskViewer(HELP_PARTIALKEY, reinterpret_cast<ULONG_PTR>(""));
  } else {
    OpenPage("search");
  }
}

void ShowHelpOnHelp() {
  if (HasHelpViewer() && HasHelpOnHelp()) {
    AskHelpViewer("WINHELP.HLP", HELP_CONTENTS, 0);
  } else {
    OpenPage("searching");
  }
}

void QuitHelp() {
  if (UsesViewer()) {
    AskViewer(HELP_QUIT, 0);
  }
}

}  // namespace qz7
