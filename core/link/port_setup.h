#pragma once

#include <string>
#include <vector>

#include "core/files/preferences.h"
#include "core/link/serial_port.h"

namespace qz7 {

inline constexpr int kHighestPort = 9;

// "COM3"
std::string PortName(int index);

// What the port window says beside the choice: what the port is, or that the system lists none. In
// UTF-8; empty for "None".
std::string PortNote(int index, const std::vector<PortInfo>& ports);

// Opens the chosen port; an open one is closed first. False, with nothing shown, for no port.
bool OpenChosenPort(SerialPort& port, int index);

// The index that the port dialog opens with: 0 for one that is not in its list.
int ListedPort(int index);

// Lets the user choose a port until one opens, "None" is chosen or the user gives up. A port that
// does not open brings the previous one back. A new choice is stored. Returns whether a port is
// open.
bool SetUpPort(SerialPort& port, Preferences& preferences);

}  // namespace qz7
