#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace qz7 {

// What a field makes of what is typed and pasted into it.

// A field while it is edited: its text, the selected part of it that a paste replaces, and how many
// characters it takes.
struct EditedField {
  std::string text{};
  std::size_t selection_begin = 0;
  std::size_t selection_end = 0;
  std::size_t limit = 0;
};

// In a frequency a decimal comma is a decimal point.
char FrequencyCharacter(char typed);

// What goes into a frequency field of a pasted text: its first line, with points for commas, as far
// as the field takes it.
std::string PastedFrequency(const EditedField& field, std::string_view pasted);

// The field's text with the first line of a pasted one; nothing where it would not hold the whole.
std::optional<std::string> PasteWhole(const EditedField& field, std::string_view pasted);

}  // namespace qz7
