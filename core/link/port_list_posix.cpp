#include "core/link/port_list_posix.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
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

// A lock file names the process that has the port, by its number.
bool HasLiveLock(const std::string& terminal) {
  std::error_code error;
  const std::string owner = FirstLine("/var/lock/LCK.." + terminal);
  const std::size_t digits = owner.find_first_of("0123456789");
  return digits != std::string::npos && fs::exists("/proc/" + owner.substr(digits), error);
}

// Whether a process that this user may look into has the device open.
bool IsOpenSomewhere(const fs::path& device) {
  std::error_code error;
  const fs::path target = fs::canonical(device, error);
  for (const fs::directory_entry& process : fs::directory_iterator("/proc", error)) {
    std::error_code closed;
    for (const fs::directory_entry& handle :
         fs::directory_iterator(process.path() / "fd", closed)) {
      std::error_code gone;
      if (fs::read_symlink(handle.path(), gone) == target) {
        return true;
      }
    }
  }
  return false;
}

PortStatus StatusWithoutOpening(const fs::path& device) {
  if (access(device.c_str(), R_OK | W_OK) != 0) {
    return errno == ENOENT ? PortStatus::kAbsent : PortStatus::kDenied;
  }
  const bool busy = HasLiveLock(device.filename().string()) || IsOpenSomewhere(device);
  return busy ? PortStatus::kBusy : PortStatus::kOpen;
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
    ports.push_back({name, Describe(entry.path()), StatusWithoutOpening(name)});
  }
  std::sort(ports.begin(), ports.end(),
            [](const PortInfo& a, const PortInfo& b) { return a.name < b.name; });
  return ports;
}

std::vector<PortInfo> ListSerialPorts() { return ListSerialPortsUnder("/sys/class/tty", "/dev"); }

}  // namespace qz7
