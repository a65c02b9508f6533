#include "core/editors/icons.h"

#include "core/image/settings_map.h"

namespace qz7 {
namespace {

SettingScreen MakeScreen() {
  SettingScreen screen;
  for (std::size_t i = 0; i < kDisplayIcons.size; ++i) {
    Setting icon = ListSetting("icon-" + std::to_string(i + 1), kDisplayIcons.offset + i,
                               {.count = kIconCount, .text = IconName});
    icon.kind = SettingKind::kPictureList;
    screen.rows.push_back(icon);
  }
  return screen;
}

}  // namespace

std::string IconName(int icon) {
  constexpr int kLetters = 26;
  return icon < kLetters ? std::string(1, static_cast<char>('A' + icon)) : "ZZ";
}

const SettingScreen& IconsScreen() {
  static const SettingScreen screen = MakeScreen();
  return screen;
}

}  // namespace qz7
