#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "core/image/clone_image.h"

namespace qz7 {

// The main dialog's controls and the image bits behind them, one entry for a list, a group of radio
// buttons or a check box. A list's position is the byte's value; the buttons of a group are 0, 1,
// 2; a check box is 0 or 1.
enum class FieldKind { kList, kRadioGroup, kCheckBox };

struct MainField {
  FieldKind kind;
  int control;  // of a group: the first of its buttons, which have numbers in sequence
  std::size_t offset;
  std::uint8_t bits;
  std::span<const char* const> texts;  // of a list
  int buttons = 0;                     // of a group
};

std::span<const MainField> MainFields();

// What the control shows; nothing for a value that it has no choice for.
std::optional<int> ReadMainField(const CloneImage& image, const MainField& field);
// Stores a choice. Nothing chosen keeps the image's bits.
void WriteMainField(CloneImage& image, const MainField& field, std::optional<int> choice);

inline constexpr std::size_t kLongestFileComment = 79;
// Stores the comment's text and a 0 byte behind it; what stands behind that is not touched.
void WriteFileComment(CloneImage& image, const std::string& text);

// Whether a notification of this control means that the settings may differ from the defaults.
bool TouchesMainDefaults(int control);

// "Byte 10504, bit 7": what the tooltip of a control without a known meaning says.
std::string FieldPlace(const MainField& field);

}  // namespace qz7
