#pragma once

#include <algorithm>
#include <chrono>

#include "core/link/exchange.h"

namespace qz7 {

// Makes an exchange's 10 ms ticks of the clock, however coarse the system's timer is: whoever
// drives an exchange asks at each turn how many are due. What has come starts the count anew, and
// so does an answer of the user.
class TickClock {
 public:
  using Clock = std::chrono::steady_clock;

  void Restart() { counted_to_ = Clock::now(); }

  // To be called after every step.
  void Follow(const Exchange& exchange) {
    if (exchange.heard != heard_) {
      heard_ = exchange.heard;
      Restart();
    }
  }

  int Due() {
    const auto due = (Clock::now() - counted_to_) / kTick;
    counted_to_ += due * kTick;
    // Who was kept from running for longer could not hear either: a busy machine is no silence.
    return static_cast<int>(std::min<Clock::rep>(due, kMostTicks));
  }

  int MillisecondsToNext() const {
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(counted_to_ + kTick - Clock::now());
    return static_cast<int>(std::max<std::chrono::milliseconds::rep>(left.count(), 0));
  }

 private:
  static constexpr std::chrono::milliseconds kTick{kTickMilliseconds};
  static constexpr Clock::rep kMostTicks = 3;

  Clock::time_point counted_to_ = Clock::now();
  std::size_t heard_ = 0;
};

}  // namespace qz7
