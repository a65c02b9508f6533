#pragma once

#include <windows.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>

#include "desktop/toolkit/held_drawing.h"

namespace qz7 {

// What all dialogs share.

// The templates' homes: "DLLDlg..." in the resource library, "Dlg..." in the program.
struct DialogModules {
  HINSTANCE program = nullptr;
  HMODULE library = nullptr;
  HWND main_window = nullptr;       // the owner of what has no nearer one
  std::filesystem::path help_path;  // of "qz7.hlp"; the pages' folder "help" is beside it
};
extern DialogModules dialog_modules;

// The window that a dialog or a box belongs to now: the main window or the dialog open over it.
HWND DialogOwner();

// Shows a modal dialog over DialogOwner. `state` arrives as the parameter of WM_INITDIALOG and is
// kept for StateOf. Returns what the dialog ends with: 0 for OK, -1 for Cancel, a closed window and
// a template that is not there.
INT_PTR RunDialog(const char* template_name, DLGPROC procedure, void* state);
// Null as well where the dialog could not be opened, and that has been said.
HWND CreateModelessDialog(const char* template_name, HWND parent, DLGPROC procedure, void* state);

// For as long as one lives, a modeless dialog keeps its owner from being used. At the end the owner
// comes back first, so that it and no other program's window becomes active; then the dialog goes.
struct DisabledOwner {
  explicit DisabledOwner(HWND owner) : owner_(owner) { EnableWindow(owner, FALSE); }
  ~DisabledOwner() {
    EnableWindow(owner_, TRUE);
    DestroyWindow(dialog);
  }
  DisabledOwner(const DisabledOwner&) = delete;
  DisabledOwner& operator=(const DisabledOwner&) = delete;

  HWND dialog = nullptr;

 private:
  HWND owner_;
};

struct Tooltip {
  int control;
  std::string text;
};

// The common set-up, at the end of WM_INITDIALOG: keeps the state, centres the dialog over its
// parent, lets F1 press the Help button, shows the tooltips.
void SetUpDialog(HWND dialog, LPARAM state, std::span<const Tooltip> tooltips = {});
// The window of the tooltips; null without any.
HWND AddTooltips(HWND dialog, std::span<const Tooltip> tooltips);
void ChangeTooltip(HWND tooltips, HWND dialog, const Tooltip& tip);

// What every dialog does. Closing the window is Cancel.
struct DialogActions {
  BOOL (*init)(HWND dialog, LPARAM state);
  void (*command)(HWND dialog, int control, int notification);
};
// The answer of a dialog procedure to the messages that these are for; FALSE for any other.
INT_PTR HandleDialogMessage(const DialogActions& actions, HWND dialog, UINT message, WPARAM w,
                            LPARAM l);

template <class State>
State& StateOf(HWND dialog) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the system keeps the pointer as a number
  return *reinterpret_cast<State*>(GetWindowLongPtrA(dialog, DWLP_USER));
}

std::string WindowText(HWND window);
std::string ControlText(HWND dialog, int control);
void LimitText(HWND dialog, int control, std::size_t characters);

void AddToList(HWND list, const std::string& text);
// Adds to a drop-down list: texts, or the text of each value.
template <class Values, class Text = std::identity>
void FillList(HWND dialog, int control, const Values& values, Text text = {}) {
  const HWND list = GetDlgItem(dialog, control);
  const HeldDrawing held(list);
  for (const auto& value : values) {
    AddToList(list, text(value));
  }
}
// As many texts, each by its position.
void FillList(HWND dialog, int control, int count, std::string (*text)(int position));
// Chooses one; nothing for a position outside the list.
void SelectInList(HWND dialog, int control, std::optional<int> position);
std::optional<int> ChosenInList(HWND dialog, int control);
void Check(HWND dialog, int button, bool checked);
bool IsChecked(HWND dialog, int button);
// The default button and a text's selection follow the focus.
void MoveFocus(HWND dialog, int control);

}  // namespace qz7
