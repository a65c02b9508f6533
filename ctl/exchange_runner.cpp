#include "ctl/exchange_runner.h"

#include <chrono>
#include <csignal>

#include "ctl/console.h"
#include "ctl/progress_bar.h"
#include "ctl/terminal.h"

namespace qz7 {
namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kTick(kTickMilliseconds);

volatile std::sig_atomic_t interrupted = 0;

void NoteInterrupt(int /*signal*/) { interrupted = 1; }

int MillisecondsUntil(Clock::time_point moment) {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(moment - Clock::now());
  return static_cast<int>(std::max(left, std::chrono::milliseconds(0)).count());
}

// Why an exchange has to end although its own rules would go on waiting; empty for no reason.
std::string ReasonToGiveUp(const SerialPort& port, const std::string& device) {
  if (interrupted != 0) {
    return "Given up.";
  }
  return port.IsLost() ? device + " has gone away." : "";
}

// An exchange and what brings it on.
template <typename AnyExchange>
struct Steps {
  void (*notify)(AnyExchange&, SerialPort&);
  void (*tick)(AnyExchange&, SerialPort&);
  void (*answer)(AnyExchange&, SerialPort&, Answer);
};

// Tells what the exchange asks and gives the safe answer. Nobody is there to choose what follows
// it, so that only a failed read, which decides nothing, is no reason to give up.
template <typename AnyExchange>
std::string AnswerQuestion(AnyExchange& exchange, SerialPort& port,
                           const Steps<AnyExchange>& steps) {
  const LinkQuestion question = *exchange.question;
  PrintError(question.text);
  steps.answer(exchange, port, question.buttons == Buttons::kOk ? Answer::kOk : Answer::kCancel);
  return question.error == LinkError::kFailedRead ? "" : "The exchange was not completed.";
}

// Brings an exchange its bytes and its 10 ms ticks.
template <typename AnyExchange>
bool Run(AnyExchange& exchange, SerialPort& port, const std::string& device,
         const Steps<AnyExchange>& steps) {
  ProgressBar bar(IsErrorTerminal());
  Clock::time_point next_tick = Clock::now() + kTick;
  std::string reason;
  while (!exchange.ended && reason.empty()) {
    if (port.WaitForInput(BytesAwaited(exchange), MillisecondsUntil(next_tick))) {
      steps.notify(exchange, port);
    }
    if (Clock::now() >= next_tick) {
      steps.tick(exchange, port);
      next_tick = std::max(next_tick + kTick, Clock::now());
    }
    bar.Show(exchange.meter);
    if (exchange.question) {
      bar.Finish();
      reason = AnswerQuestion(exchange, port, steps);
    }
    if (reason.empty()) {
      reason = ReasonToGiveUp(port, device);
    }
  }
  bar.Finish();
  if (exchange.ended == 0 && interrupted == 0 && !port.IsLost()) {
    return true;
  }
  PrintError(reason);
  return false;
}

// What has been written leaves the machine before the port is closed; a second is plenty for it.
void WaitUntilSent(SerialPort& port) {
  const Clock::time_point limit = Clock::now() + std::chrono::seconds(1);
  while (port.UnsentBytes() > 0 && Clock::now() < limit) {
    port.WaitForInput(1, 1);
  }
}

}  // namespace

void CatchInterrupt() {
  std::signal(SIGINT, NoteInterrupt);
  std::signal(SIGTERM, NoteInterrupt);
}

bool RunCloneRead(CloneRead& read, SerialPort& port, const std::string& device) {
  const bool done = Run(read, port, device, {NotifyCloneRead, TickCloneRead, AnswerCloneRead});
  if (!done && !read.ended && !port.IsLost()) {
    port.SendByte(kAbort);
    CancelCloneRead(read);
  }
  WaitUntilSent(port);
  return done;
}

bool RunCloneWrite(CloneWrite& write, SerialPort& port, const std::string& device) {
  const bool done = Run(write, port, device, {NotifyCloneWrite, TickCloneWrite, AnswerCloneWrite});
  WaitUntilSent(port);
  return done;
}

}  // namespace qz7
