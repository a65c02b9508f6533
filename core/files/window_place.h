#pragma once

#include <optional>
#include <string>

namespace qz7 {

// Where a window was left, in the screen's pixels, as the preferences file keeps it: the four
// numbers with blanks between them.
struct WindowPlace {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool operator==(const WindowPlace&) const = default;
};

// Nothing where the key is missing or its text is no place.
std::optional<WindowPlace> ReadWindowPlace(const std::string& key);
void WriteWindowPlace(const std::string& key, const WindowPlace& place);

}  // namespace qz7
