#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qz7 {

// What stands behind the program's own name on a whole command line.
std::wstring_view ArgumentsOf(std::wstring_view command_line);

// What the arguments ask for: the first word that is not a switch, at most 255 characters of it.
// A path in double quotation marks is taken whole, blanks and all of its length included.
struct CommandLineWord {
  std::wstring name;
  bool quoted = false;
  bool operator==(const CommandLineWord&) const = default;
};
std::optional<CommandLineWord> CommandLineName(std::wstring_view arguments);

// Such a name with ".rdf" where it names a folder but no extension. A bare name gets none, on
// purpose.
std::wstring WithExtension(std::wstring name);

}  // namespace qz7
