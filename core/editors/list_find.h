#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/image/clone_image.h"
#include "core/image/region_variant.h"

namespace qz7 {

// How a row of the memory list is found. Rows are counted from 0; only programmed channels have a
// name, a comment and frequencies. Letters match whatever their case.

// What has been typed in the list without a pause.
struct TypedSearch {
  std::string text;
  std::uint32_t last_ms = 0;
};
inline constexpr std::uint32_t kTypingPauseMs = 1'000;

// A character typed at `now_ms` while `row` has the caret: the row to go to, or nothing. Digits are
// a channel's number. Other texts are the start of a name, looked for from the row on and then from
// the top; the same letter again goes to the next such name. Where no name begins so, it is the
// label of a PMS channel.
std::optional<int> TypeCharacter(TypedSearch& search, const CloneImage& image, char c,
                                 std::uint32_t now_ms, int row);

// The next row behind `row`, from the top behind the last one and back to the row itself, whose
// name, comment, receive or transmit frequency holds the text. Nothing for an empty text.
std::optional<int> FindNextRow(const CloneImage& image, std::string_view text, int row,
                               const RegionVariant& region);

}  // namespace qz7
