#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/image/clone_image.h"

namespace qz7 {

// What a text of the codeplug can be: one of these, or of a length and a form.
struct TextForm {
  std::vector<std::string> choices{};
  bool can_be_nothing = false;  // a code without a meaning shows as an empty text
  std::size_t longest = 0;      // 0: any length
  std::string pattern{};        // a regular expression for the whole text, or nothing
};

// A value of the codeplug beside the channels: its name, its text, and the bytes that it stands
// for.
struct CodeplugRow {
  std::string name;
  std::vector<Region> bytes;
  std::function<std::string(const CloneImage& image)> show;
  // Stores what `show` would print; the reason where that cannot be, otherwise nothing.
  std::function<std::string(CloneImage& image, const std::string& text)> store;
  TextForm form{};
};

struct CodeplugPart {
  std::string name;
  std::vector<CodeplugRow> rows;
};

// What stands in front of the channels: they are checked by the radio's identity. And what stands
// behind them: the groups name channels.
const std::vector<CodeplugPart>& PartsBeforeChannels();
const std::vector<CodeplugPart>& PartsBehindChannels();

}  // namespace qz7
