#pragma once

#include <windows.h>

#include <memory>

#include "files/document.h"
#include "link/serial_port.h"

namespace qz7 {

// The whole state of the run.
struct AppState {
  Document document;
  std::unique_ptr<SerialPort> port;
  HWND main_window = nullptr;
  HWND main_dialog = nullptr;  // null once the dialog is destroyed
};
extern AppState app;

}  // namespace qz7
