#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qz7 {

// The file that a command line (without the program's own name) asks for: the first word that is
// not a switch, in upper case, with ".rdf" where it names a folder but no extension. A path in
// double quotation marks is taken whole, blanks included. At most 255 characters.
std::optional<std::string> CommandLineFile(std::string_view command_line);

}  // namespace qz7
