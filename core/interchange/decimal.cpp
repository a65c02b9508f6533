#include "core/interchange/decimal.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace qz7 {

int DecimalValue(const std::string& text) {
  constexpr long long kLowest = std::numeric_limits<int>::min();
  constexpr long long kHighest = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(std::strtoll(text.c_str(), nullptr, 10), kLowest, kHighest));
}

}  // namespace qz7
