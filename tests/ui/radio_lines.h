#pragma once

#include <cstddef>
#include <cstdint>
#include <numeric>

#include "core/link/serial_port.h"
#include "tests/unit/memory_line.h"
#include "tests/unit/temp_folder.h"

// Radios at the other end of a line in memory.
namespace qz7 {

// The memory of the radio at the other end.
inline Bytes RadioMemory() {
  Bytes bytes(8122);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    bytes[i] = static_cast<std::uint8_t>(i * 13 + i / 256);
  }
  bytes[0] = 0x0A;
  return bytes;
}

inline std::uint8_t SumOf(const Bytes& bytes) {
  return static_cast<std::uint8_t>(std::accumulate(bytes.begin(), bytes.end(), 0U));
}

// A radio that sends: its header when it is told to start, then a piece after each acknowledgement.
class SendingRadio : public MemoryLine {
 public:
  void Start() { Give(0, 10); }
  void SendByte(std::uint8_t byte) override {
    MemoryLine::SendByte(byte);
    if (byte != kAck) {
      return;
    }
    ++acknowledged;
    if (acknowledged == 1) {
      line_errors = damage;
      Give(10, 26);
    } else if (acknowledged == 2) {
      Give(26, stop_at);
      if (stop_at == memory.size()) {
        incoming.push_back(static_cast<std::uint8_t>(SumOf(memory) + checksum_error));
      }
    }
  }

  Bytes memory = RadioMemory();
  std::size_t stop_at = 8122;
  int checksum_error = 0;
  unsigned damage = 0;  // on the line behind the header
  int acknowledged = 0;

 private:
  void Give(std::size_t from, std::size_t to) {
    incoming.insert(incoming.end(), memory.begin() + static_cast<std::ptrdiff_t>(from),
                    memory.begin() + static_cast<std::ptrdiff_t>(to));
  }
};

// A radio that receives: it answers the header and the first block.
class ReceivingRadio : public MemoryLine {
 public:
  std::size_t Write(std::span<const std::uint8_t> bytes) override {
    const std::size_t count = MemoryLine::Write(bytes);
    if (answers && (sent.size() == 10 || sent.size() == 26 || sent.size() == 8122)) {
      incoming.push_back(answer);
    }
    return count;
  }
  bool answers = true;
  std::uint8_t answer = kAck;
};

}  // namespace qz7
