#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "core/editors/autodial.h"
#include "core/files/document.h"
#include "core/interchange/import_session.h"
#include "core/interchange/merge.h"
#include "core/link/serial_port.h"

namespace qz7 {

// The whole state of the run.
struct AppState {
  Document document;
  DefaultsFile defaults_file;  // found at the start: the current folder may change
  std::unique_ptr<SerialPort> port;
  ImportSession import_session;
  MergeOptions merge_options;
  DtmfDisplay dtmf_display = DtmfDisplay::kSymbols;  // of the autodial numbers
  std::string note;  // what the last command did, for the status line
  HWND main_window = nullptr;
  HWND main_dialog = nullptr;  // null once the dialog is destroyed
  HWND status_line = nullptr;  // of the main dialog
};
extern AppState app;

}  // namespace qz7
