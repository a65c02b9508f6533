#include <unistd.h>

#include "ctl/terminal.h"

namespace qz7 {

bool IsErrorTerminal() { return isatty(STDERR_FILENO) != 0; }
bool IsOutputTerminal() { return isatty(STDOUT_FILENO) != 0; }

void UseBinaryStreams() {}

}  // namespace qz7
