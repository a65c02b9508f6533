#include "core/link/progress_meter.h"

#include <algorithm>

namespace qz7 {

void BeginProgress(ProgressMeter& meter, int total, int client_width, int client_height) {
  constexpr int kFrame = 2;  // both sides together
  meter = ProgressMeter{};
  meter.total = total;
  meter.inner_width = std::max(client_width - kFrame, 0);
  meter.inner_height = std::max(client_height - kFrame, 0);
}

bool SetProgress(ProgressMeter& meter, int count) {
  const int percent = std::min((count * 1000 / meter.total + 5) / 10, 100);
  const int filled = (meter.inner_width * percent + 50) / 100;
  const bool changed = percent != meter.percent || filled != meter.filled_width;
  meter.count = count;
  meter.percent = percent;
  meter.filled_width = filled;
  return changed;
}

std::string ProgressText(const ProgressMeter& meter) { return std::to_string(meter.percent) + "%"; }

}  // namespace qz7
