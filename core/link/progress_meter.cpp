#include "core/link/progress_meter.h"

#include <algorithm>

namespace qz7 {

void SetProgress(ProgressMeter& meter, int count) {
  meter.count = count;
  meter.percent = std::min((count * 1000 / meter.total + 5) / 10, 100);
}

std::string ProgressText(const ProgressMeter& meter) { return std::to_string(meter.percent) + "%"; }

}  // namespace qz7
