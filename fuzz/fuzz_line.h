#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "core/link/serial_port.h"

namespace qz7 {

// A serial line in memory that costs little to use and to make anew: what the tests' line records
// of calls is left out, and `incoming` is read from a place of its own that moves.
class FuzzLine : public SerialPort {
 public:
  PortResult Open(const std::string& /*device*/) override {
    open_ = true;
    return {PortStatus::kOpen, 0};
  }
  void Close() override { open_ = false; }
  bool IsOpen() const override { return open_; }

  std::optional<std::size_t> Read(std::span<std::uint8_t> buffer) override {
    if (!open_ || reads_to_fail > 0) {
      --reads_to_fail;
      return std::nullopt;
    }
    const std::size_t count = std::min({buffer.size(), Waiting(), read_limit});
    std::copy_n(incoming_.begin() + static_cast<std::ptrdiff_t>(read_), count, buffer.begin());
    read_ += count;
    return count;
  }
  std::size_t Write(std::span<const std::uint8_t> bytes) override {
    const auto taken = bytes.first(open_ ? std::min(bytes.size(), write_limit) : 0);
    sent.insert(sent.end(), taken.begin(), taken.end());
    if (echo) {
      incoming_.insert(incoming_.end(), taken.begin(), taken.end());
    }
    return taken.size();
  }
  void SendByte(std::uint8_t byte) override {
    if (open_) {
      sent.push_back(byte);
      if (echo) {
        incoming_.push_back(byte);
      }
    }
  }
  unsigned LineErrors() override { return std::exchange(line_errors, 0U); }
  void Purge(Queues queues) override {
    if (queues != Queues::kTransmit) {
      incoming_.clear();
      read_ = 0;
    }
  }
  void RestartEvents() override {}
  bool WaitForInput(std::size_t /*bytes*/, int /*milliseconds*/) override { return Waiting() > 0; }

  // The other side sends.
  void Receive(std::uint8_t byte, std::size_t count = 1) {
    incoming_.insert(incoming_.end(), count, byte);
  }
  std::size_t Waiting() const { return incoming_.size() - read_; }

  std::vector<std::uint8_t> sent;
  bool echo = true;
  unsigned line_errors = 0;
  std::size_t write_limit = SIZE_MAX;  // what one Write call takes at most
  std::size_t read_limit = SIZE_MAX;   // what one Read call gives at most
  int reads_to_fail = 0;

 private:
  std::vector<std::uint8_t> incoming_;
  std::size_t read_ = 0;
  bool open_ = false;
};

}  // namespace qz7
