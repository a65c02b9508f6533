#pragma once

#include <string>
#include <string_view>

namespace qz7 {

std::string WithoutLeadingBlanks(std::string_view text);
// Without any of these at either end.
std::string WithoutOuterBlanks(std::string_view text, std::string_view blanks = " ");

}  // namespace qz7
