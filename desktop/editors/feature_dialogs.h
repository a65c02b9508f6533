#pragma once

#include "core/editors/autodial.h"
#include "core/files/defaults_record.h"
#include "core/image/clone_image.h"

namespace qz7 {

// What the dialog of a feature editor works on.
struct FeatureEditor {
  CloneImage& image;  // the working copy
  DefaultsRecord& defaults;
  DefaultsFile defaults_file;
  bool starts_from_defaults;  // the editor's preference
};

// Each is true for OK, with what the controls hold stored in the image, and false for Cancel and a
// closed window.
bool ShowSettingsDialog(const FeatureEditor& editor);
bool ShowVornDialog(const FeatureEditor& editor);
// The dialog shows and changes the program's way to write the DTMF codes 14 and 15.
bool ShowAutodialDialog(const FeatureEditor& editor, DtmfDisplay& display);
bool ShowWxNamesDialog(const FeatureEditor& editor);
bool ShowIconsDialog(const FeatureEditor& editor);

}  // namespace qz7
