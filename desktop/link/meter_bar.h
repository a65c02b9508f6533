#pragma once

namespace qz7 {

// What a meter shows: a bar inside a frame one pixel wide, and the percent. It is painted again
// only when one of the two is another.
struct MeterBar {
  int percent = 0;
  int filled_width = 0;  // pixels
  bool operator==(const MeterBar&) const = default;
};

// What the frame leaves of a control's width or height, in pixels.
constexpr int InsideMeterFrame(int client_size) {
  constexpr int kFrame = 2;  // both sides together
  return client_size > kFrame ? client_size - kFrame : 0;
}

constexpr MeterBar MeterBarOf(int percent, int inner_width) {
  return {.percent = percent, .filled_width = (inner_width * percent + 50) / 100};
}

}  // namespace qz7
