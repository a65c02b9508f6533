#include "ctl/line_decorators.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "core/files/paths.h"
#include "core/link/exchange.h"

namespace qz7 {

TracedPort::TracedPort(SerialPort& port, const std::filesystem::path& path)
    : PassingPort(port), file_(SystemPath(path), std::ios::binary) {}

bool TracedPort::FlushTrace() { return file_.flush().good(); }

std::optional<std::size_t> TracedPort::Read(std::span<std::uint8_t> buffer) {
  const std::optional<std::size_t> count = PassingPort::Read(buffer);
  Trace('<', buffer.first(count.value_or(0)));
  return count;
}

std::size_t TracedPort::Write(std::span<const std::uint8_t> bytes) {
  const std::size_t count = PassingPort::Write(bytes);
  Trace('>', bytes.first(count));
  return count;
}

void TracedPort::SendByte(std::uint8_t byte) {
  PassingPort::SendByte(byte);
  Trace('>', std::span(&byte, 1));
}

void TracedPort::Trace(char direction, std::span<const std::uint8_t> bytes) {
  const std::chrono::duration<double, std::milli> since = std::chrono::steady_clock::now() - start_;
  for (const std::uint8_t byte : bytes) {
    std::array<char, 40> line;
    std::snprintf(line.data(), line.size(), "%10.3f %c %02X\n", since.count(), direction,
                  unsigned{byte});
    file_ << line.data();
  }
}

PausingPort::PausingPort(SerialPort& port, int milliseconds)
    : PassingPort(port), pause_(milliseconds) {}

std::size_t PausingPort::Write(std::span<const std::uint8_t> bytes) {
  if (bytes.size() == kCloneBlockSize) {
    pause_end_ = pause_end_.value_or(Clock::now() + pause_);
    if (Clock::now() < *pause_end_) {
      return 0;
    }
    pause_end_.reset();
  }
  return PassingPort::Write(bytes);
}

bool PausingPort::WaitForInput(std::size_t bytes, int milliseconds) {
  if (!pause_end_) {
    return PassingPort::WaitForInput(bytes, milliseconds);
  }
  const auto left =
      std::chrono::ceil<std::chrono::milliseconds>(*pause_end_ - Clock::now()).count();
  const int shorter = static_cast<int>(std::clamp<std::int64_t>(left, 0, milliseconds));
  return PassingPort::WaitForInput(bytes, shorter) || Clock::now() >= *pause_end_;
}

}  // namespace qz7
