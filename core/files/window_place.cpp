#include "core/files/window_place.h"

#include <sstream>

#include "core/files/seams.h"

namespace qz7 {

std::optional<WindowPlace> ReadWindowPlace(const std::string& key) {
  constexpr std::size_t kLongest = 60;
  std::istringstream text(ProfileText(ReadProfile(), key, "", kLongest));
  WindowPlace place;
  std::string rest;
  const bool good = text >> place.left >> place.top >> place.width >> place.height &&
                    !(text >> rest) && place.width > 0 && place.height > 0;
  return good ? std::optional(place) : std::nullopt;
}

void WriteWindowPlace(const std::string& key, const WindowPlace& place) {
  std::ostringstream text;
  text << place.left << ' ' << place.top << ' ' << place.width << ' ' << place.height;
  WriteProfile(key, text.str());
}

}  // namespace qz7
