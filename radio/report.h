#pragma once

#include <cstdint>
#include <string>

namespace qz7radio {

// One line of results on standard output, where scripts read it, at once.
void Say(const std::string& line);

// One line for the person watching, on standard error.
void Note(const std::string& line);

// "9.3076"
std::string Seconds(double seconds);

// "0x0A"
std::string Hex(std::uint8_t byte);

}  // namespace qz7radio
