#pragma once

#include <string>

namespace qz7 {

// The numbers behind a progress meter.
struct ProgressMeter {
  int total = 0;    // the count that is 100 %
  int count = 0;    // may exceed the total
  int percent = 0;  // 0..100
};

void SetProgress(ProgressMeter& meter, int count);
// "50%"
std::string ProgressText(const ProgressMeter& meter);

}  // namespace qz7
