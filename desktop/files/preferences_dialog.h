#pragma once

#include "core/files/preferences.h"

namespace qz7 {

// Lets the user edit the flags; OK stores and writes them.
void ShowPreferencesDialog(Preferences& preferences);

}  // namespace qz7
