#include "desktop/command_line.h"

#include <algorithm>

namespace qz7 {
namespace {

constexpr std::size_t kLongestName = 255;

bool IsBlank(wchar_t c) { return c <= L' '; }

std::size_t BlankIn(std::wstring_view text) {
  return static_cast<std::size_t>(std::find_if(text.begin(), text.end(), IsBlank) - text.begin());
}

void SkipBlanksAndSwitches(std::wstring_view& text) {
  while (!text.empty() && (IsBlank(text.front()) || text.front() == L'/')) {
    text.remove_prefix(IsBlank(text.front()) ? 1 : BlankIn(text));
  }
}

}  // namespace

std::wstring_view ArgumentsOf(std::wstring_view command_line) {
  const std::size_t end = command_line.starts_with(L'"')
                              ? std::min(command_line.find(L'"', 1), command_line.size() - 1) + 1
                              : BlankIn(command_line);
  command_line.remove_prefix(end);
  return command_line;
}

std::optional<CommandLineWord> CommandLineName(std::wstring_view arguments) {
  SkipBlanksAndSwitches(arguments);
  CommandLineWord word;
  word.quoted = arguments.starts_with(L'"');
  if (word.quoted) {
    arguments.remove_prefix(1);
    word.name = arguments.substr(0, arguments.find(L'"'));
  } else {
    arguments = arguments.substr(0, kLongestName);
    word.name = arguments.substr(0, std::min(BlankIn(arguments), arguments.find(L'/')));
  }
  return word.name.empty() ? std::nullopt : std::optional(word);
}

std::wstring WithExtension(std::wstring name) {
  const std::size_t separator = name.rfind(L'\\');
  if (separator != std::wstring::npos && name.find(L'.', separator) == std::wstring::npos) {
    name += L".rdf";
  }
  return name;
}

}  // namespace qz7
