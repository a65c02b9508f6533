#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace qz7 {

inline constexpr std::uint8_t kAck = 0x06;
inline constexpr std::uint8_t kAbort = 0xFF;

enum class PortStatus { kOpen, kAbsent, kBusy, kDenied, kOtherError };

struct PortResult {
  PortStatus status;
  int system_code;  // the system's own error number; 0 when open
};

enum class Queues { kTransmit, kReceive, kBoth };

// A serial port at 9600 baud, 8 data bits, no parity, 2 stop bits, without any flow control; DTR
// and RTS are on while it is open. One program has it at a time.
//
// What the words mean for every implementation:
//  - Nothing waits, Close and WaitForInput apart. Read returns what has already arrived, 0 for
//  nothing.
//  - A short read is the normal case; a short write means that the rest was not taken and is lost.
//    What was taken goes out from a buffer of the port's own.
//  - A failed read says so in its result, a failed write by what it took. A closed port fails both.
//  - There is no time-out in here: an exchange counts its own ticks.
class SerialPort {
 public:
  SerialPort() = default;
  SerialPort(const SerialPort&) = delete;
  SerialPort& operator=(const SerialPort&) = delete;
  virtual ~SerialPort() = default;

  // `device` is "COM3" on Windows and a path on Linux. An open port is closed first.
  virtual PortResult Open(const std::string& device) = 0;
  // Waits until the last byte has left the wire, a second at most; then drops DTR and RTS and
  // restores what the device was set to. Closing a closed port does nothing.
  virtual void Close() = 0;
  virtual bool IsOpen() const = 0;

  // Nothing when the read failed.
  virtual std::optional<std::size_t> Read(std::span<std::uint8_t> buffer) = 0;
  virtual std::size_t Write(std::span<const std::uint8_t> bytes) = 0;
  // Sends one byte ahead of the transmit queue.
  virtual void SendByte(std::uint8_t byte) = 0;

  // Framing, overrun, parity, break and overflow errors since the last call, as a count or as bits;
  // 0 for none. The call clears them.
  virtual unsigned LineErrors() = 0;
  virtual void Purge(Queues queues) = 0;
  // Makes the port's event state fresh at the start of an exchange; nothing where there is none.
  virtual void RestartEvents() = 0;

  // A window's way of waiting: a system object (an event of Win32) that is signalled when bytes
  // have come, armed by the call; null where there is none. A port that has refused once is not
  // asked again until it is opened again.
  virtual void* ArmReceiveEvent() { return nullptr; }
  // Waits until `bytes` bytes can be read, or for `milliseconds`; true when at least one can, or
  // when the device has gone away, which a read will tell. The
  // console program's way of waiting; the desktop program has its message loop.
  virtual bool WaitForInput(std::size_t bytes, int milliseconds) = 0;

  // The device has gone away: closes the port, which is lost until it is opened anew.
  void Lose() {
    Close();
    lost_ = true;
  }
  bool IsLost() const { return lost_ && !IsOpen(); }

 private:
  bool lost_ = false;
};

// The machine's own serial port (POSIX or Win32), closed.
std::unique_ptr<SerialPort> MakeSerialPort();

// Opens the port, or shows why not: caption "Com port error".
bool OpenPort(SerialPort& port, const std::string& device);
// The message of a failed opening: "COM3: Invalid or unsupported port.".
std::string PortErrorText(const std::string& device, const PortResult& result);

// Writes byte by byte, each in a call of its own, and stops at the first that is not taken. Returns
// how many were taken.
std::size_t WriteBytesOneByOne(SerialPort& port, std::span<const std::uint8_t> bytes);

struct PortInfo {
  std::string name;
  std::string description;  // the system's, in UTF-8
  PortStatus status;        // kOpen: free
};

// The serial ports of this machine, by name, as the system tells of them. No port is opened, which
// would move its lines, so that a port may be busy without being known for it.
std::vector<PortInfo> ListSerialPorts();
// Opens each port that seems free, and closes it again.
void ProbePorts(std::vector<PortInfo>& ports);

}  // namespace qz7
