#pragma once

#include <chrono>
#include <string>

#include "core/link/exchange.h"

namespace qz7 {

// Notices that an exchange has waited ten seconds for one thing and heard nothing.
class Silence {
 public:
  // What to tell the user now; empty for nothing. `awaited` is what the exchange waits for: "the
  // radio's answer", empty for nothing.
  std::string Note(const Exchange& exchange, const std::string& awaited) {
    if (exchange.heard != heard_ || awaited != awaited_) {
      heard_ = exchange.heard;
      awaited_ = awaited;
      since_ = Clock::now();
    }
    const bool long_enough = Clock::now() - since_ >= kLongest;
    return long_enough && !awaited.empty() ? "Still waiting for " + awaited + "." : "";
  }

 private:
  using Clock = std::chrono::steady_clock;
  static constexpr std::chrono::seconds kLongest{10};

  std::size_t heard_ = 0;
  std::string awaited_;
  Clock::time_point since_ = Clock::now();
};

}  // namespace qz7
