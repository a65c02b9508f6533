#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/editors/settings_place.h"

namespace qz7 {

// What the controls of the VORN editor hold. A choice without a checked button is not stored.
struct VornControls {
  std::optional<int> mode;  // 0, 1 or 2
  std::optional<bool> second_choice;
  bool flag = false;
  std::string identifier;
};

inline constexpr std::size_t kIdentifierLength = 16;

// The identifier as text: up to 16 codes, ended by 0xFF. A code outside the character set is a
// blank.
std::string DecodeIdentifier(std::span<const std::uint8_t> codes);
// Writes as many codes as the text has characters, and leaves what lies behind: the end of a longer
// identifier shows again. A character outside the set becomes the code 0x61.
void EncodeIdentifier(std::string_view text, std::span<std::uint8_t> codes);

VornControls LoadVorn(SettingsSource source);
void StoreVorn(const VornControls& controls, SettingsTarget target);

}  // namespace qz7
