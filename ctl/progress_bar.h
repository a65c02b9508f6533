#pragma once

#include <chrono>
#include <string>

#include "core/link/progress_meter.h"

namespace qz7 {

// The progress of an exchange on standard error: one line that rewrites itself on a terminal, a
// line every 10 % elsewhere.
class ProgressBar {
 public:
  explicit ProgressBar(bool on_terminal);
  // Writes when the percent is another one.
  void Show(const ProgressMeter& meter);
  // Ends the line of a terminal, so that what follows starts a new one.
  void Finish();

 private:
  bool on_terminal_;
  bool line_open_ = false;
  int shown_percent_ = 0;
  int shown_tenths_ = -1;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

// "[#########----------]  45%  3655 of 8122 bytes  4.2 s"
std::string ProgressLine(const ProgressMeter& meter, double seconds);

}  // namespace qz7
