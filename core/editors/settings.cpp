#include "core/editors/settings.h"

#include <algorithm>
#include <cstdio>

#include "core/image/settings_map.h"

namespace qz7 {
namespace {

// A byte that is chosen from a list: the position plus a base.
struct ListField {
  std::size_t offset;
  int base;
  int count;
  std::optional<int> SettingsControls::*choice;
};
constexpr std::array<ListField, 6> kListFields = {{
    {kLevelA, 0, 16, &SettingsControls::level_a},
    {kLevelB, 0, 9, &SettingsControls::level_b},
    {kScaleValue, kLowestScaleValue, 10, &SettingsControls::scale},
    {kSensorDisplay, 0, 7, &SettingsControls::sensor_display},
    {kTimeOfDay, 0, 145, &SettingsControls::time_of_day},
    {kDisplaySymbol, 0, 7, &SettingsControls::display_symbol},
}};

std::vector<std::string> NumberTexts(int first, int last) {
  std::vector<std::string> texts;
  for (int i = first; i <= last; ++i) {
    texts.push_back(std::to_string(i));
  }
  return texts;
}

std::string NumberText(std::span<const std::uint8_t> field) {
  return std::to_string(field[0] << 8 | field[1]);
}

// The number in the first nine characters, up to what is no digit.
void StoreNumber(std::string_view text, std::span<std::uint8_t> field) {
  constexpr std::size_t kLongest = 9;
  unsigned value = 0;
  text = text.substr(0, kLongest);
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  for (const char c : text) {
    if (c < '0' || c > '9') {
      break;
    }
    value = value * 10 + static_cast<unsigned>(c - '0');
  }
  field[0] = static_cast<std::uint8_t>(value >> 8);
  field[1] = static_cast<std::uint8_t>(value);
}

void StoreSymbolText(std::string_view text, std::span<std::uint8_t> field) {
  std::fill(field.begin(), field.end(), std::uint8_t{0});
  std::copy_n(text.begin(), std::min(text.size(), field.size()), field.begin());
}

}  // namespace

std::vector<std::string> LevelATexts() { return NumberTexts(0, 15); }
std::vector<std::string> LevelBTexts() { return NumberTexts(0, 8); }
std::vector<std::string> ScaleTexts() { return NumberTexts(1, 10); }

std::vector<std::string> TimeTexts() {
  constexpr int kLast = 144;
  std::vector<std::string> texts;
  for (int i = 0; i <= kLast; ++i) {
    std::array<char, 16> text;
    std::snprintf(text.data(), text.size(), " %02d:%02d", i / 6, i % 6 * 10);
    texts.emplace_back(text.data());
  }
  return texts;
}

bool HasSymbolText(const SettingsControls& controls) {
  return controls.display_symbol == kTextSymbol;
}

SettingsControls LoadSettings(SettingsSource source) {
  SettingsControls controls;
  for (const ListField& field : kListFields) {
    const int position = source[field.offset] - field.base;
    if (position >= 0 && position < field.count) {
      controls.*field.choice = position;
    }
  }
  controls.number_a = NumberText(source[kNumberA]);
  controls.number_b = NumberText(source[kNumberB]);
  const auto text = source[kSymbolText];
  controls.symbol_text = FieldText(reinterpret_cast<const char*>(text.data()), text.size());
  controls.second_choice = (source[kSwitchesB] & kSettingsBit) != 0;
  return controls;
}

void StoreSettings(const SettingsControls& controls, SettingsTarget target) {
  for (const ListField& field : kListFields) {
    if (const std::optional<int> position = controls.*field.choice) {
      target[field.offset] = static_cast<std::uint8_t>(*position + field.base);
    }
  }
  StoreNumber(controls.number_a, target[kNumberA]);
  StoreNumber(controls.number_b, target[kNumberB]);
  StoreSymbolText(controls.symbol_text, target[kSymbolText]);
  if (controls.second_choice) {
    PutBit(target[kSwitchesB], kSettingsBit, *controls.second_choice);
  }
}

}  // namespace qz7
