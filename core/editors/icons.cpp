#include "core/editors/icons.h"

namespace qz7 {

std::string IconName(int icon) {
  constexpr int kLetters = 26;
  return icon < kLetters ? std::string(1, static_cast<char>('A' + icon)) : "ZZ";
}

void ChooseIcon(IconChoices& choices, int position, int icon) {
  choices.icons[static_cast<std::size_t>(position)] = icon;
  choices.changed = true;
}

IconChoices LoadIcons(SettingsSource source) {
  IconChoices choices;
  const auto field = source[kDisplayIcons];
  for (std::size_t i = 0; i < field.size(); ++i) {
    if (field[i] < kIconCount) {
      choices.icons[i] = field[i];
    }
  }
  return choices;
}

void StoreIcons(const IconChoices& choices, SettingsTarget target) {
  const auto field = target[kDisplayIcons];
  for (std::size_t i = 0; i < field.size(); ++i) {
    if (const std::optional<int> icon = choices.icons[i]) {
      field[i] = static_cast<std::uint8_t>(*icon);
    }
  }
}

}  // namespace qz7
