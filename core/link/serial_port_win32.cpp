#include <windows.h>

#include <algorithm>
#include <string>

#include "core/files/seams.h"
#include "core/link/serial_port.h"

namespace qz7 {
namespace {

constexpr DWORD kQueueSize = 2048;
constexpr DWORD kLongestWriteMilliseconds = 1000;

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

// Waits for received bytes without a thread: the event is signalled when some have come.
class ReceiveWait {
 public:
  ReceiveWait() { operation_.hEvent = CreateEventA(nullptr, TRUE, FALSE, nullptr); }
  ReceiveWait(const ReceiveWait&) = delete;
  ReceiveWait& operator=(const ReceiveWait&) = delete;
  ~ReceiveWait() { CloseHandle(operation_.hEvent); }

  // Null once the port has refused. A pseudo-terminal under Wine ends the wait at once with an
  // error.
  HANDLE Arm(HANDLE port) {
    if (waiting_ && !IsDone(port)) {
      return operation_.hEvent;
    }
    if (refused_) {
      return nullptr;
    }
    ResetEvent(operation_.hEvent);
    // The start of an exchange takes received bytes out of the events. A mask that is right is left
    // alone: setting it forgets what has come since.
    DWORD mask = 0;
    waiting_ = GetCommMask(port, &mask) && (mask == EV_RXCHAR || SetCommMask(port, EV_RXCHAR)) &&
               (WaitCommEvent(port, &events_, &operation_) || GetLastError() == ERROR_IO_PENDING);
    refused_ = !waiting_;
    return waiting_ ? operation_.hEvent : nullptr;
  }

  // The system writes into this object until the wait is over.
  void End(HANDLE port) {
    DWORD ignored = 0;
    if (waiting_) {
      SetCommMask(port, 0);
      CancelIo(port);
      GetOverlappedResult(port, &operation_, &ignored, TRUE);
    }
    waiting_ = false;
    refused_ = false;
  }

 private:
  bool IsDone(HANDLE port) {
    DWORD ignored = 0;
    if (WaitForSingleObject(operation_.hEvent, 0) != WAIT_OBJECT_0) {
      return false;
    }
    waiting_ = false;
    refused_ = !GetOverlappedResult(port, &operation_, &ignored, FALSE);
    return true;
  }

  OVERLAPPED operation_{};
  DWORD events_ = 0;
  bool waiting_ = false;
  bool refused_ = false;
};

class Win32SerialPort final : public SerialPort {
 public:
  Win32SerialPort() : done_(CreateEventA(nullptr, TRUE, FALSE, nullptr)) {}
  ~Win32SerialPort() override {
    ClosePort();
    CloseHandle(done_);
  }

  PortResult Open(const std::string& device) override {
    ClosePort();
    handle_ = CreateFileA(device.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                          FILE_FLAG_OVERLAPPED, nullptr);
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
  // queue waiting.
  std::optional<std::size_t> Read(std::span<std::uint8_t> buffer) override {
    COMSTAT status{};
    if (!AskStatus(status)) {
      return std::nullopt;
    }
    const auto size = static_cast<DWORD>(std::min<std::size_t>(buffer.size(), status.cbInQue));
    if (size == 0) {
      return 0;
    }
    OVERLAPPED operation = NewOperation();
    DWORD count = 0;
    if (!ReadFile(handle_, buffer.data(), size, nullptr, &operation) &&
        GetLastError() != ERROR_IO_PENDING) {
      return std::nullopt;
    }
    if (!GetOverlappedResult(handle_, &operation, &count, TRUE)) {
      return std::nullopt;
    }
    return count;
  }

  std::size_t Write(std::span<const std::uint8_t> bytes) override {
    OVERLAPPED operation = NewOperation();
    DWORD count = 0;
    if (!WriteFile(handle_, bytes.data(), static_cast<DWORD>(bytes.size()), nullptr, &operation) &&
        GetLastError() != ERROR_IO_PENDING) {
      return 0;
    }
    if (WaitForSingleObject(done_, kLongestWriteMilliseconds) != WAIT_OBJECT_0) {
      CancelIo(handle_);
    }
    GetOverlappedResult(handle_, &operation, &count, TRUE);
    return count;
  }

  void SendByte(std::uint8_t byte) override { TransmitCommChar(handle_, static_cast<char>(byte)); }

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
    PurgeComm(handle_, what);
  }

  void RestartEvents() override {
    DWORD mask = 0;
    GetCommMask(handle_, &mask);
    SetCommMask(handle_,
                EV_BREAK | EV_CTS | EV_DSR | EV_ERR | EV_RING | EV_RLSD | EV_RXFLAG | EV_TXEMPTY);
  }

  std::size_t UnsentBytes() override { return Status().cbOutQue; }

  void* ArmReceiveEvent() override { return IsOpen() ? receive_wait_.Arm(handle_) : nullptr; }

  // The console program has nothing else to wait for: it looks again each millisecond.
  bool WaitForInput(std::size_t bytes, int milliseconds) override {
    for (int waited = 0; waited < milliseconds && Status().cbInQue < bytes; ++waited) {
      Sleep(1);
    }
    return Status().cbInQue > 0;
  }

 private:
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

  void ClosePort() {
    if (handle_ == INVALID_HANDLE_VALUE) {
      return;
    }
    receive_wait_.End(handle_);
    DCB line{};
    line.DCBlength = sizeof line;
    GetCommState(handle_, &line);
    line.fDtrControl = DTR_CONTROL_DISABLE;
    line.fRtsControl = RTS_CONTROL_DISABLE;
    SetCommState(handle_, &line);
    CloseHandle(handle_);
    handle_ = INVALID_HANDLE_VALUE;
  }

  HANDLE handle_ = INVALID_HANDLE_VALUE;
  HANDLE done_;
  ReceiveWait receive_wait_;
  DWORD kept_errors_ = 0;
};

}  // namespace

std::unique_ptr<SerialPort> MakeSerialPort() { return std::make_unique<Win32SerialPort>(); }

std::vector<PortInfo> ListSerialPorts() {
  constexpr int kHighestPort = 9;
  std::vector<PortInfo> ports;
  for (int n = 1; n <= kHighestPort; ++n) {
    const std::string name = "COM" + std::to_string(n);
    char target[MAX_PATH] = "";
    if (QueryDosDeviceA(name.c_str(), target, MAX_PATH) == 0) {
      continue;
    }
    ports.push_back({name, target, MakeSerialPort()->Open(name).status});
  }
  return ports;
}

}  // namespace qz7
