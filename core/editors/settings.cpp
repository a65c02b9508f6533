#include "core/editors/settings.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "core/image/settings_map.h"

namespace qz7 {
namespace {

constexpr std::array kSensors = {"None", "Temp", "Baro", "Alti", "Temp+Baro", "Temp+Alti", "All"};
// The first six are a blank and a code of the radio's font.
constexpr std::array kSymbols = {" \x9A", " \x97", " \x16", " =", " \x10", " -", "Chr"};
static_assert(kSymbols.size() == kTextSymbol + 1);

std::string TimeText(int position) {
  std::array<char, 32> text;
  std::snprintf(text.data(), text.size(), " %02d:%02d", position / 6, position % 6 * 10);
  return text.data();
}
constexpr SettingChoices kTimes{.count = 145, .text = TimeText};

std::string DecodeNumber(std::span<const std::uint8_t> field) {
  return std::to_string(field[0] << 8 | field[1]);
}

// The number in the first nine characters, up to what is no digit: a blank in front makes it 0.
const char* EncodeNumber(std::string_view text, std::span<std::uint8_t> field) {
  constexpr std::size_t kLongest = 9;
  unsigned value = 0;
  for (const char c : text.substr(0, kLongest)) {
    if (c < '0' || c > '9') {
      break;
    }
    value = value * 10 + static_cast<unsigned>(c - '0');
  }
  field[0] = static_cast<std::uint8_t>(value >> 8);
  field[1] = static_cast<std::uint8_t>(value);
  return nullptr;
}

Setting NumberSetting(const char* name, Region place) {
  return TextSetting(
      name, {.place = place, .longest = 3, .decode = DecodeNumber, .encode = EncodeNumber});
}

std::string DecodeSymbolText(std::span<const std::uint8_t> field) {
  return std::string(FieldText(reinterpret_cast<const char*>(field.data()), field.size()));
}

const char* EncodeSymbolText(std::string_view text, std::span<std::uint8_t> field) {
  std::fill(field.begin(), field.end(), std::uint8_t{0});
  std::copy_n(text.begin(), std::min(text.size(), field.size()), field.begin());
  return nullptr;
}

SettingScreen MakeScreen() {
  Setting scale = ListSetting("scale-value", kScaleValue, NumbersOf<1, 10>());
  scale.lowest = kLowestScaleValue;
  Setting symbol = ListSetting("display-symbol", kDisplaySymbol, ChoicesOf<kSymbols>());
  symbol.kind = SettingKind::kPictureList;
  return {
      .rows = {ListSetting("level-a", kLevelA, NumbersOf<0, 15>()),
               ListSetting("level-b", kLevelB, NumbersOf<0, 8>()), scale,
               NumberSetting("number-a", kNumberA), NumberSetting("number-b", kNumberB),
               ListSetting("sensor-display", kSensorDisplay, ChoicesOf<kSensors>()),
               ListSetting("time-of-day", kTimeOfDay, kTimes), symbol,
               TextSetting("symbol-text", {.place = kSymbolText,
                                           .longest = kSymbolText.size,
                                           .decode = DecodeSymbolText,
                                           .encode = EncodeSymbolText}),
               GroupSetting("settings-switch", {.byte = kSwitchesB, .shift = 6, .width = 1}, 2)}};
}

}  // namespace

const SettingScreen& SettingsScreen() {
  static const SettingScreen screen = MakeScreen();
  return screen;
}

}  // namespace qz7
