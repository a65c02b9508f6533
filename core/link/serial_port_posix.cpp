#include <fcntl.h>
#include <linux/serial.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <thread>

#include "core/link/line_clock.h"
#include "core/link/line_error_count.h"
#include "core/link/serial_port.h"

namespace qz7 {
namespace {

PortStatus StatusOf(int code) {
  switch (code) {
    case ENOENT:
    case ENODEV:
    case ENXIO:
    case ENOTTY:
    case EIO:
      return PortStatus::kAbsent;
    case EBUSY:
    case EWOULDBLOCK:
      return PortStatus::kBusy;
    case EACCES:
    case EPERM:
      return PortStatus::kDenied;
    default:
      return PortStatus::kOtherError;
  }
}

using Clock = LineClock::Clock;

// 9600 baud, 8 data bits, no parity, 2 stop bits, raw.
termios LineSettings(const termios& current) {
  termios line = current;
  cfmakeraw(&line);
  line.c_cflag &= static_cast<tcflag_t>(~(CSIZE | PARENB | CRTSCTS));
  line.c_cflag |= CS8 | CSTOPB | CREAD | CLOCAL;
  line.c_iflag &= static_cast<tcflag_t>(~(IXON | IXOFF | IXANY | INPCK));
  line.c_cc[VMIN] = 1;
  line.c_cc[VTIME] = 0;
  cfsetispeed(&line, B9600);
  cfsetospeed(&line, B9600);
  return line;
}

class PosixSerialPort final : public SerialPort {
 public:
  ~PosixSerialPort() override { CloseHandle(); }

  PortResult Open(const std::string& device) override {
    CloseHandle();
    handle_ = open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (handle_ < 0 || !Claim()) {
      const int code = errno;
      if (handle_ >= 0) {
        close(handle_);
        handle_ = -1;
      }
      return {StatusOf(code), code};
    }
    Configure();
    line_errors_ = {};
    LineErrors();
    return {PortStatus::kOpen, 0};
  }

  void Close() override { CloseHandle(); }

  bool IsOpen() const override { return handle_ >= 0; }

  std::optional<std::size_t> Read(std::span<std::uint8_t> buffer) override {
    const ssize_t count = read(handle_, buffer.data(), buffer.size());
    if (count > 0) {
      line_.CameBack(static_cast<std::size_t>(count));
      return static_cast<std::size_t>(count);
    }
    // Nothing there yet is EAGAIN; an end of file is a terminal that has gone away.
    if (count < 0 && (errno == EAGAIN || errno == EINTR)) {
      return 0;
    }
    line_ = {};
    return std::nullopt;
  }

  std::size_t Write(std::span<const std::uint8_t> bytes) override {
    std::size_t taken = 0;
    while (taken < bytes.size()) {
      const ssize_t count = write(handle_, bytes.data() + taken, bytes.size() - taken);
      if (count < 0 && errno == EINTR) {
        continue;
      }
      if (count <= 0) {
        break;
      }
      taken += static_cast<std::size_t>(count);
    }
    line_.Sent(taken);
    return taken;
  }

  // A terminal has one queue only, and an exchange sends this byte when that is empty.
  void SendByte(std::uint8_t byte) override { Write(std::span(&byte, 1)); }

  unsigned LineErrors() override { return line_errors_.Since(CountLineErrors()); }

  void Purge(Queues queues) override {
    switch (queues) {
      case Queues::kTransmit:
        tcflush(handle_, TCOFLUSH);
        break;
      case Queues::kReceive:
        tcflush(handle_, TCIFLUSH);
        break;
      case Queues::kBoth:
        tcflush(handle_, TCIOFLUSH);
        break;
    }
  }

  void RestartEvents() override {}

