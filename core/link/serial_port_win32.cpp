#include <windows.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <string>

#include "core/files/seams.h"
#include "core/link/line_clock.h"
#include "core/link/pending_write_win32.h"
#include "core/link/receive_wait_win32.h"
#include "core/link/serial_port.h"

namespace qz7 {
namespace {

constexpr DWORD kQueueSize = 2048;
// What a call that was to be done at once gets, in milliseconds; then it is taken back.
constexpr DWORD kPatience = 50;

PortStatus StatusOf(DWORD code) {
  switch (code) {
    case ERROR_FILE_NOT_FOUND:
      return PortStatus::kAbsent;
    case ERROR_ACCESS_DENIED:
      return PortStatus::kBusy;
    default:
      return PortStatus::kOtherError;
  }
}

PortResult Failure(DWORD code) { return {StatusOf(code), static_cast<int>(code)}; }

void SetLine(DCB& line) {
  line.DCBlength = sizeof line;
  line.BaudRate = CBR_9600;
  line.ByteSize = 8;
  line.Parity = NOPARITY;
  line.StopBits = TWOSTOPBITS;
  line.fBinary = TRUE;
  line.fParity = FALSE;
  line.fOutxCtsFlow = FALSE;
  line.fOutxDsrFlow = FALSE;
  line.fDsrSensitivity = FALSE;
  line.fOutX = FALSE;
  line.fInX = FALSE;
  line.fNull = FALSE;
  line.fErrorChar = FALSE;
  line.fAbortOnError = FALSE;
  line.fDtrControl = DTR_CONTROL_ENABLE;
  line.fRtsControl = RTS_CONTROL_ENABLE;
}

// A read returns at once with what is there.
COMMTIMEOUTS NonWaitingReads() {
  COMMTIMEOUTS timeouts{};
  timeouts.ReadIntervalTimeout = MAXDWORD;
  return timeouts;
}

// From 10 on a port has no name among the files.
std::string DevicePath(const std::string& device) {
  constexpr std::size_t kShortName = sizeof "COM9" - 1;
  std::string start = device.substr(0, sizeof "COM" - 1);
  std::transform(start.begin(), start.end(), start.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::toupper(letter)); });
  const bool is_port = start == "COM" && device.size() > kShortName;
  return is_port ? R"(\\.\)" + device : device;
}

class Win32SerialPort final : public SerialPort {
 public:
  Win32SerialPort() : done_(CreateEventA(nullptr, TRUE, FALSE, nullptr)) {}
  ~Win32SerialPort() override {
    ClosePort();
    CloseHandle(done_);
  }

  PortResult Open(const std::string& device) override {
    ClosePort();
    handle_ = CreateFileA(DevicePath(device).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                          OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr);
    if (handle_ == INVALID_HANDLE_VALUE) {
      return Failure(GetLastError());
    }
    SetupComm(handle_, kQueueSize, kQueueSize);
    DCB line{};
    COMMTIMEOUTS timeouts = NonWaitingReads();
    GetCommState(handle_, &line);
    SetLine(line);
    // A device that refuses its settings stays open on purpose.
    SetCommState(handle_, &line);
    SetCommTimeouts(handle_, &timeouts);
    kept_errors_ = 0;
    if (!SetCommMask(handle_, EV_RXCHAR)) {
      ShowMessage("ERROR", "Comm Error", Buttons::kOk, Icon::kNone);
    }
    return {PortStatus::kOpen, 0};
  }

  void Close() override { ClosePort(); }

  bool IsOpen() const override { return handle_ != INVALID_HANDLE_VALUE; }

  // Asks for what is there and no more: beside a wait for events, Wine keeps a read of an empty
  // queue waiting. Until the read is over the driver writes into the caller's buffer.
  std::optional<std::size_t> Read(std::span<std::uint8_t> buffer) override {
    COMSTAT status{};
    if (!AskStatus(status)) {
      line_ = {};
      return std::nullopt;
    }
    const auto size = static_cast<DWORD>(std::min<std::size_t>(buffer.size(), status.cbInQue));
    if (size == 0) {
      return 0;
    }
    OVERLAPPED operation = NewOperation();
    if (!ReadFile(handle_, buffer.data(), size, nullptr, &operation) &&
        GetLastError() != ERROR_IO_PENDING) {
      return std::nullopt;
    }
    if (WaitForSingleObject(done_, kPatience) != WAIT_OBJECT_0) {
      CancelIoEx(handle_, &operation);
    }
    DWORD count = 0;
    if (!GetOverlappedResult(handle_, &operation, &count, TRUE) &&
        GetLastError() != ERROR_OPERATION_ABORTED) {
      return std::nullopt;
    }
    line_.CameBack(count);
    return count;
  }

  std::size_t Write(std::span<const std::uint8_t> bytes) override {
    if (!IsOpen() || !write_.IsOver(handle_, kPatience)) {
      return 0;
    }
    const std::size_t taken = write_.Start(handle_, bytes);
    line_.Sent(taken);
    return taken;
  }

  // A driver that knows no byte ahead of its queue gets it through the queue, which is empty when
  // an exchange sends one.
  void SendByte(std::uint8_t byte) override {
    if (TransmitCommChar(handle_, static_cast<char>(byte))) {
      line_.Sent(1);
    } else {
      Write(std::span(&byte, 1));
    }
  }

