#include "tests/unit/seams.h"

// The main window of the unit tests: it remembers what it was told, and its controls are a script.
namespace qz7 {

void LoadMainDialog(const CloneImage& image) { test_seams.loaded_images.push_back(image); }

void ReadMainControls(CloneImage& image) {
  if (test_seams.controls) {
    test_seams.controls(image);
  }
}

void SetMainTitle(const std::string& title) { test_seams.titles.push_back(title); }

}  // namespace qz7
