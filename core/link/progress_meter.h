#pragma once

#include <string>

namespace qz7 {

// The numbers behind the progress meter: a frame one pixel wide around a bar that is two pixels
// smaller than the control in each direction.
struct ProgressMeter {
  int total = 0;  // the count that is 100 %
  int count = 0;
  int percent = 0;
  int inner_width = 0;  // pixels
  int inner_height = 0;
  int filled_width = 0;
};

// Starts at 0 % for a control whose client area has this size in pixels.
void BeginProgress(ProgressMeter& meter, int total, int client_width, int client_height);
// True when the percent or the bar changed, that is, when the meter is to be painted again. More
// than the total counts as 100 %.
bool SetProgress(ProgressMeter& meter, int count);
// "50%"
std::string ProgressText(const ProgressMeter& meter);

}  // namespace qz7
