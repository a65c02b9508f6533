#include "core/link/serial_port.h"

#include "core/files/seams.h"

namespace qz7 {

std::string PortErrorText(const std::string& device, const PortResult& result) {
  switch (result.status) {
    case PortStatus::kAbsent:
      return device + ": Invalid or unsupported port.";
    case PortStatus::kBusy:
      return device + ": Is already open.";
    default:
      return device + ":  Unknown error #-" + std::to_string(result.system_code) + ".";
  }
}

bool OpenPort(SerialPort& port, const std::string& device) {
  const PortResult result = port.Open(device);
  if (result.status != PortStatus::kOpen) {
    ShowMessage(PortErrorText(device, result), "Com port error", Buttons::kOk, Icon::kNone);
  }
  return result.status == PortStatus::kOpen;
}

void ProbePorts(std::vector<PortInfo>& ports) {
  for (PortInfo& port : ports) {
    if (port.status == PortStatus::kOpen) {
      port.status = MakeSerialPort()->Open(port.name).status;
    }
  }
}

std::size_t WriteBytesOneByOne(SerialPort& port, std::span<const std::uint8_t> bytes) {
  std::size_t written = 0;
  while (written < bytes.size() && port.Write(bytes.subspan(written, 1)) == 1) {
    ++written;
  }
  return written;
}

}  // namespace qz7
