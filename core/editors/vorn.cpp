#include "core/editors/vorn.h"

#include <algorithm>

#include "core/image/settings_map.h"
#include "core/image/text_codec.h"

namespace qz7 {
namespace {

constexpr int kModeCount = 3;
// What the radio finds for a character that it does not know.
constexpr std::uint8_t kUnknownCharacter = 0x61;

}  // namespace

std::string DecodeIdentifier(std::span<const std::uint8_t> codes) {
  std::string text;
  for (const std::uint8_t code : codes.first(std::min(codes.size(), kIdentifierLength))) {
    if (code == kTextEnd) {
      break;
    }
    text += code < kIdentifierCharacters.size() ? kIdentifierCharacters[code] : ' ';
  }
  return text;
}

void EncodeIdentifier(std::string_view text, std::span<std::uint8_t> codes) {
  auto code = codes.begin();
  for (const char c : text.substr(0, codes.size())) {
    *code++ = IdentifierCode(UpperCase(c)).value_or(kUnknownCharacter);
  }
}

VornControls LoadVorn(SettingsSource source) {
  VornControls controls;
  const int mode = source[kVornMode];
  if (mode < kModeCount) {
    controls.mode = mode;
  }
  controls.second_choice = (source[kSwitchesC] & kVornBit) != 0;
  controls.flag = source[kVornFlag] != 0;
  controls.identifier = DecodeIdentifier(source[kVornIdentifier]);
  return controls;
}

void StoreVorn(const VornControls& controls, SettingsTarget target) {
  if (controls.mode) {
    target[kVornMode] = static_cast<std::uint8_t>(*controls.mode);
  }
  if (controls.second_choice) {
    PutBit(target[kSwitchesC], kVornBit, *controls.second_choice);
  }
  target[kVornFlag] = controls.flag ? 1 : 0;
  EncodeIdentifier(controls.identifier, target[kVornIdentifier]);
}

}  // namespace qz7
