#include "core/image/decimal.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace qz7 {

int DecimalValue(std::string_view text) {
  constexpr std::int64_t kLowest = std::numeric_limits<int>::min();
  constexpr std::int64_t kHighest = std::numeric_limits<int>::max();
  std::size_t at = std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size());
  const bool negative = at < text.size() && text[at] == '-';
  if (negative || (at < text.size() && text[at] == '+')) {
    ++at;
  }
  std::int64_t value = 0;
  for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
    const int digit = text[at] - '0';
    value = std::clamp(value * 10 + (negative ? -digit : digit), kLowest, kHighest);
  }
  return static_cast<int>(value);
}

bool HasDigit(std::string_view text) {
  return text.find_first_of("0123456789") != std::string_view::npos;
}

}  // namespace qz7
