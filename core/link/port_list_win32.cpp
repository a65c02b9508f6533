#include <windows.h>

#include "core/link/serial_port.h"

namespace qz7 {

std::vector<PortInfo> ListSerialPorts() {
  constexpr int kHighestPort = 9;
  std::vector<PortInfo> ports;
  for (int n = 1; n <= kHighestPort; ++n) {
    const std::string name = "COM" + std::to_string(n);
    char target[MAX_PATH] = "";
    if (QueryDosDeviceA(name.c_str(), target, MAX_PATH) == 0) {
      continue;
    }
    ports.push_back({name, target, MakeSerialPort()->Open(name).status});
  }
  return ports;
}

}  // namespace qz7
