#pragma once

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>

#include "core/link/serial_port.h"

namespace qz7 {

// A port that passes everything on to another one; the classes below change one thing each.
class PassingPort : public SerialPort {
 public:
  explicit PassingPort(SerialPort& port) : port_(port) {}
  PortResult Open(const std::string& device) override { return port_.Open(device); }
  void Close() override { port_.Close(); }
  bool IsOpen() const override { return port_.IsOpen(); }
  std::optional<std::size_t> Read(std::span<std::uint8_t> buffer) override {
    return port_.Read(buffer);
  }
  std::size_t Write(std::span<const std::uint8_t> bytes) override { return port_.Write(bytes); }
  void SendByte(std::uint8_t byte) override { port_.SendByte(byte); }
  unsigned LineErrors() override { return port_.LineErrors(); }
  void Purge(Queues queues) override { port_.Purge(queues); }
  void RestartEvents() override { port_.RestartEvents(); }
  bool WaitForInput(std::size_t bytes, int milliseconds) override {
    return port_.WaitForInput(bytes, milliseconds);
  }

 private:
  SerialPort& port_;
};

// Writes every byte of an exchange into a file, a line each: milliseconds since the start, ">" for
// sent or "<" for received, the byte.
class TracedPort : public PassingPort {
 public:
  TracedPort(SerialPort& port, const std::filesystem::path& path);
  // Whether the file could be made and everything so far is written.
  bool FlushTrace();

  std::optional<std::size_t> Read(std::span<std::uint8_t> buffer) override;
  std::size_t Write(std::span<const std::uint8_t> bytes) override;
  void SendByte(std::uint8_t byte) override;

 private:
  void Trace(char direction, std::span<const std::uint8_t> bytes);

  std::ofstream file_;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

// Pauses before each block, for a radio that is slower than its cable: it takes nothing of the
// block until then.
class PausingPort : public PassingPort {
 public:
  PausingPort(SerialPort& port, int milliseconds);
  std::size_t Write(std::span<const std::uint8_t> bytes) override;
  // True at the end of a pause too.
  bool WaitForInput(std::size_t bytes, int milliseconds) override;

 private:
  using Clock = std::chrono::steady_clock;

  std::chrono::milliseconds pause_;
  std::optional<Clock::time_point> pause_end_;
};

}  // namespace qz7
