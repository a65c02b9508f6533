#include "core/editors/vorn.h"

#include "core/image/settings_map.h"
#include "core/image/text_codec.h"

namespace qz7 {
namespace {

// What the radio finds for a character that it does not know.
constexpr std::uint8_t kUnknownCharacter = 0x61;

// A code outside the character set is a blank.
std::string DecodeIdentifier(std::span<const std::uint8_t> codes) {
  std::string text;
  for (const std::uint8_t code : codes) {
    if (code == kTextEnd) {
      break;
    }
    text += code < kIdentifierCharacters.size() ? kIdentifierCharacters[code] : ' ';
  }
  return text;
}

// Writes as many codes as the text has characters, and leaves what lies behind, wanted: the end of
// a longer identifier shows again.
const char* EncodeIdentifier(std::string_view text, std::span<std::uint8_t> codes) {
  auto code = codes.begin();
  for (const char c : text.substr(0, codes.size())) {
    *code++ = IdentifierCode(UpperCase(c)).value_or(kUnknownCharacter);
  }
  return nullptr;
}

}  // namespace

const SettingScreen& VornScreen() {
  static const SettingScreen screen{
      .rows = {GroupSetting("vorn-mode", {.byte = kVornMode, .shift = 0, .width = 8}, 3),
               GroupSetting("vorn-switch", {.byte = kSwitchesC, .shift = 3, .width = 1}, 2),
               BoxSetting("vorn-flag", {.byte = kVornFlag, .shift = 0, .width = 8}),
               TextSetting("vorn-identifier", {.place = kVornIdentifier,
                                               .longest = kVornIdentifier.size,
                                               .decode = DecodeIdentifier,
                                               .encode = EncodeIdentifier})}};
  return screen;
}

}  // namespace qz7
