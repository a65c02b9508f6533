#include "core/image/typed_text.h"

#include <algorithm>

namespace qz7 {
namespace {

std::string_view FirstLine(std::string_view text) {
  return text.substr(0, text.find_first_of("\r\n"));
}

// How many characters can take the selection's place.
std::size_t RoomIn(const EditedField& field) {
  const std::size_t kept = field.text.size() - (field.selection_end - field.selection_begin);
  return field.limit - std::min(kept, field.limit);
}

}  // namespace

char FrequencyCharacter(char typed) { return typed == ',' ? '.' : typed; }

std::string PastedFrequency(const EditedField& field, std::string_view pasted) {
  std::string line(FirstLine(pasted).substr(0, RoomIn(field)));
  std::transform(line.begin(), line.end(), line.begin(), FrequencyCharacter);
  return line;
}

std::optional<std::string> PasteWhole(const EditedField& field, std::string_view pasted) {
  const std::string_view line = FirstLine(pasted);
  if (line.size() > RoomIn(field)) {
    return std::nullopt;
  }
  std::string text = field.text;
  text.replace(field.selection_begin, field.selection_end - field.selection_begin, line);
  return text;
}

}  // namespace qz7
