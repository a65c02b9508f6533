#include "core/editors/autodial.h"

#include <algorithm>
#include <array>

#include "core/image/settings_map.h"
#include "core/image/text_codec.h"

namespace qz7 {
namespace {

std::string DecodeDigits(std::span<const std::uint8_t> codes) {
  std::string digits;
  for (const std::uint8_t code : codes) {
    if (code == kTextEnd) {
      break;
    }
    digits += kDtmfDigits[code & 0x0F];
  }
  return ShownAs(DtmfDisplay::kSymbols, std::move(digits));
}

// 7 digits as 555-1234, 11 as 1-555-555-1234, any other number as it stands.
std::string DecodeNumber(std::span<const std::uint8_t> codes) {
  std::string digits = DecodeDigits(codes);
  switch (digits.size()) {
    case 7:
      return digits.substr(0, 3) + "-" + digits.substr(3);
    case 11:
      return digits.substr(0, 1) + "-" + digits.substr(1, 3) + "-" + digits.substr(4, 3) + "-" +
             digits.substr(7);
    default:
      return digits;
  }
}

// The text with the digits' letters, without blanks and hyphens.
std::string PlainDigits(std::string_view text) {
  constexpr std::size_t kFieldLength = 24;
  std::string digits = ShownAs(DtmfDisplay::kLetters, std::string(text.substr(0, kFieldLength)));
  std::erase_if(digits, [](char c) { return c == ' ' || c == '-'; });
  return digits;
}

// Lower-case letters are no digits.
const char* EncodeNumber(std::string_view text, std::span<std::uint8_t> field) {
  const std::string digits = PlainDigits(text);
  std::array<std::uint8_t, kCodeTextLength> codes;
  codes.fill(kTextEnd);
  if (digits.size() > codes.size()) {
    return "Too many digits in phone number\nPlease limit to 16 digits";
  }
  for (std::size_t i = 0; i < digits.size(); ++i) {
    const std::optional<std::uint8_t> code = DtmfCode(digits[i]);
    if (!code) {
      return "Invalid digit in number\nPlease use 0-9, A-F, #, *, or -";
    }
    codes[i] = *code;
  }
  std::copy(codes.begin(), codes.end(), field.begin());
  return nullptr;
}

SettingScreen MakeScreen() {
  SettingScreen screen;
  for (int n = 0; n < kAutodialCount; ++n) {
    screen.rows.push_back(
        TextSetting("autodial-" + std::to_string(n + 1), {.place = AutodialNumber(n),
                                                          .longest = kCodeTextLength,
                                                          .decode = DecodeNumber,
                                                          .encode = EncodeNumber}));
  }
  screen.rows.push_back(BoxSetting("autodial-flag", {.byte = kSwitchesA, .shift = 0, .width = 1}));
  return screen;
}

}  // namespace

const SettingScreen& AutodialScreen() {
  static const SettingScreen screen = MakeScreen();
  return screen;
}

std::string ShownAs(DtmfDisplay display, std::string number) {
  const bool symbols = display == DtmfDisplay::kSymbols;
  std::replace(number.begin(), number.end(), symbols ? 'E' : '*', symbols ? '*' : 'E');
  std::replace(number.begin(), number.end(), symbols ? 'F' : '#', symbols ? '#' : 'F');
  return number;
}

std::string AutodialText(const CloneImage& image, int n, DtmfDisplay display) {
  return ShownAs(display, DecodeNumber(SourceIn(image)[AutodialNumber(n)]));
}

}  // namespace qz7
