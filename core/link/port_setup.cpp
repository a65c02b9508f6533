#include "core/link/port_setup.h"

#include <algorithm>

#include "core/files/seams.h"

namespace qz7 {

std::string PortName(int index) { return "COM" + std::to_string(index); }

std::string PortNote(int index, const std::vector<PortInfo>& ports) {
  if (index == 0) {
    return "";
  }
  const std::string name = PortName(index);
  const auto port = std::find_if(ports.begin(), ports.end(),
                                 [&](const PortInfo& info) { return info.name == name; });
  return port == ports.end() ? "The system lists no " + name + " at present." : port->description;
}

bool OpenChosenPort(SerialPort& port, int index) {
  port.Close();
  return index != 0 && OpenPort(port, PortName(index));
}

int ListedPort(int index) { return index < 0 || index > kHighestPort ? 0 : index; }

bool SetUpPort(SerialPort& port, Preferences& preferences) {
  for (;;) {
    preferences.port_index = ListedPort(preferences.port_index);
    const std::optional<int> chosen = AskForPort(preferences.port_index);
    if (!chosen) {
      return port.IsOpen();
    }
    const int previous = preferences.port_index;
    const bool was_open = port.IsOpen();
    const bool opened = OpenChosenPort(port, *chosen);
    if (opened || *chosen == 0) {
      preferences.port_index = *chosen;
      if (*chosen != previous) {
        SavePortIndex(preferences);
      }
      return port.IsOpen();
    }
    if (was_open) {
      port.Open(PortName(previous));
    }
  }
}

}  // namespace qz7
