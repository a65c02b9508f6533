#pragma once

#include <string>
#include <string_view>

namespace qz7 {

// Between the windows' single bytes, in the system's code page, and the system's own letters. What
// the code page lacks becomes what the system puts in its place.
std::string AnsiText(std::wstring_view text);
std::wstring WideText(std::string_view text);

}  // namespace qz7
