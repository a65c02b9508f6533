#pragma once

#include <map>
#include <memory>
#include <string>

#include "tests/model/windows.h"

// A window of the model: a dialog, or a control in one.
struct ModelWindow {
  DLGPROC procedure = nullptr;
  LPARAM state = 0;
  bool enabled = true;
  std::string text;
  std::map<int, std::unique_ptr<ModelWindow>> controls;
};

namespace qz7::model {

// A new desktop without messages, timers and windows.
void StartDesktop();

// The dialog that is open; null for none.
HWND OpenDialog();
// Timers that run.
std::size_t RunningTimers();
// Handles messages for so many milliseconds, as the box of a question does while it is shown.
void HandleMessagesFor(int milliseconds);

}  // namespace qz7::model
