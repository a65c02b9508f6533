#include "core/link/port_list_posix.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace qz7 {
namespace {

namespace fs = std::filesystem;

std::string FirstLine(const fs::path& path) {
  std::ifstream file(path);
  std::string line;
  std::getline(file, line);
  return line;
}

// A UART place of the board that has no chip behind it says type 0.
bool HasHardware(const fs::path& entry) {
  std::error_code error;
  return fs::exists(entry / "device", error) &&
         (!fs::exists(entry / "type", error) || FirstLine(entry / "type") != "0");
}

// A USB adapter's own name stands a few folders above its terminal; others are named by their
// driver.
std::string Describe(const fs::path& entry) {
  constexpr int kLevels = 4;
  std::error_code error;
  fs::path folder = fs::canonical(entry / "device", error);
  const std::string driver = fs::read_symlink(folder / "driver", error).filename().string();
  for (int level = 0; level < kLevels && folder.has_relative_path(); ++level) {
    const std::string product = FirstLine(folder / "product");
    if (!product.empty()) {
      const std::string maker = FirstLine(folder / "manufacturer");
      return maker.empty() ? product : maker + " " + product;
    }
    folder = folder.parent_path();
  }
  // Newer kernels put a nameless "port" between a board's UART and its terminal.
  return driver.empty() || driver == "port" ? "serial port" : driver;
}

}  // namespace

std::vector<PortInfo> ListSerialPortsUnder(const std::string& class_folder,
                                           const std::string& device_folder) {
  std::vector<PortInfo> ports;
  std::error_code error;
  for (const fs::directory_entry& entry : fs::directory_iterator(class_folder, error)) {
    if (!HasHardware(entry.path())) {
      continue;
    }
    const std::string name = (fs::path(device_folder) / entry.path().filename()).string();
    ports.push_back({name, Describe(entry.path()), MakeSerialPort()->Open(name).status});
  }
  std::sort(ports.begin(), ports.end(),
            [](const PortInfo& a, const PortInfo& b) { return a.name < b.name; });
  return ports;
}

std::vector<PortInfo> ListSerialPorts() { return ListSerialPortsUnder("/sys/class/tty", "/dev"); }

}  // namespace qz7
