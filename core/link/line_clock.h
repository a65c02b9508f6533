#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>

namespace qz7 {

// What a byte takes on the wire: 11 bits at 9600 baud.
inline constexpr std::chrono::nanoseconds kByteTime(1'145'833);

// Knows by the clock when everything that was handed to the system has left the wire.
class LineClock {
 public:
  using Clock = std::chrono::steady_clock;

  void Sent(std::size_t count) {
    outstanding_ += count;
    idle_at_ = Clock::now() + TimeOf(outstanding_) + kAdapterTime;
  }

  // The cable brings every byte back, so that what comes after a byte was sent is first of all its
  // echo.
  void CameBack(std::size_t count) {
    outstanding_ -= std::min(count, outstanding_);
    if (outstanding_ == 0) {
      idle_at_ = {};
    }
  }

  // So many bytes are still in the system's own queue.
  void Queued(std::size_t count) {
    if (count > 0) {
      idle_at_ = std::max(idle_at_, Clock::now() + TimeOf(count) + kAdapterTime);
    }
  }

  bool IsIdle() const { return Clock::now() >= idle_at_; }
  Clock::time_point IdleAt() const { return idle_at_; }

  static Clock::duration TimeOf(std::size_t bytes) {
    return static_cast<Clock::rep>(bytes) * kByteTime;
  }

 private:
  // A USB adapter gets its bytes a frame later.
  static constexpr std::chrono::milliseconds kAdapterTime{2};

  std::size_t outstanding_ = 0;
  Clock::time_point idle_at_{};
};

// How long a port waits at most for its last byte before it is closed.
inline constexpr std::chrono::seconds kLongestDrain(1);

}  // namespace qz7
