#include "core/link/pending_write_win32.h"

namespace qz7 {

PendingWrite::PendingWrite() : done_(CreateEventA(nullptr, TRUE, FALSE, nullptr)) {}

PendingWrite::~PendingWrite() { CloseHandle(done_); }

std::size_t PendingWrite::Start(HANDLE port, std::span<const std::uint8_t> bytes) {
  bytes_.assign(bytes.begin(), bytes.end());
  left_ = bytes_;
  pending_ = Issue(port);
  if (!pending_ || !IsSignalled(0)) {
    return pending_ ? bytes.size() : 0;
  }
  DWORD count = 0;
  pending_ = false;
  return GetOverlappedResult(port, &operation_, &count, FALSE) ? count : 0;
}

bool PendingWrite::IsOver(HANDLE port, DWORD milliseconds) {
  while (pending_ && IsSignalled(milliseconds)) {
    DWORD count = 0;
    const bool done = GetOverlappedResult(port, &operation_, &count, FALSE) != FALSE;
    left_ = left_.subspan(count);
    pending_ = done && count > 0 && !left_.empty() && Issue(port);
  }
  return !pending_;
}

void PendingWrite::Abandon(HANDLE port) {
  DWORD ignored = 0;
  if (pending_) {
    CancelIoEx(port, &operation_);
    GetOverlappedResult(port, &operation_, &ignored, TRUE);
  }
  pending_ = false;
}

bool PendingWrite::Issue(HANDLE port) {
  ResetEvent(done_);
  operation_ = {};
  operation_.hEvent = done_;
  return WriteFile(port, left_.data(), static_cast<DWORD>(left_.size()), nullptr, &operation_) ||
         GetLastError() == ERROR_IO_PENDING;
}

bool PendingWrite::IsSignalled(DWORD milliseconds) const {
  return WaitForSingleObject(done_, milliseconds) == WAIT_OBJECT_0;
}

}  // namespace qz7
