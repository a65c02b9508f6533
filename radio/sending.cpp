#include <algorithm>

#include "radio/exchange.h"
#include "radio/report.h"

namespace qz7radio {
namespace {

// A program that listens acknowledges the header within a few of its own ticks.
constexpr std::chrono::milliseconds kOfferTime{500};

constexpr std::uint8_t kNoise[] = {0x00, 0x55, 0xF0, 0x80, 0x05};

// The program's bytes while the radio sends: acknowledgements, or the abort byte.
Outcome TakeAnswer(Exchange& exchange, const Event& event) {
  if (exchange.offering && event.byte != kAck) {
    exchange.wanted_to_write = event;
    return Outcome::kTakenBack;
  }
  EchoProgramByte(exchange, event.byte);
  if (event.byte == kAbort) {
    return Outcome::kGaveUp;
  }
  if (event.byte == kAck) {
    exchange.acknowledged = true;
  } else {
    Note("ignored the byte " + Hex(event.byte) + " while sending");
  }
  return Outcome::kDone;
}

Outcome TakeEvent(Exchange& exchange, const Event& event) {
  return event.kind == EventKind::kProgramByte ? TakeAnswer(exchange, event) : OutcomeOf(event);
}

Outcome PutAndWait(Exchange& exchange, std::uint8_t byte) {
  Put(exchange.line, byte);
  for (;;) {
    const Event event = Next(exchange.line, kNever);
    if (event.kind == EventKind::kSent) {
      return Outcome::kDone;
    }
    if (const Outcome outcome = TakeEvent(exchange, event); outcome != Outcome::kDone) {
      return outcome;
    }
  }
}

// Sends the byte at place `exchange.sent`, as the faults want it.
Outcome SendByte(Exchange& exchange, std::uint8_t byte) {
  FaultList& faults = exchange.faults;
  const std::size_t position = exchange.sent;
  if (PlayAt(faults, FaultKind::kHangup, position)) {
    HangUp(exchange.line);
    return Outcome::kHungUp;
  }
  if (PlayAt(faults, FaultKind::kStall, position)) {
    return StaySilent(exchange);
  }
  ++exchange.sent;
  if (PlayAt(faults, FaultKind::kDrop, position)) {
    PutSilence(exchange.line);
    return Outcome::kDone;
  }
  if (PlayAt(faults, FaultKind::kFlip, position)) {
    byte ^= kFlippedBit;
  }
  if (PlayAt(faults, FaultKind::kDouble, position)) {
    if (const Outcome outcome = PutAndWait(exchange, byte); outcome != Outcome::kDone) {
      return outcome;
    }
  }
  return PutAndWait(exchange, byte);
}

Outcome SendRange(Exchange& exchange, const Memory& memory, std::size_t end) {
  while (exchange.sent < end) {
    if (const Outcome outcome = SendByte(exchange, memory[exchange.sent]);
        outcome != Outcome::kDone) {
      return outcome;
    }
  }
  return Outcome::kDone;
}

Outcome SendHeader(Exchange& exchange, const Memory& memory) {
  BeginRun(exchange.line);
  if (Play(exchange.faults, FaultKind::kNoise)) {
    for (const std::uint8_t byte : kNoise) {
      if (const Outcome outcome = PutAndWait(exchange, byte); outcome != Outcome::kDone) {
        return outcome;
      }
    }
  }
  exchange.began = Clock::now();
  return SendRange(exchange, memory, kHeaderSize);
}

// kTakenBack when no acknowledgement comes until then.
Outcome AwaitAck(Exchange& exchange, Time until) {
  while (!exchange.acknowledged) {
    const Event event = Next(exchange.line, until);
    if (event.kind == EventKind::kTimedOut) {
      return Outcome::kTakenBack;
    }
    if (const Outcome outcome = TakeEvent(exchange, event); outcome != Outcome::kDone) {
      return outcome;
    }
  }
  exchange.acknowledged = false;
  exchange.offering = false;
  return Outcome::kDone;
}

Outcome SendChecksum(Exchange& exchange, const Memory& memory) {
  const bool off_by_one = Play(exchange.faults, FaultKind::kChecksum);
  const auto checksum = static_cast<std::uint8_t>(Checksum(memory) + (off_by_one ? 1 : 0));
  const Outcome outcome = SendByte(exchange, checksum);
  exchange.ended = Clock::now();
  return outcome;
}

Outcome SendBlocks(Exchange& exchange, const Memory& memory) {
  Note("header acknowledged, sending");
  BeginRun(exchange.line);
  if (const Outcome outcome = SendRange(exchange, memory, kHeaderSize + kBlockSize);
      outcome != Outcome::kDone) {
    return outcome;
  }
  if (const Outcome outcome = AwaitAck(exchange, kNever); outcome != Outcome::kDone) {
    return outcome;
  }
  BeginRun(exchange.line);
  if (const Outcome outcome = SendRange(exchange, memory, kMemorySize); outcome != Outcome::kDone) {
    return outcome;
  }
  if (const Outcome outcome = SendChecksum(exchange, memory); outcome != Outcome::kDone) {
    return outcome;
  }
  Note("everything sent, waiting to be accepted");
  return AwaitAck(exchange, kNever);
}

}  // namespace

Outcome SendMemory(Exchange& exchange, const Memory& memory) {
  if (const Outcome outcome = SendHeader(exchange, memory); outcome != Outcome::kDone) {
    return outcome;
  }
  if (const Outcome outcome = AwaitAck(exchange, kNever); outcome != Outcome::kDone) {
    return outcome;
  }
  return SendBlocks(exchange, memory);
}

Outcome OfferMemory(Exchange& exchange, const Memory& memory) {
  exchange.offering = true;
  Outcome outcome = SendHeader(exchange, memory);
  if (outcome == Outcome::kDone) {
    outcome = AwaitAck(exchange, Clock::now() + kOfferTime);
  }
  if (outcome == Outcome::kTakenBack) {
    TakeBack(exchange.line);
  }
  return outcome == Outcome::kDone ? SendBlocks(exchange, memory) : outcome;
}

}  // namespace qz7radio
