#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qz7 {

// What a command line (without the program's own name) asks for: the first word that is not a
// switch. A path in double quotation marks is taken whole, blanks included. At most 255 characters.
std::optional<std::string> CommandLineName(std::string_view command_line);

// The file of such a name: in upper case, with ".rdf" where it names a folder but no extension.
std::string FileOfName(std::string name);

}  // namespace qz7
