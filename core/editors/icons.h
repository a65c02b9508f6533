#pragma once

#include <array>
#include <optional>
#include <string>

#include "core/editors/settings_place.h"
#include "core/image/settings_map.h"

namespace qz7 {

inline constexpr int kIconCount = 27;

// The name of an icon's picture, 0..26: "A".."Z", "ZZ".
std::string IconName(int icon);

// What the 15 lists of the icon editor hold. An empty choice, of a number that is no icon, is not
// stored.
struct IconChoices {
  std::array<std::optional<int>, kDisplayIconCount> icons;
  bool changed = false;
};

void ChooseIcon(IconChoices& choices, int position, int icon);

IconChoices LoadIcons(SettingsSource source);
void StoreIcons(const IconChoices& choices, SettingsTarget target);

}  // namespace qz7
