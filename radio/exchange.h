#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "radio/faults.h"
#include "radio/line.h"
#include "radio/memory.h"

namespace qz7radio {

inline constexpr std::uint8_t kAck = 0x06;
inline constexpr std::uint8_t kWrongAck = 0x15;
inline constexpr std::uint8_t kAbort = 0xFF;

// The bit that the flip faults turn over.
inline constexpr std::uint8_t kFlippedBit = 0x10;

// How an exchange, or a part of one, came to its end.
enum class Outcome {
  kDone,
  kPurged,         // the program started again
  kClosed,         // the program closed the terminal
  kGaveUp,         // the program sent the abort byte
  kTakenBack,      // nobody wanted what the radio offered
  kChecksumWrong,  // in what the radio received
  kHungUp,
  kEnded,
};

// One exchange, or the attempt at one.
struct Exchange {
  Line& line;
  FaultList& faults;
  std::size_t program_bytes = 0;  // that passed over the line
  bool echo = true;
  Time began{};
  Time ended{};

  // While the radio sends:
  std::size_t sent = 0;
  bool offering = false;  // the program may as well want to write
  bool acknowledged = false;
  Event wanted_to_write{EventKind::kTimedOut};  // after kTakenBack, unless time ran out

  // While the radio receives:
  bool answers = true;
  std::vector<std::uint8_t> received{};
};

// Sends the memory and waits for the program's acceptance.
Outcome SendMemory(Exchange& exchange, const Memory& memory);

// As SendMemory, but takes the header back when the program does not want it: it acknowledges
// nothing for a while, or begins to write (its first byte is in `wanted_to_write` then, and neither
// echoed nor counted).
Outcome OfferMemory(Exchange& exchange, const Memory& memory);

// Receives a memory whose first byte has just come. `exchange.received` holds it, with its
// checksum behind it, if the outcome is kDone or kChecksumWrong.
Outcome ReceiveMemory(Exchange& exchange, Event first);

// What the two directions share:

// Echoes the program's byte, with the faults that belong to echoes, and counts it.
void EchoProgramByte(Exchange& exchange, std::uint8_t byte);

// Neither sends nor echoes anything until the program closes the terminal or starts again.
Outcome StaySilent(Exchange& exchange);

// What an event other than the program's bytes means to any exchange; kDone if it goes on.
Outcome OutcomeOf(const Event& event);

}  // namespace qz7radio
