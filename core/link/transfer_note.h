#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "core/link/progress_meter.h"

namespace qz7 {

// How long the rest of a transfer takes at its pace so far, in seconds, rounded up: 0 when all is
// done, nothing while the pace is not known.
std::optional<int> SecondsLeft(int done, int total, int elapsed_milliseconds);

// "4061 of 8122 bytes, about 5 seconds left"
std::string TransferText(const ProgressMeter& meter, std::optional<int> seconds_left);

// Follows a meter by the clock.
class TransferPace {
 public:
  // To be asked at every step: the time counts from the last one at which nothing had come. What is
  // left grows again only by two seconds or more, so that it does not go to and fro.
  std::optional<int> SecondsLeft(const ProgressMeter& meter);

 private:
  using Clock = std::chrono::steady_clock;

  Clock::time_point begun_ = Clock::now();
  int count_ = 0;
  std::optional<int> left_;
};

}  // namespace qz7
