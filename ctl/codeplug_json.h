#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "core/interchange/value_tree.h"

namespace qz7 {

// The codeplug as JSON: objects, texts and null alone. The tree holds the radio's own bytes, the
// JSON is UTF-8.

// One value a line, names in the tree's order. With `ascii` every other character is escaped.
std::string JsonOf(const ValueTree& tree, bool ascii);

struct ReadTree {
  ValueTree tree;
  // What is no JSON, and each value of a wrong kind, text without a byte or name that stands there
  // already, "channels/12/rx: REASON".
  std::vector<std::string> errors;
  bool is_json = true;
};
ReadTree ParseTree(std::span<const std::uint8_t> bytes);

}  // namespace qz7
