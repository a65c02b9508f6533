#pragma once

#include <windows.h>

namespace qz7 {

// Waits for received bytes without a thread: the event is signalled when some have come. A driver
// that ends the wait with an error has refused it and is not asked again; then the system's timer,
// which is all that is left, is made as fine as it can be.
class ReceiveWait {
 public:
  ReceiveWait();
  ReceiveWait(const ReceiveWait&) = delete;
  ReceiveWait& operator=(const ReceiveWait&) = delete;
  ~ReceiveWait();

  // Null once the port has refused.
  HANDLE Arm(HANDLE port);
  // Some drivers end the wait too when the queues are emptied; that is no refusal.
  void NotePurge() { purged_ = true; }
  // The system writes into this object until the wait is over.
  void End(HANDLE port);

 private:
  bool IsPending(HANDLE port);
  void Refuse();

  OVERLAPPED operation_{};
  DWORD events_ = 0;
  bool waiting_ = false;
  bool purged_ = false;
  bool refused_ = false;
};

}  // namespace qz7
