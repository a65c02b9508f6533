#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "core/link/progress_meter.h"
#include "core/link/serial_port.h"

namespace qz7 {

// What the two clone exchanges share. An exchange is a plain struct that its driver (a dialog, the
// console program, a test) owns: the driver calls the exchange's Tick on every 10 ms tick while
// `polling` is set and its Step whenever bytes have come, each until a step finds nothing to do.
// Once `ended` has a value the exchange is over: 0 is success, -1 anything else.

inline constexpr int kTickMilliseconds = 10;
inline constexpr std::size_t kCloneHeaderSize = 10;
inline constexpr std::size_t kCloneBlockSize = 16;
inline constexpr int kCloneBlockCount = 507;
inline constexpr std::size_t kCloneSize = 8122;
static_assert(kCloneHeaderSize + kCloneBlockSize * kCloneBlockCount == kCloneSize);

// The client area of the meter's control in pixels; without a control the percent alone counts.
struct MeterSize {
  int width = 0;
  int height = 0;
};

struct Exchange {
  std::span<std::uint8_t> block;  // the radio block, kCloneSize bytes
  bool polling = false;           // the 10 ms timer runs
  ProgressMeter meter;
  bool meter_changed = false;  // for the driver to paint and to clear
  std::optional<int> ended;
};

// The low 8 bits of the sum of the block's bytes.
std::uint8_t CloneChecksum(std::span<const std::uint8_t> block);

// Empties both queues, starts the timer, sets the meter to 0: at the start and after each Retry.
void RestartExchange(Exchange& exchange, SerialPort& port);

// Stops the timer and shows the message, caption "Communications Error", with Retry and Cancel or
// with OK alone. True only for Retry.
bool LinkErrorRetry(Exchange& exchange, const char* message);
void LinkErrorOk(Exchange& exchange, const char* message);

void ShowExchangeProgress(Exchange& exchange, int count);
void EndExchange(Exchange& exchange, int result);

}  // namespace qz7
