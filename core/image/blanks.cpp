#include "core/image/blanks.h"

#include <algorithm>

namespace qz7 {

std::string WithoutLeadingBlanks(std::string_view text) {
  return std::string(text.substr(std::min(text.find_first_not_of(' '), text.size())));
}

std::string WithoutOuterBlanks(std::string_view text, std::string_view blanks) {
  const std::size_t begin = std::min(text.find_first_not_of(blanks), text.size());
  return std::string(text.substr(begin, text.find_last_not_of(blanks) + 1 - begin));
}

}  // namespace qz7
