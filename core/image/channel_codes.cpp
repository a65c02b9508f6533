#include "core/image/channel_codes.h"

#include <algorithm>
#include <cstdio>

namespace qz7 {
namespace {

std::optional<int> ShownIndex(int stored, int count) {
  if (stored == count) {
    return std::nullopt;
  }
  return stored < count ? stored : 0;
}

}  // namespace

std::string ToneText(int tenths_of_hertz) {
  return std::to_string(tenths_of_hertz / 10) + "." + std::to_string(tenths_of_hertz % 10);
}

std::string DcsText(int code) {
  std::array<char, 16> text;
  std::snprintf(text.data(), text.size(), "%03d", code);
  return text.data();
}

std::optional<int> FindTone(int tenths_of_hertz) {
  const auto* tone = std::find(kTones.begin(), kTones.end(), tenths_of_hertz);
  if (tone == kTones.end()) {
    return std::nullopt;
  }
  return static_cast<int>(tone - kTones.begin());
}

std::optional<int> ShownToneIndex(int stored) { return ShownIndex(stored, kToneCount); }
std::optional<int> ShownDcsIndex(int stored) { return ShownIndex(stored, kDcsCount); }

}  // namespace qz7
