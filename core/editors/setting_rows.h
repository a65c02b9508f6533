#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/editors/settings_place.h"
#include "core/image/bits.h"

namespace qz7 {

// The radio's settings as rows: what a screen shows is a table of them, and whoever shows it reads
// and writes each setting through its row.

enum class SettingKind { kList, kPictureList, kRadioGroup, kCheckBox, kText };

// The choices of a list, a group of radio buttons (one each) or a check box ("off", "on"), by
// position 0..count - 1.
struct SettingChoices {
  int count = 0;
  std::string (*text)(int position) = nullptr;
};

// How a text, or a number that is written as one, stands in its bytes.
struct SettingText {
  Region place{};
  std::size_t longest = 0;  // that can be typed
  std::string (*decode)(std::span<const std::uint8_t> bytes) = nullptr;
  // Null for a text that is stored; otherwise the message that refuses it, and no byte is changed.
  const char* (*encode)(std::string_view text, std::span<std::uint8_t> bytes) = nullptr;
};

struct Setting {
  std::string name;  // lower case; it stays what it is
  SettingKind kind{};
  // Of every kind but a text: the image's bits. A position is their value minus `lowest`.
  BitField bits{};
  SettingChoices choices{};
  int lowest = 0;
  int first_far_value = 256;  // from it on every value shows as the first choice
  SettingText text{};
};

// A setting whose value is its position.
Setting ListSetting(std::string name, std::size_t byte, SettingChoices choices);
// Radio buttons "First", "Second", "Third".
Setting GroupSetting(std::string name, BitField bits, int buttons);
// Any value but 0 is on; it is stored as 1.
Setting BoxSetting(std::string name, BitField bits);
Setting TextSetting(std::string name, const SettingText& text);

// The text of a table of literals, and a number, as the text of a choice.
template <const auto& kTexts>
constexpr SettingChoices ChoicesOf() {
  return {.count = static_cast<int>(kTexts.size()),
          .text = [](int i) { return std::string(kTexts[static_cast<std::size_t>(i)]); }};
}
template <int kFirst, int kLast>
constexpr SettingChoices NumbersOf() {
  return {.count = kLast - kFirst + 1, .text = [](int i) { return std::to_string(kFirst + i); }};
}

// "Byte 10504", "Byte 10504, bit 7": where the setting lies in the image.
std::string PlaceOf(const Setting& row);

// The settings of one screen, in the order in which they are stored.
struct SettingScreen {
  std::vector<Setting> rows;
  bool saves_defaults_after_each_row = false;
};

// What a screen shows of a setting.
struct SettingValue {
  std::optional<int> choice{};  // the position; empty where the bits are none: they stay
  std::string text{};
  bool operator==(const SettingValue&) const = default;
};

SettingValue LoadSetting(const Setting& row, SettingsSource source);
// Null, or the message that refuses the text; then nothing is stored.
const char* StoreSetting(const Setting& row, const SettingValue& value, SettingsTarget target);

// One value for each row.
std::vector<SettingValue> LoadScreen(const SettingScreen& screen, SettingsSource source);
// A text that is refused ends it with a message; returns which row's. The rows before it are stored
// by then.
std::optional<std::size_t> StoreScreen(const SettingScreen& screen,
                                       std::span<const SettingValue> values, SettingsTarget target);
// Into the defaults record, which `save` writes to its file.
std::optional<std::size_t> StoreDefaults(const SettingScreen& screen,
                                         std::span<const SettingValue> values,
                                         DefaultsRecord& record, const std::function<void()>& save);

}  // namespace qz7
