#pragma once

#include "desktop/command_line.h"
#include "desktop/start_up.h"

namespace qz7 {

// The file that a word of the command line names: in upper case, seen from the current folder. Only
// a path in quotation marks may become longer than 259 characters.
NamedFile FileOfWord(const CommandLineWord& word);

}  // namespace qz7