  // Sleeps for what the missing bytes need on the wire at least: waking for each of them would cost
  // more processor time than the whole rest of an exchange.
  bool WaitForInput(std::size_t bytes, int milliseconds) override {
    const Clock::time_point limit = Clock::now() + std::chrono::milliseconds(milliseconds);
    while (WaitForFirstByte(limit)) {
      const std::size_t waiting = WaitingBytes();
      if (waiting == 0 || waiting >= bytes || Clock::now() >= limit) {
        return true;
      }
      std::this_thread::sleep_until(
          std::min(limit, Clock::now() + LineClock::TimeOf(bytes - waiting)));
    }
    return false;
  }

 private:
  // One program at a time. The lock is for those whom the terminal's own exclusive mode lets pass.
  bool Claim() {
    return isatty(handle_) != 0 && flock(handle_, LOCK_EX | LOCK_NB) == 0 &&
           ioctl(handle_, TIOCEXCL) == 0;
  }

  // A device that refuses its settings stays open on purpose.
  void Configure() {
    has_saved_ = tcgetattr(handle_, &saved_) == 0;
    const termios line = LineSettings(saved_);
    tcsetattr(handle_, TCSANOW, &line);
    SetModemLines(TIOCMBIS);
  }

  // A pseudo-terminal has no modem lines; nothing depends on them there.
  void SetModemLines(unsigned long request) const {
    const int lines = TIOCM_DTR | TIOCM_RTS;
    ioctl(handle_, request, &lines);
  }

  // True when there is a byte, or when the terminal has gone away and a read will say so.
  bool WaitForFirstByte(Clock::time_point limit) const {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(limit - Clock::now()).count();
    pollfd waiting{.fd = handle_, .events = POLLIN, .revents = 0};
    return poll(&waiting, 1, static_cast<int>(std::max<std::int64_t>(left, 0))) > 0;
  }

  std::size_t WaitingBytes() const {
    int waiting = 0;
    return ioctl(handle_, FIONREAD, &waiting) == 0 ? static_cast<std::size_t>(waiting) : 0;
  }

  // The driver's running count of damaged bytes; nothing where it does not tell.
  std::optional<unsigned> CountLineErrors() const {
    serial_icounter_struct counts{};
    if (ioctl(handle_, TIOCGICOUNT, &counts) != 0) {
      return std::nullopt;
    }
    return static_cast<unsigned>(counts.frame + counts.overrun + counts.parity + counts.brk +
                                 counts.buf_overrun);
  }

  std::size_t QueuedBytes() const {
    int queued = 0;
    return ioctl(handle_, TIOCOUTQ, &queued) == 0 ? static_cast<std::size_t>(queued) : 0;
  }

  // Not every driver tells whether its transmitter is empty.
  bool IsLineIdle() {
    line_.Queued(QueuedBytes());
    unsigned state = TIOCSER_TEMT;
    ioctl(handle_, TIOCSERGETLSR, &state);
    return (state & TIOCSER_TEMT) != 0 && line_.IsIdle();
  }

  // Some cables live on the lines that are dropped next.
  void WaitUntilSent() {
    const Clock::time_point limit = Clock::now() + kLongestDrain;
    while (!IsLineIdle() && Clock::now() < limit) {
      std::this_thread::sleep_for(kByteTime);
    }
  }

  void CloseHandle() {
    if (handle_ < 0) {
      return;
    }
    WaitUntilSent();
    SetModemLines(TIOCMBIC);
    // What has not left by now never will, and the system would wait for it. A queue that says it
    // is empty is left alone: a pseudo-terminal says so of bytes that are still on their way.
    if (QueuedBytes() > 0) {
      tcflush(handle_, TCOFLUSH);
    }
    if (has_saved_) {
      tcsetattr(handle_, TCSANOW, &saved_);
    }
    ioctl(handle_, TIOCNXCL);
    close(handle_);
    handle_ = -1;
    line_ = {};
  }

  int handle_ = -1;
  termios saved_{};
  bool has_saved_ = false;
  LineClock line_;
  LineErrorCount line_errors_;
};

}  // namespace

std::unique_ptr<SerialPort> MakeSerialPort() { return std::make_unique<PosixSerialPort>(); }

}  // namespace qz7
