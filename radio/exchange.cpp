#include "radio/exchange.h"

namespace qz7radio {

void EchoProgramByte(Exchange& exchange, std::uint8_t byte) {
  if (Play(exchange.faults, FaultKind::kNoEcho)) {
    exchange.echo = false;
  }
  if (PlayAt(exchange.faults, FaultKind::kFlipEcho, exchange.program_bytes)) {
    byte ^= kFlippedBit;
  }
  if (exchange.echo) {
    Echo(exchange.line, byte);
  }
  ++exchange.program_bytes;
}

Outcome StaySilent(Exchange& exchange) {
  for (;;) {
    const Outcome outcome = OutcomeOf(Next(exchange.line, kNever));
    if (outcome != Outcome::kDone) {
      return outcome;
    }
  }
}

Outcome OutcomeOf(const Event& event) {
  switch (event.kind) {
    case EventKind::kPurged:
      return Outcome::kPurged;
    case EventKind::kClosed:
      return Outcome::kClosed;
    case EventKind::kEnded:
      return Outcome::kEnded;
    case EventKind::kProgramByte:
    case EventKind::kSent:
    case EventKind::kOpened:
    case EventKind::kTimedOut:
      break;
  }
  return Outcome::kDone;
}

}  // namespace qz7radio
