#pragma once

#include <windows.h>

#include <algorithm>
#include <array>

#include "desktop/locations.h"
#include "desktop/main_dialog.h"
#include "resources/control_ids.h"
#include "tests/ui/window_fixture.h"

namespace qz7 {

// The editors of the Other menu, opened from it, in a current folder of the test's own.
class FeatureDialogTest : public WindowTest {
 protected:
  FeatureDialogTest() {
    AddFontResourceW(BesideProgram("qz7.fon").c_str());
    GetCurrentDirectoryA(MAX_PATH, before_);
    SetCurrentDirectoryA(folder.path().string().c_str());
    CollectMainDialog(app.document);
    app.document.changed = false;
  }
  ~FeatureDialogTest() override {
    SetCurrentDirectoryA(before_);
    RemoveFontResourceW(BesideProgram("qz7.fon").c_str());
  }

  // Opens the command's dialog on the document as it stands; the script closes it.
  static void Run(int command, const std::function<void(HWND)>& script) {
    app.document.working_copy = app.document.image;
    const DialogScript dialog(script);
    SendMessageA(app.main_window, WM_COMMAND, MAKEWPARAM(command, 0), 0);
  }

  static CloneImage& Image() { return app.document.image; }
  static DefaultsRecord& Defaults() { return app.document.defaults; }
  static Preferences& Flags() { return app.document.preferences; }
  Bytes DefaultsOnDisk() const { return FileBytes(folder.File("qz7.def")); }

  static bool ButtonsEnabled(HWND dialog) {
    EXPECT_EQ(IsEnabled(dialog, ID_USE_DEFAULTS), IsEnabled(dialog, ID_STORE_DEFAULTS));
    return IsEnabled(dialog, ID_STORE_DEFAULTS);
  }

 private:
  char before_[MAX_PATH] = "";
};

template <std::size_t kSize>
void Put(std::array<std::uint8_t, kSize>& bytes, std::size_t offset, const Bytes& values) {
  std::copy(values.begin(), values.end(), bytes.begin() + static_cast<std::ptrdiff_t>(offset));
}

template <std::size_t kSize>
Bytes Piece(const std::array<std::uint8_t, kSize>& bytes, std::size_t offset, std::size_t size) {
  const auto first = bytes.begin() + static_cast<std::ptrdiff_t>(offset);
  return {first, first + static_cast<std::ptrdiff_t>(size)};
}

inline Bytes BytesOf(const std::string& text) { return {text.begin(), text.end()}; }

int Selection(HWND dialog, int list);
std::string EntryText(HWND dialog, int list, int position);
// The face of the font that a control has been given.
std::string FaceOf(HWND dialog, int control);
// What the dialog's tooltip says about the control.
std::string TooltipOf(HWND dialog, int control);

}  // namespace qz7
