#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/editors/settings_place.h"
#include "core/image/clone_image.h"
#include "core/image/settings_map.h"

namespace qz7 {

// How the DTMF codes 14 and 15 are shown: as "*" and "#", or as "E" and "F".
enum class DtmfDisplay { kSymbols, kLetters };

// The digits of an autodial memory: 16 codes, ended by 0xFF; of a code the low four bits count.
std::string DecodeDtmf(std::span<const std::uint8_t> codes, DtmfDisplay display);

// A number as it is written: 7 digits as 555-1234, 11 as 1-555-555-1234, any other as it stands.
std::string FormatAutodialNumber(const std::string& digits);

// The text of autodial memory n = 0..8; empty for an empty memory.
std::string AutodialText(const CloneImage& image, int n, DtmfDisplay display);

using DtmfCodes = std::array<std::uint8_t, kCodeTextLength>;

// What a typed number is stored as. Of the text the first 24 characters count; blanks and hyphens
// do not.
struct EncodedNumber {
  const char* refusal = nullptr;  // the message; null when the number is accepted
  DtmfCodes codes{};
};
EncodedNumber EncodeDtmf(std::string_view text);

inline constexpr std::size_t kAutodialTextLength = 16;  // that can be typed

// What the controls of the autodial editor hold.
struct AutodialControls {
  std::array<std::string, kAutodialCount> numbers;
  bool flag = false;
};

AutodialControls LoadAutodial(SettingsSource source, DtmfDisplay display);
// Stores the numbers in order, and then the flag. A number that is refused ends it with a message;
// returns which, 0..8, for the focus. The numbers before it are stored by then.
std::optional<int> StoreAutodial(const AutodialControls& controls, SettingsTarget target);

// The texts in the fields follow the display option at once.
void ShowNumbersAs(AutodialControls& controls, DtmfDisplay display);

}  // namespace qz7
