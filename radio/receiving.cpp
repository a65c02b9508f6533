#include <algorithm>

#include "radio/exchange.h"
#include "radio/report.h"

namespace qz7radio {
namespace {

// The radio answers the header and the first block; `number` counts its answers from 0.
void Answer(Exchange& exchange, std::size_t number) {
  if (Play(exchange.faults, FaultKind::kNoAck)) {
    exchange.answers = false;
  }
  if (!exchange.answers) {
    return;
  }
  const bool wrong = PlayAt(exchange.faults, FaultKind::kBadAck, number);
  BeginRun(exchange.line);
  Put(exchange.line, wrong ? kWrongAck : kAck);
}

// The radio waits for a header as the program does: what comes before its first byte is nothing.
void TakeByte(Exchange& exchange, std::uint8_t byte) {
  std::vector<std::uint8_t>& received = exchange.received;
  if (received.empty() && byte != kHeaderStart) {
    return;
  }
  received.push_back(byte);
  if (received.size() == kHeaderSize) {
    Answer(exchange, 0);
  } else if (received.size() == kHeaderSize + kBlockSize) {
    Answer(exchange, 1);
  }
}

// Takes the byte from the line, as the faults want it: the echo comes first, then the answer.
Outcome TakeProgramByte(Exchange& exchange, std::uint8_t byte) {
  FaultList& faults = exchange.faults;
  const std::size_t position = exchange.program_bytes;
  if (PlayAt(faults, FaultKind::kHangup, position)) {
    HangUp(exchange.line);
    return Outcome::kHungUp;
  }
  if (PlayAt(faults, FaultKind::kStall, position)) {
    return StaySilent(exchange);
  }
  if (PlayAt(faults, FaultKind::kDrop, position)) {
    ++exchange.program_bytes;
    return Outcome::kDone;
  }
  EchoProgramByte(exchange, byte);
  const bool twice = PlayAt(faults, FaultKind::kDouble, position);
  if (twice && exchange.echo) {
    Echo(exchange.line, byte);
  }
  if (PlayAt(faults, FaultKind::kFlip, position)) {
    byte ^= kFlippedBit;
  }
  TakeByte(exchange, byte);
  if (twice) {
    TakeByte(exchange, byte);
  }
  return Outcome::kDone;
}

bool ChecksumIsRight(Exchange& exchange) {
  Memory memory{};
  std::copy_n(exchange.received.begin(), kMemorySize, memory.begin());
  const std::uint8_t expected = Checksum(memory);
  const std::uint8_t came = exchange.received[kMemorySize];
  if (expected == came) {
    return !Play(exchange.faults, FaultKind::kChecksum);
  }
  Note("checksum " + Hex(came) + " received, " + Hex(expected) + " computed");
  return false;
}

}  // namespace

Outcome ReceiveMemory(Exchange& exchange, Event first) {
  exchange.began = first.began;
  Event event = first;
  for (;;) {
    const Outcome outcome = event.kind == EventKind::kProgramByte
                                ? TakeProgramByte(exchange, event.byte)
                                : OutcomeOf(event);
    if (outcome != Outcome::kDone) {
      return outcome;
    }
    if (exchange.received.size() >= kExchangeSize) {
      break;
    }
    event = Next(exchange.line, kNever);
  }
  exchange.ended = Clock::now();
  if (!ChecksumIsRight(exchange)) {
    return Outcome::kChecksumWrong;
  }
  Answer(exchange, 2);
  return Outcome::kDone;
}

}  // namespace qz7radio
