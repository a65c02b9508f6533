#include "core/editors/vorn.h"

#include <algorithm>

#include "core/image/settings_map.h"

namespace qz7 {
namespace {

constexpr int kModeCount = 3;
constexpr std::string_view kCharacters = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ ()+-=*/";
// What the radio finds for a character that it does not know.
constexpr std::uint8_t kUnknownCharacter = 0x61;

char UpperCase(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

}  // namespace

std::string DecodeIdentifier(std::span<const std::uint8_t> codes) {
  std::string text;
  for (const std::uint8_t code : codes.first(std::min(codes.size(), kIdentifierLength))) {
    if (code == kTextEnd) {
      break;
    }
    text += code < kCharacters.size() ? kCharacters[code] : ' ';
  }
  return text;
}

void EncodeIdentifier(std::string_view text, std::span<std::uint8_t> codes) {
  auto code = codes.begin();
  for (const char c : text.substr(0, codes.size())) {
    const std::size_t place = kCharacters.find(UpperCase(c));
    *code++ =
        place == std::string_view::npos ? kUnknownCharacter : static_cast<std::uint8_t>(place);
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
