#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "desktop/app_state.h"
#include "desktop/toolkit/dialog_support.h"
#include "tests/unit/memory_line.h"
#include "tests/unit/seams.h"
#include "tests/unit/temp_folder.h"

namespace qz7 {

// The program's main window with a new document in a folder of the test's own, and an open port.
class WindowTest : public testing::Test {
 protected:
  WindowTest();
  ~WindowTest() override;

  // Puts another line in the port's place.
  template <typename Line>
  Line& UsePort() {
    auto line = std::make_unique<Line>();
    line->Open("COM1");
    Line& port = *line;
    app.port = std::move(line);
    return port;
  }

  TempFolder folder;
};

// Runs a script in the next modal dialog, as soon as that is open; the script closes it. A dialog
// that does not come, or stays open, fails the test and is cancelled.
class DialogScript {
 public:
  explicit DialogScript(std::function<void(HWND)> script);
  DialogScript(const DialogScript&) = delete;
  DialogScript& operator=(const DialogScript&) = delete;
  ~DialogScript();
};

// As the user does it: the control, then the notification that it sends.
void Press(HWND dialog, int control);
void Choose(HWND dialog, int list, int position);
void Type(HWND dialog, int field, const std::string& text);
// A key that goes to the control with the focus by way of the dialog, as Tab and Enter do.
void PressKey(HWND dialog, int key);
// As another program copies a text.
void PutPlainText(const std::string& text);
bool IsEnabled(HWND dialog, int control);
std::string TextOf(HWND dialog, int control);

// How often the program has beeped in the test.
int Beeps();

// Handles the messages that wait now.
void HandleMessages();
// Handles messages until the condition holds; false after `milliseconds`.
bool HandleMessagesUntil(const std::function<bool()>& condition, int milliseconds = 20'000);

// What the process holds of the system's objects, once nothing more of it is on its way.
struct ProcessObjects {
  std::size_t windows = 0;
  std::map<std::string, int> gdi_objects;  // how many of each kind
  std::map<std::string, int> handles;      // how many of each kind and name
  bool operator==(const ProcessObjects&) const = default;
};
ProcessObjects CountObjects();
// The system gives the surface of a closed window back when its display has answered.
testing::AssertionResult ComesBackTo(const ProcessObjects& before);

// Writes a picture of the window beside the test program: screenshots/NAME.bmp.
void SavePicture(HWND window, const std::string& name);

}  // namespace qz7
