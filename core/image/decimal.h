#pragma once

#include <string_view>

namespace qz7 {

// The number that a text starts with: leading blanks, a sign, digits up to the first other
// character; 0 where there is none. Beyond the range of int it is the nearest end of that range.
int DecimalValue(std::string_view text);

bool HasDigit(std::string_view text);

}  // namespace qz7
