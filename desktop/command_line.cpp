#include "desktop/command_line.h"

#include <algorithm>

namespace qz7 {
namespace {

constexpr std::size_t kLongestName = 255;

bool IsBlank(char c) { return static_cast<unsigned char>(c) <= ' '; }

void SkipBlanksAndSwitches(std::string_view& text) {
  while (!text.empty() && (IsBlank(text.front()) || text.front() == '/')) {
    if (IsBlank(text.front())) {
      text.remove_prefix(1);
    } else {
      text.remove_prefix(
          static_cast<std::size_t>(std::find_if(text.begin(), text.end(), IsBlank) - text.begin()));
    }
  }
}

std::string_view FirstWord(std::string_view text) {
  if (text.starts_with('"')) {
    text.remove_prefix(1);
    return text.substr(0, std::min(text.find('"'), kLongestName));
  }
  text = text.substr(0, kLongestName);
  const auto end =
      std::find_if(text.begin(), text.end(), [](char c) { return IsBlank(c) || c == '/'; });
  return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

char UpperCase(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

}  // namespace

std::optional<std::string> CommandLineName(std::string_view command_line) {
  SkipBlanksAndSwitches(command_line);
  const std::string_view name = FirstWord(command_line);
  return name.empty() ? std::nullopt : std::optional<std::string>(name);
}

std::string FileOfName(std::string name) {
  // A bare name gets no extension, on purpose.
  const std::size_t separator = name.rfind('\\');
  if (separator != std::string::npos && name.find('.', separator) == std::string::npos) {
    name += ".rdf";
  }
  std::transform(name.begin(), name.end(), name.begin(), UpperCase);
  return name;
}

}  // namespace qz7
