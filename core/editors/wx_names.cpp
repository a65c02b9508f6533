#include "core/editors/wx_names.h"

#include <algorithm>

#include "core/image/settings_map.h"

namespace qz7 {
namespace {

std::string DecodeName(std::span<const std::uint8_t> field) {
  std::string name(FieldText(reinterpret_cast<const char*>(field.data()), field.size()));
  name.erase(name.find_last_not_of(' ') + 1);
  return name;
}

const char* EncodeName(std::string_view name, std::span<std::uint8_t> field) {
  std::fill(field.begin(), field.end(), std::uint8_t{' '});
  std::copy_n(name.begin(), std::min(name.size(), field.size()), field.begin());
  return nullptr;
}

// The file of the defaults is written after each of the names and once more in the end, wanted.
SettingScreen MakeScreen() {
  SettingScreen screen{.rows = {}, .saves_defaults_after_each_row = true};
  for (int n = 0; n < kWxNameCount; ++n) {
    screen.rows.push_back(TextSetting("wx-name-" + std::to_string(n + 1), {.place = WxName(n),
                                                                           .longest = kWxNameLength,
                                                                           .decode = DecodeName,
                                                                           .encode = EncodeName}));
  }
  return screen;
}

}  // namespace

const SettingScreen& WxNamesScreen() {
  static const SettingScreen screen = MakeScreen();
  return screen;
}

}  // namespace qz7
