#include "radio/report.h"

#include <array>
#include <cstdio>

namespace qz7radio {

void Say(const std::string& line) {
  std::fputs((line + '\n').c_str(), stdout);
  std::fflush(stdout);
}

void Note(const std::string& line) { std::fputs(("qz7radio: " + line + '\n').c_str(), stderr); }

std::string Seconds(double seconds) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.4f", seconds);
  return text.data();
}

std::string Hex(std::uint8_t byte) {
  std::array<char, 8> text{};
  std::snprintf(text.data(), text.size(), "0x%02X", static_cast<unsigned>(byte));
  return text.data();
}

}  // namespace qz7radio
