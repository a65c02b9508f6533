#pragma once

#include <string>

#include "core/editors/setting_rows.h"

namespace qz7 {

inline constexpr int kIconCount = 27;

// The name of an icon's picture, 0..26: "A".."Z", "ZZ".
std::string IconName(int icon);

// The icon editor: a list of all icons for each place of the radio's display.
const SettingScreen& IconsScreen();

}  // namespace qz7
