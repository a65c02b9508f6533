#pragma once

#include <string>
#include <vector>

#include "core/link/serial_port.h"

namespace qz7 {

// The serial ports that the system lists under `class_folder` (normally /sys/class/tty), with their
// devices under `device_folder` (/dev). Consoles, pseudo-terminals and UART places without a chip
// are left out.
std::vector<PortInfo> ListSerialPortsUnder(const std::string& class_folder,
                                           const std::string& device_folder);

}  // namespace qz7
