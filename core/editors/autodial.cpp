#include "core/editors/autodial.h"

#include <algorithm>

#include "core/files/seams.h"

namespace qz7 {
namespace {

Region NumberField(int n) {
  return {.offset = kAutodial.offset + static_cast<std::size_t>(n) * kCodeTextLength,
          .size = kCodeTextLength};
}

// The code of a digit; nothing for any other character, lower-case letters included.
std::optional<std::uint8_t> DigitCode(char c) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const std::size_t code = kDigits.find(c);
  return code < kDigits.size() ? std::optional(static_cast<std::uint8_t>(code)) : std::nullopt;
}

// The text with the digits' letters, without blanks and hyphens.
std::string PlainDigits(std::string_view text) {
  constexpr std::size_t kFieldLength = 24;
  std::string digits(text.substr(0, kFieldLength));
  std::replace(digits.begin(), digits.end(), '*', 'E');
  std::replace(digits.begin(), digits.end(), '#', 'F');
  std::erase_if(digits, [](char c) { return c == ' ' || c == '-'; });
  return digits;
}

}  // namespace

std::string DecodeDtmf(std::span<const std::uint8_t> codes, DtmfDisplay display) {
  const char* characters =
      display == DtmfDisplay::kSymbols ? "0123456789ABCD*#" : "0123456789ABCDEF";
  std::string digits;
  for (const std::uint8_t code : codes.first(std::min(codes.size(), kCodeTextLength))) {
    if (code == kTextEnd) {
      break;
    }
    digits += characters[code & 0x0F];
  }
  return digits;
}

std::string FormatAutodialNumber(const std::string& digits) {
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

std::string AutodialText(const CloneImage& image, int n, DtmfDisplay display) {
  return FormatAutodialNumber(DecodeDtmf(SourceIn(image)[NumberField(n)], display));
}

EncodedNumber EncodeDtmf(std::string_view text) {
  const std::string digits = PlainDigits(text);
  EncodedNumber number;
  number.codes.fill(kTextEnd);
  if (digits.size() > number.codes.size()) {
    number.refusal = "Too many digits in phone number\nPlease limit to 16 digits";
    return number;
  }
  for (std::size_t i = 0; i < digits.size(); ++i) {
    const std::optional<std::uint8_t> code = DigitCode(digits[i]);
    if (!code) {
      number.refusal = "Invalid digit in number\nPlease use 0-9, A-F, #, *, or -";
      return number;
    }
    number.codes[i] = *code;
  }
  return number;
}

AutodialControls LoadAutodial(SettingsSource source, DtmfDisplay display) {
  AutodialControls controls;
  for (int n = 0; n < kAutodialCount; ++n) {
    controls.numbers[static_cast<std::size_t>(n)] =
        FormatAutodialNumber(DecodeDtmf(source[NumberField(n)], display));
  }
  controls.flag = (source[kSwitchesA] & kAutodialBit) != 0;
  return controls;
}

std::optional<int> StoreAutodial(const AutodialControls& controls, SettingsTarget target) {
  for (int n = 0; n < kAutodialCount; ++n) {
    const EncodedNumber number = EncodeDtmf(controls.numbers[static_cast<std::size_t>(n)]);
    if (number.refusal != nullptr) {
      ShowMessage(number.refusal, "Input Error", Buttons::kOk, Icon::kStop);
      return n;
    }
    std::copy(number.codes.begin(), number.codes.end(), target[NumberField(n)].begin());
  }
  PutBit(target[kSwitchesA], kAutodialBit, controls.flag);
  return std::nullopt;
}

void ShowNumbersAs(AutodialControls& controls, DtmfDisplay display) {
  const bool symbols = display == DtmfDisplay::kSymbols;
  for (std::string& number : controls.numbers) {
    std::replace(number.begin(), number.end(), symbols ? 'E' : '*', symbols ? '*' : 'E');
    std::replace(number.begin(), number.end(), symbols ? 'F' : '#', symbols ? '#' : 'F');
  }
}

}  // namespace qz7
