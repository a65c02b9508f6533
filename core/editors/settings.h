#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "core/editors/settings_place.h"

namespace qz7 {

// What the controls of the settings editor hold. A list choice is the position in its list; an
// empty one, of a byte that the list does not have, is not stored.
struct SettingsControls {
  std::optional<int> level_a;         // LevelATexts
  std::optional<int> level_b;         // LevelBTexts
  std::optional<int> scale;           // ScaleTexts
  std::optional<int> sensor_display;  // kSensorTexts
  std::optional<int> time_of_day;     // TimeTexts
  std::optional<int> display_symbol;  // kSymbolTexts
  std::string number_a;
  std::string number_b;
  std::string symbol_text;
  std::optional<bool> second_choice;  // of the two-way switch; empty: neither button is checked
};

inline constexpr std::size_t kNumberTextLength = 3;  // that can be typed
inline constexpr std::size_t kSymbolTextLength = 8;

inline constexpr std::array<const char*, 7> kSensorTexts = {
    "None", "Temp", "Baro", "Alti", "Temp+Baro", "Temp+Alti", "All"};
// The first six are a blank and a code of the radio's font; the last one stands for the text.
inline constexpr std::array<const char*, 7> kSymbolTexts = {" \x9A", " \x97", " \x16", " =",
                                                            " \x10", " -",    "Chr"};
inline constexpr int kTextSymbol = 6;
std::vector<std::string> LevelATexts();  // "0".."15"
std::vector<std::string> LevelBTexts();  // "0".."8"
std::vector<std::string> ScaleTexts();   // "1".."10"
std::vector<std::string> TimeTexts();    // " 00:00".." 24:00"

// Whether the symbol text can be edited.
bool HasSymbolText(const SettingsControls& controls);

SettingsControls LoadSettings(SettingsSource source);
void StoreSettings(const SettingsControls& controls, SettingsTarget target);

}  // namespace qz7
