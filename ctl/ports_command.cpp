#include <iostream>
#include <nlohmann/json.hpp>
#include <vector>

#include "core/link/serial_port.h"
#include "ctl/commands.h"
#include "ctl/console.h"
#include "ctl/terminal.h"

namespace qz7 {
namespace {

using Json = nlohmann::ordered_json;

const char* StatusName(PortStatus status) {
  switch (status) {
    case PortStatus::kOpen:
      return "free";
    case PortStatus::kDenied:
      return "denied";
    default:
      return "busy";
  }
}

void PrintAsJson(const std::vector<PortInfo>& ports) {
  Json list = Json::array();
  for (const PortInfo& port : ports) {
    list.push_back({{"name", port.name},
                    {"description", port.description},
                    {"status", StatusName(port.status)}});
  }
  std::cout << list.dump(2, ' ', IsOutputTerminal(), Json::error_handler_t::replace) << '\n';
}

}  // namespace

int PortsCommand(const PortsOptions& options) {
  std::vector<PortInfo> ports = ListSerialPorts();
  if (options.probe) {
    ProbePorts(ports);
  }
  // A place without a device is no port.
  std::erase_if(ports, [](const PortInfo& port) { return port.status == PortStatus::kAbsent; });
  if (options.json) {
    PrintAsJson(ports);
    return kDone;
  }
  for (const PortInfo& port : ports) {
    PrintUtf8Line(port.name + "\t" + port.description + "\t" + StatusName(port.status));
  }
  return kDone;
}

}  // namespace qz7
