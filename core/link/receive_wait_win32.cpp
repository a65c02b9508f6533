#include "core/link/receive_wait_win32.h"

#include <array>
#include <string>

namespace qz7 {
namespace {

constexpr UINT kFinestStepMilliseconds = 1;

// By its full path, so that no other folder is looked into; a program that never waits starts
// without it. It stays for as long as the program runs.
HMODULE TimerLibrary() {
  static const HMODULE library = [] {
    std::array<char, MAX_PATH> folder{};
    GetSystemDirectoryA(folder.data(), static_cast<UINT>(folder.size()));
    return LoadLibraryA((std::string(folder.data()) + "\\winmm.dll").c_str());
  }();
  return library;
}

void CallTimer(const char* function) {
  const HMODULE library = TimerLibrary();
  if (library == nullptr) {
    return;
  }
  using Function = UINT(WINAPI*)(UINT);
  // NOLINTNEXTLINE(bugprone-casting-through-void): what the system returns has no type
  const auto call =
      reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, function)));
  if (call != nullptr) {
    call(kFinestStepMilliseconds);
  }
}

}  // namespace

ReceiveWait::ReceiveWait() { operation_.hEvent = CreateEventA(nullptr, TRUE, FALSE, nullptr); }

ReceiveWait::~ReceiveWait() { CloseHandle(operation_.hEvent); }

HANDLE ReceiveWait::Arm(HANDLE port) {
  if (waiting_ && IsPending(port)) {
    return operation_.hEvent;
  }
  if (refused_) {
    return nullptr;
  }
  // Before the wait: Wine waits in a thread of its own, and loads no library safely while that
  // ends.
  TimerLibrary();
  ResetEvent(operation_.hEvent);
  purged_ = false;
  // The start of an exchange takes received bytes out of the events. A mask that is right is left
  // alone: setting it forgets what has come since.
  DWORD mask = 0;
  waiting_ = GetCommMask(port, &mask) && (mask == EV_RXCHAR || SetCommMask(port, EV_RXCHAR)) &&
             (WaitCommEvent(port, &events_, &operation_) || GetLastError() == ERROR_IO_PENDING);
  if (!waiting_) {
    Refuse();
  }
  return waiting_ ? operation_.hEvent : nullptr;
}

void ReceiveWait::End(HANDLE port) {
  DWORD ignored = 0;
  if (waiting_) {
    SetCommMask(port, 0);
    CancelIoEx(port, &operation_);
    GetOverlappedResult(port, &operation_, &ignored, TRUE);
  }
  if (refused_) {
    CallTimer("timeEndPeriod");
  }
  waiting_ = false;
  refused_ = false;
}

// An ended wait is taken: it waits no more, and may have been refused.
bool ReceiveWait::IsPending(HANDLE port) {
  DWORD ignored = 0;
  if (WaitForSingleObject(operation_.hEvent, 0) != WAIT_OBJECT_0) {
    return true;
  }
  waiting_ = false;
  if (!GetOverlappedResult(port, &operation_, &ignored, FALSE) && !purged_) {
    Refuse();
  }
  return false;
}

void ReceiveWait::Refuse() {
  refused_ = true;
  CallTimer("timeBeginPeriod");
}

}  // namespace qz7
