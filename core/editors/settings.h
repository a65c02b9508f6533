#pragma once

#include "core/editors/setting_rows.h"

namespace qz7 {

// The settings editor.
const SettingScreen& SettingsScreen();

// The position of the display symbol that stands for the symbol text: only then can the text be
// edited.
inline constexpr int kTextSymbol = 6;

}  // namespace qz7
