#pragma once

#include <optional>
#include <string_view>

namespace qz7 {

// What a column of another program's list holds.
enum class Meaning {
  kReceive,
  kTransmit,
  kOffset,  // with its direction or without
  kDirection,
  kToneMode,
  kTone,  // a tone, or what the tone does
  kEncode,
  kDecode,
  kCode,
  kSkip,
  kPower,
  kMode,
  kName,
  kComment,
  kNumber,  // of the channel, or where the station is
  kNothing  // known, and not imported
};

// By the name that the list gives it, whatever its case, blanks and units; nothing for an unknown
// name.
std::optional<Meaning> MeaningOf(std::string_view header);

}  // namespace qz7
