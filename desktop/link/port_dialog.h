#pragma once

#include <optional>

namespace qz7 {

// Lets the user choose a port, from the index 0..9 on; nothing when cancelled.
std::optional<int> ShowPortDialog(int index);

}  // namespace qz7
