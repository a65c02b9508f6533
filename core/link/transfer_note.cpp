#include "core/link/transfer_note.h"

#include <algorithm>
#include <cstdint>

namespace qz7 {

std::optional<int> SecondsLeft(int done, int total, int elapsed_milliseconds) {
  // The first bytes of a transfer wait for the radio's answers.
  constexpr int kSoonest = 1'000;
  if (done >= total) {
    return 0;
  }
  if (done <= 0 || elapsed_milliseconds < kSoonest) {
    return std::nullopt;
  }
  const std::int64_t done_milliseconds = std::int64_t{done} * 1'000;
  const std::int64_t rest = std::int64_t{total - done} * elapsed_milliseconds;
  const std::int64_t seconds = (rest + done_milliseconds - 1) / done_milliseconds;
  constexpr std::int64_t kLongest = 24 * 60 * 60;
  return static_cast<int>(std::min(seconds, kLongest));
}

std::string TransferText(const ProgressMeter& meter, std::optional<int> seconds_left) {
  const std::string bytes = std::to_string(std::min(meter.count, meter.total)) + " of " +
                            std::to_string(meter.total) + " bytes";
  if (seconds_left.value_or(0) == 0) {
    return bytes;
  }
  return bytes + ", about " + std::to_string(*seconds_left) +
         (*seconds_left == 1 ? " second left" : " seconds left");
}

std::optional<int> TransferPace::SecondsLeft(const ProgressMeter& meter) {
  const Clock::time_point now = Clock::now();
  if (meter.count <= 0) {
    begun_ = now;
    left_.reset();
  } else if (meter.count != count_) {
    const auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(now - begun_);
    const auto left = qz7::SecondsLeft(meter.count, meter.total, static_cast<int>(elapsed.count()));
    const bool wavers = left_ && left && *left == *left_ + 1;
    left_ = wavers ? left_ : left;
  }
  count_ = meter.count;
  return left_;
}

}  // namespace qz7
