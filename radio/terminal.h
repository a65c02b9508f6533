#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qz7radio {

// The pseudo-terminal that stands for the serial port: the radio holds the master side, the program
// opens the other one by its name. It is raw, at 9600 baud with 8 data and 2 stop bits, from the
// start, and keeps its name until it is closed here.
struct Terminal {
  int master = -1;
  std::string name;
};

// Returns why no terminal can be had, or an empty text.
std::string OpenTerminal(Terminal& terminal);

void CloseTerminal(Terminal& terminal);

// What the terminal tells when it is asked.
struct TerminalNews {
  std::vector<std::uint8_t> bytes;  // from the program, in their order
  bool purged = false;              // the program threw its receive queue away, before `bytes`
  bool open = false;                // the program has the terminal open
};

// Takes whatever is there, without waiting. Bytes that came before a purge and were still in the
// terminal cannot be told from later ones.
TerminalNews ReadTerminal(const Terminal& terminal);

// Returns how many of the bytes the terminal took, without waiting.
std::size_t WriteTerminal(const Terminal& terminal, const std::vector<std::uint8_t>& bytes);

// Throws away everything that was written and the program has not read yet. Leaves a purge behind
// in the terminal's news, like the program's own.
void DropUnread(const Terminal& terminal);

// Makes `path` a symbolic link to the terminal in place of an older link, and of nothing else.
// Returns why it cannot be made, or an empty text.
std::string MakeLink(const std::string& path, const Terminal& terminal);

// Removes the link unless somebody else's has taken its place.
void RemoveLink(const std::string& path, const Terminal& terminal);

}  // namespace qz7radio
