#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/image/clone_image.h"
#include "core/interchange/value_tree.h"

namespace qz7 {

inline constexpr const char* kOtherName = "other";

// Two lower-case hexadecimal digits a byte, and back; nothing for what is none.
std::string HexText(std::span<const std::uint8_t> bytes);
std::optional<std::vector<std::uint8_t>> ParseHex(const std::string& text);
// Why hexadecimal of so many bytes is refused.
std::string HexRefusal(std::size_t bytes);

// What the named values leave open of the image outside the channels, as hexadecimal by image
// offset. The header's fixed fields, checksums, filler and the summary table are no part of it:
// every save makes them.

// Whether the byte can stand there.
bool IsOtherByte(std::size_t offset);
// The marked bytes of the image, in runs that do not cross a multiple of 32.
ValueTree DumpOther(const CloneImage& image, const std::vector<bool>& marked);
// Puts them into the image; tells what is wrong.
void BuildOther(const ValueTree& other, CloneImage& image, std::vector<std::string>& errors);

// Whether they tell that byte.
bool OtherCovers(const ValueTree& other, std::size_t offset);

// Tells "PLACE: REASON".
void TellError(std::vector<std::string>& errors, const std::string& place,
               const std::string& reason);
// Whether the value is of that kind; tells where it is not.
bool IsText(const ValueTree& value, const std::string& place, std::vector<std::string>& errors);
bool HasMembers(const ValueTree& value, const std::string& place, std::vector<std::string>& errors);

}  // namespace qz7
