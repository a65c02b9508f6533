#include "radio/session.h"

#include <algorithm>
#include <string>

#include "radio/exchange.h"
#include "radio/report.h"
#include "radio/storage.h"

namespace qz7radio {
namespace {

using std::chrono::milliseconds;

// A person puts the radio into its send mode once the program listens. The one at a radio that
// serves waits longer, because a program that writes shows it by its first byte.
constexpr milliseconds kSendDelay{150};
constexpr milliseconds kServeDelay{300};

// How long the terminal outlives the exchange asked for, unless the program closes it earlier: the
// program may not have read everything yet.
constexpr milliseconds kLingerTime{2000};

std::string ReasonOf(Outcome outcome) {
  switch (outcome) {
    case Outcome::kPurged:
      return "the program started again";
    case Outcome::kClosed:
      return "the program closed the terminal";
    case Outcome::kGaveUp:
      return "the program gave up";
    case Outcome::kTakenBack:
      return "the program did not listen";
    case Outcome::kChecksumWrong:
      return "the checksum is wrong";
    case Outcome::kHungUp:
      return "hung up";
    case Outcome::kEnded:
      return "ended";
    case Outcome::kDone:
      break;
  }
  return "";
}

void SayFailed(const std::string& reason, std::size_t bytes) {
  Say("exchange failed: " + reason + " after " + std::to_string(bytes) + " of " +
      std::to_string(kExchangeSize) + " bytes");
}

void SayDone(const std::string& what, std::size_t bytes, const Exchange& exchange) {
  const std::chrono::duration<double> time = exchange.ended - exchange.began;
  const std::chrono::duration<double> wire = kByteTime * static_cast<long>(kExchangeSize);
  Say(what + " " + std::to_string(bytes) + " bytes in " + Seconds(time.count()) + " s");
  Say("wire time " + Seconds(wire.count()) + " s");
}

// Keeps what came, in the file if there is one. The exchange has failed if the file cannot be
// written.
bool Keep(Session& session, const Exchange& exchange) {
  std::copy_n(exchange.received.begin(), kMemorySize, session.memory.begin());
  if (session.options.image.empty()) {
    return true;
  }
  const std::string reason = StoreMemory(session.options.image, session.memory);
  if (!reason.empty()) {
    Note(reason);
    SayFailed("the memory could not be stored", exchange.received.size());
  }
  return reason.empty();
}

bool Receive(Session& session, const Event& first) {
  StartTaken(session.line);
  Note("receiving");
  Exchange exchange{session.line, session.faults};
  const Outcome outcome = ReceiveMemory(exchange, first);
  SettleFaults(session.faults, true);
  if (outcome != Outcome::kDone) {
    if (outcome == Outcome::kChecksumWrong) {
      Note("what was received is not kept: the checksum is wrong");
    }
    SayFailed(ReasonOf(outcome), exchange.received.size());
    return false;
  }
  if (!Keep(session, exchange)) {
    return false;
  }
  SayDone("received", exchange.received.size(), exchange);
  return true;
}

bool Send(Session& session) {
  StartTaken(session.line);
  Note("sending the header");
  Exchange exchange{session.line, session.faults};
  const Outcome outcome = session.options.mode == Mode::kServe
                              ? OfferMemory(exchange, session.memory)
                              : SendMemory(exchange, session.memory);
  const bool was_exchange = SettleFaults(session.faults, exchange.program_bytes > 0);
  if (outcome == Outcome::kDone) {
    SayDone("sent", exchange.sent, exchange);
    return true;
  }
  if (was_exchange) {
    SayFailed(ReasonOf(outcome), exchange.sent);
  } else {
    Note("not wanted: " + ReasonOf(outcome));
  }
  if (exchange.wanted_to_write.kind == EventKind::kProgramByte) {
    return Receive(session, exchange.wanted_to_write);
  }
  return false;
}

// A byte of the program outside of any exchange: the cable echoes it all the same. Returns whether
// it has led to an exchange that was asked for.
bool TakeIdleByte(Session& session, const Event& event) {
  if (session.options.mode != Mode::kSend && event.byte == kHeaderStart) {
    return Receive(session, event);
  }
  Echo(session.line, event.byte);
  Note("ignored the byte " + Hex(event.byte));
  return false;
}

void Linger(Session& session) {
  const Time until = Clock::now() + kLingerTime;
  for (;;) {
    const Event event = Next(session.line, until);
    if (event.kind == EventKind::kProgramByte) {
      Echo(session.line, event.byte);
    } else if (event.kind != EventKind::kSent && event.kind != EventKind::kOpened) {
      return;
    }
  }
}

Time NextStart(const Session& session) {
  switch (session.options.mode) {
    case Mode::kSend:
      return StartTime(session.line, kSendDelay);
    case Mode::kServe:
      return StartTime(session.line, kServeDelay);
    case Mode::kReceive:
      break;
  }
  return kNever;
}

}  // namespace

int Run(Session& session) {
  const bool serving = session.options.mode == Mode::kServe;
  for (;;) {
    bool done = false;
    const Event event = Next(session.line, NextStart(session));
    switch (event.kind) {
      case EventKind::kTimedOut:
        done = Send(session);
        break;
      case EventKind::kProgramByte:
        done = TakeIdleByte(session, event);
        break;
      case EventKind::kOpened:
        Note("the program opened the terminal");
        break;
      case EventKind::kClosed:
        Note("the program closed the terminal");
        break;
      case EventKind::kEnded:
        return serving ? kExitDone : kExitFailed;
      case EventKind::kSent:
      case EventKind::kPurged:
        break;
    }
    if (session.line.terminal.master < 0) {
      return kExitFailed;
    }
    if (done && !serving) {
      Linger(session);
      return kExitDone;
    }
  }
}

}  // namespace qz7radio
