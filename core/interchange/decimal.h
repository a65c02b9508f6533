#pragma once

#include <string>

namespace qz7 {

// The decimal integer that a text begins with, leading blanks and a sign allowed; 0 for none.
// Values beyond the range of int stay at that range's ends.
int DecimalValue(const std::string& text);

}  // namespace qz7
