#include "tests/unit/memory_line.h"

#include <algorithm>

namespace qz7 {

PortResult MemoryLine::Open(const std::string& /*device*/) {
  open_ = true;
  failed = false;
  return {PortStatus::kOpen, 0};
}

void MemoryLine::Close() { open_ = false; }

bool MemoryLine::IsOpen() const { return open_; }

std::optional<std::size_t> MemoryLine::Read(std::span<std::uint8_t> buffer) {
  if (failed || !open_ || reads_to_fail > 0) {
    --reads_to_fail;
    return std::nullopt;
  }
  const std::size_t count = std::min({buffer.size(), incoming.size(), read_limit});
  const auto end = incoming.begin() + static_cast<std::ptrdiff_t>(count);
  std::copy(incoming.begin(), end, buffer.begin());
  incoming.erase(incoming.begin(), end);
  return count;
}

std::size_t MemoryLine::Write(std::span<const std::uint8_t> bytes) {
  const std::size_t count = failed || !open_ ? 0 : std::min(bytes.size(), write_limit);
  const auto taken = bytes.first(count);
  write_sizes.push_back(count);
  sent.insert(sent.end(), taken.begin(), taken.end());
  if (echo) {
    incoming.insert(incoming.end(), taken.begin(), taken.end());
  }
  return count;
}

void MemoryLine::SendByte(std::uint8_t byte) {
  if (failed || !open_) {
    return;
  }
  sent.push_back(byte);
  if (echo) {
    incoming.push_back(byte);
  }
}

unsigned MemoryLine::LineErrors() {
  const unsigned errors = line_errors;
  line_errors = 0;
  return errors;
}

void MemoryLine::Purge(Queues queues) {
  purges.push_back(queues);
  if (queues != Queues::kTransmit) {
    incoming.clear();
  }
}

void MemoryLine::RestartEvents() { ++event_restarts; }

bool MemoryLine::WaitForInput(std::size_t /*bytes*/, int /*milliseconds*/) {
  return !incoming.empty();
}
}  // namespace qz7
