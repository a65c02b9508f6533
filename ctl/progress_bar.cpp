#include "ctl/progress_bar.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iostream>

namespace qz7 {

std::string ProgressLine(const ProgressMeter& meter, double seconds) {
  constexpr int kWidth = 40;
  const auto filled = static_cast<std::size_t>(kWidth * meter.percent / 100);
  const std::string bar = std::string(filled, '#') + std::string(kWidth - filled, '-');
  std::array<char, 120> line;
  std::snprintf(line.data(), line.size(), "[%s] %3d%%  %d of %d bytes  %.1f s", bar.c_str(),
                meter.percent, std::min(meter.count, meter.total), meter.total, seconds);
  return line.data();
}

ProgressBar::ProgressBar(bool on_terminal) : on_terminal_(on_terminal) {}

void ProgressBar::Show(const ProgressMeter& meter) {
  if (meter.percent == shown_percent_) {
    return;
  }
  shown_percent_ = meter.percent;
  const std::chrono::duration<double> since = std::chrono::steady_clock::now() - start_;
  if (on_terminal_) {
    std::cerr << '\r' << ProgressLine(meter, since.count()) << std::flush;
    line_open_ = true;
    return;
  }
  while (shown_tenths_ < meter.percent / 10) {
    ++shown_tenths_;
    std::cerr << shown_tenths_ * 10 << " %\n" << std::flush;
  }
}

void ProgressBar::Finish() {
  if (line_open_) {
    std::cerr << '\n' << std::flush;
  }
  line_open_ = false;
}

}  // namespace qz7