  unsigned LineErrors() override {
    Status();
    const DWORD errors = kept_errors_;
    kept_errors_ = 0;
    return errors;
  }

  void Purge(Queues queues) override {
    DWORD what = 0;
    if (queues != Queues::kReceive) {
      what |= PURGE_TXABORT | PURGE_TXCLEAR;
    }
    if (queues != Queues::kTransmit) {
      what |= PURGE_RXABORT | PURGE_RXCLEAR;
    }
    receive_wait_.NotePurge();
    PurgeComm(handle_, what);
  }

  void RestartEvents() override {
    DWORD mask = 0;
    GetCommMask(handle_, &mask);
    SetCommMask(handle_,
                EV_BREAK | EV_CTS | EV_DSR | EV_ERR | EV_RING | EV_RLSD | EV_RXFLAG | EV_TXEMPTY);
  }

  void* ArmReceiveEvent() override { return IsOpen() ? receive_wait_.Arm(handle_) : nullptr; }

  // A port that does not answer is no reason to wait: a read will say so.
  bool WaitForInput(std::size_t bytes, int milliseconds) override {
    const Clock::time_point limit = Clock::now() + std::chrono::milliseconds(milliseconds);
    for (;;) {
      const HANDLE event = receive_wait_.Arm(handle_);
      COMSTAT status{};
      if (!AskStatus(status) || status.cbInQue >= bytes) {
        return true;
      }
      if (Clock::now() >= limit) {
        return status.cbInQue > 0;
      }
      if (event != nullptr) {
        WaitForSingleObject(event, MillisecondsUntil(limit));
      } else {
        LookAgainLater();
      }
    }
  }

 private:
  using Clock = LineClock::Clock;

  static DWORD MillisecondsUntil(Clock::time_point moment) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(moment - Clock::now()).count();
    return static_cast<DWORD>(std::max<std::int64_t>(left, 0));
  }

  // Without an event: the system's timer is too coarse for the moment at which the last byte that
  // was sent comes back, so that around this moment nobody sleeps.
  void LookAgainLater() const {
    constexpr std::chrono::milliseconds kBefore(4);
    constexpr std::chrono::milliseconds kAfter(2);
    const Clock::time_point now = Clock::now();
    const bool due = now + kBefore >= line_.IdleAt() && now < line_.IdleAt() + kAfter;
    Sleep(due ? 0 : 1);
  }

  OVERLAPPED NewOperation() {
    ResetEvent(done_);
    OVERLAPPED operation{};
    operation.hEvent = done_;
    return operation;
  }

  // The queues' state. Asking clears the driver's line errors, so they are kept for LineErrors.
  bool AskStatus(COMSTAT& status) {
    DWORD errors = 0;
    const bool answered = ClearCommError(handle_, &errors, &status) != FALSE;
    kept_errors_ |= errors;
    return answered;
  }

  COMSTAT Status() {
    COMSTAT status{};
    AskStatus(status);
    return status;
  }

  std::size_t QueuedBytes() {
    const COMSTAT status = Status();
    return status.cbOutQue + status.fTxim;
  }

  // The driver tells when its transmitter has become empty, unless it was so before it was asked.
  void WaitForEmptyTransmitter() {
    constexpr std::chrono::milliseconds kGrace(50);
    OVERLAPPED operation = NewOperation();
    DWORD events = 0;
    if (!SetCommMask(handle_, EV_TXEMPTY) ||
        (!WaitCommEvent(handle_, &events, &operation) && GetLastError() != ERROR_IO_PENDING)) {
      return;
    }
    WaitForSingleObject(done_, MillisecondsUntil(line_.IdleAt() + kGrace));
    SetCommMask(handle_, 0);
    CancelIoEx(handle_, &operation);
    DWORD ignored = 0;
    GetOverlappedResult(handle_, &operation, &ignored, TRUE);
  }

  bool IsLineIdle() {
    line_.Queued(QueuedBytes());
    return line_.IsIdle();
  }

  // Some cables live on the lines that are dropped next.
  void WaitUntilSent() {
    const Clock::time_point limit = Clock::now() + kLongestDrain;
    if (!IsLineIdle()) {
      WaitForEmptyTransmitter();
    }
    while (!IsLineIdle() && Clock::now() < limit) {
      Sleep(1);
    }
  }

  void ClosePort() {
    if (handle_ == INVALID_HANDLE_VALUE) {
      return;
    }
    receive_wait_.End(handle_);
    WaitUntilSent();
    write_.Abandon(handle_);
    DCB line{};
    line.DCBlength = sizeof line;
    GetCommState(handle_, &line);
    line.fDtrControl = DTR_CONTROL_DISABLE;
    line.fRtsControl = RTS_CONTROL_DISABLE;
    SetCommState(handle_, &line);
    CloseHandle(handle_);
    handle_ = INVALID_HANDLE_VALUE;
    line_ = {};
  }

  HANDLE handle_ = INVALID_HANDLE_VALUE;
  HANDLE done_;
  ReceiveWait receive_wait_;
  PendingWrite write_;
  LineClock line_;
  DWORD kept_errors_ = 0;
};

}  // namespace

std::unique_ptr<SerialPort> MakeSerialPort() { return std::make_unique<Win32SerialPort>(); }

}  // namespace qz7
