#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "core/link/serial_port.h"

namespace qz7 {

// A serial line in memory, for tests: `incoming` is what the other side has sent, `sent` what this
// side has. With `echo`, as on the cable, every byte sent comes back in order.
class MemoryLine : public SerialPort {
 public:
  PortResult Open(const std::string& device) override;
  void Close() override;
  bool IsOpen() const override;
  std::optional<std::size_t> Read(std::span<std::uint8_t> buffer) override;
  std::size_t Write(std::span<const std::uint8_t> bytes) override;
  void SendByte(std::uint8_t byte) override;
  unsigned LineErrors() override;
  void Purge(Queues queues) override;
  void RestartEvents() override;
  bool WaitForInput(std::size_t bytes, int milliseconds) override;

  std::deque<std::uint8_t> incoming;
  std::vector<std::uint8_t> sent;
  std::vector<std::size_t> write_sizes;  // one entry a Write call
  std::vector<Queues> purges;
  int event_restarts = 0;
  bool echo = true;
  unsigned line_errors = 0;
  std::size_t write_limit = SIZE_MAX;  // what one Write call takes at most
  std::size_t read_limit = SIZE_MAX;   // what one Read call gives at most
  int reads_to_fail = 0;
  bool failed = false;  // the device is gone: nothing works any more

 private:
  bool open_ = false;
};

}  // namespace qz7
