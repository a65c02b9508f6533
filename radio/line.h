#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <optional>
#include <vector>

#include "radio/terminal.h"

namespace qz7radio {

using Clock = std::chrono::steady_clock;
using Time = Clock::time_point;

inline constexpr Time kNever = Time::max();

// 9600 baud; a start bit, 8 data bits and 2 stop bits.
inline constexpr std::chrono::nanoseconds kByteTime{11LL * 1'000'000'000 / 9600};

enum class EventKind {
  kProgramByte,  // a byte of the program has passed over the line and reached the radio
  kSent,         // a byte that the radio put on the line has passed over it
  kPurged,       // the program purged its receive queue: it starts an exchange (again)
  kOpened,
  kClosed,
  kTimedOut,
  kEnded,  // the stand-in was told to end
};

struct Event {
  EventKind kind;
  std::uint8_t byte = 0;  // of kProgramByte
  Time began{};           // of kProgramByte: when its first bit was on the line
};

// A byte on its way over the line.
struct Passing {
  std::uint8_t byte;
  Time began;
  Time ends;
};

// The one line that the cable makes of the two directions: bytes pass over it one after the other,
// each taking `byte_time` (none at all when the line is not paced). A passing byte's times follow
// from the byte before it and not from when this program got to run, so that late wake-ups do not
// add up.
struct Line {
  Terminal terminal;
  std::chrono::nanoseconds byte_time = kByteTime;
  Time free_at{};
  std::chrono::nanoseconds lateness{0};  // of the handing over of the byte that passed last
  std::deque<Passing> from_program;
  std::deque<Passing> from_radio;
  std::vector<std::uint8_t> due;  // has passed over the line, waits for room in the terminal

  // `open` is what the radio was told; `present` is how it is at this moment.
  bool open = false;
  bool present = false;
  bool purged = false;
  // When the program opened the terminal or last purged its queue, until StartTaken().
  std::optional<Time> opened_at;
  std::optional<Time> purged_at;
};

// Waits for the next event, until `until` at the most. On kPurged and kClosed nothing of what
// passed before is left on the line or unread in the terminal.
Event Next(Line& line, Time until);

// When the radio may begin: `delay` after the last purge; or, where the program opened the terminal
// and does not purge, one second after the opening. kNever when nothing has happened since
// StartTaken().
Time StartTime(const Line& line, std::chrono::milliseconds delay);
void StartTaken(Line& line);

// What the radio puts on the line next goes out from this moment on; without it, right behind the
// byte before.
void BeginRun(Line& line);

// Puts one byte of the radio on the line, or leaves its time on the line empty.
void Put(Line& line, std::uint8_t byte);
void PutSilence(Line& line);

// Hands a byte of the program back to it: the echo, which needs no further time on the line.
void Echo(Line& line, std::uint8_t byte);

// Takes back whatever the radio put on the line and the program has not read.
void TakeBack(Line& line);

void HangUp(Line& line);

}  // namespace qz7radio
