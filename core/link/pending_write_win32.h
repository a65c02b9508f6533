#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace qz7 {

// A write that the driver has in hand. It reads the bytes from here until it is over, which may be
// at once or when the last of them has left the wire.
class PendingWrite {
 public:
  PendingWrite();
  PendingWrite(const PendingWrite&) = delete;
  PendingWrite& operator=(const PendingWrite&) = delete;
  ~PendingWrite();

  // Starts one when there is none. Returns how many of the bytes the driver has taken: what a
  // driver that is done at once says, all of them when it goes on.
  std::size_t Start(HANDLE port, std::span<const std::uint8_t> bytes);
  // Waits at most so long. What a driver has left over of a write is written too.
  bool IsOver(HANDLE port, DWORD milliseconds);
  // Takes it back from the driver.
  void Abandon(HANDLE port);

 private:
  bool Issue(HANDLE port);
  bool IsSignalled(DWORD milliseconds) const;

  OVERLAPPED operation_{};
  std::vector<std::uint8_t> bytes_;
  std::span<const std::uint8_t> left_;
  HANDLE done_;
  bool pending_ = false;
};

}  // namespace qz7
