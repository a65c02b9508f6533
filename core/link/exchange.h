#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>

#include "core/files/seams.h"
#include "core/image/clone_image.h"
#include "core/link/progress_meter.h"
#include "core/link/serial_port.h"

namespace qz7 {

// What the two clone exchanges share. An exchange is a plain struct that its driver (a dialog, the
// console program, a test) owns: the driver calls the exchange's Tick on every 10 ms tick and its
// Notify whenever bytes have come. When that has left a question, the driver shows it and hands the
// answer over; until then nothing more is done, whatever comes. Once `ended` has a value the
// exchange is over: 0 is success, -1 anything else.

inline constexpr int kTickMilliseconds = 10;
// The radio block crosses the line as a header, then in blocks.
inline constexpr std::size_t kCloneHeaderSize = 10;
inline constexpr std::size_t kCloneBlockSize = 16;
inline constexpr int kCloneBlockCount = (kRadioBlock.size - kCloneHeaderSize) / kCloneBlockSize;
static_assert(kCloneHeaderSize + kCloneBlockSize * kCloneBlockCount == kRadioBlock.size);

enum class LinkError {
  kFailedRead,
  kAcknowledge,
  kReceiveTimeout,
  kChecksum,
  kBadReceiveData,
  kNoResponse
};

// A message box that an exchange waits for, as the driver shows it. kFailedRead is no decision: the
// exchange goes on after it. After another one it ends, goes on or waits, as the answer says.
struct LinkQuestion {
  LinkError error;
  const char* text;
  const char* caption;
  Buttons buttons;
};

struct Exchange {
  std::span<std::uint8_t> block;  // the radio block, whole
  bool polling = false;           // the 10 ms timer is wanted
  ProgressMeter meter;
  std::size_t heard = 0;     // bytes that have come, echoes included
  bool read_failed = false;  // the last read did
  std::optional<std::chrono::steady_clock::time_point> turn_end;  // nothing: no end
  std::optional<LinkQuestion> question;
  std::optional<int> ended;
};

// The part of the image that the radio sends and takes.
std::span<std::uint8_t> RadioBlockOf(CloneImage& image);

// The low 8 bits of the sum of the block's bytes.
std::uint8_t CloneChecksum(std::span<const std::uint8_t> block);

// Whether ticks and notifications do anything now.
bool IsRunning(const Exchange& exchange, const SerialPort& port);

// A program gives an exchange turns of 20 ms, and hears its user between them: over a driver that
// is as slow as the line there is always a next byte. What a turn leaves is found by the next.
void BeginTurn(Exchange& exchange);
bool HasTurn(const Exchange& exchange);

// Empties both queues, starts the timer, sets the meter to 0: at the start and after each Retry.
void RestartExchange(Exchange& exchange, SerialPort& port);

// Reads what has arrived, at most the buffer's size. A read that fails is told, counts as no byte,
// and the exchange goes on. When the read after it fails too, the port is lost: nothing more is
// told or done, and only Cancel follows.
std::size_t ReadArrived(Exchange& exchange, SerialPort& port, std::span<std::uint8_t> buffer);

// Each stops the timer and leaves a question with the caption "Communications Error": to be
// answered with Retry or Cancel, or with OK alone.
void AskForRetry(Exchange& exchange, LinkError error, const char* text);
void AskForOk(Exchange& exchange, LinkError error, const char* text);

// The question that has now been answered, which the exchange waits for no more.
std::optional<LinkError> TakeQuestion(Exchange& exchange);

void EndExchange(Exchange& exchange, int result);

}  // namespace qz7
