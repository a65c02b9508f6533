#include <fcntl.h>
#include <io.h>
#include <stdio.h>
#include <windows.h>

#include "ctl/terminal.h"

namespace qz7 {

bool IsErrorTerminal() { return _isatty(_fileno(stderr)) != 0; }
bool IsOutputTerminal() { return _isatty(_fileno(stdout)) != 0; }

void UseBinaryStreams() {
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
  SetConsoleOutputCP(CP_UTF8);
}

}  // namespace qz7
