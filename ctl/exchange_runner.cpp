#include "ctl/exchange_runner.h"

#include <csignal>

#include "core/link/silence.h"
#include "core/link/tick_clock.h"
#include "ctl/console.h"
#include "ctl/progress_bar.h"
#include "ctl/terminal.h"

namespace qz7 {
namespace {

volatile std::sig_atomic_t interrupted = 0;

void NoteInterrupt(int /*signal*/) { interrupted = 1; }

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

// What has come is read before the time that has passed is counted.
template <typename AnyExchange>
void BringOn(AnyExchange& exchange, SerialPort& port, TickClock& clock,
             const Steps<AnyExchange>& steps) {
  if (port.WaitForInput(BytesAwaited(exchange), clock.MillisecondsToNext())) {
    BeginTurn(exchange);
    steps.notify(exchange, port);
  }
  clock.Follow(exchange);
  for (int due = clock.Due(); due > 0 && IsRunning(exchange, port); --due) {
    BeginTurn(exchange);
    steps.tick(exchange, port);
  }
}

// Tells once what an exchange has waited for too long.
template <typename AnyExchange>
void NoteSilence(Silence& silence, const AnyExchange& exchange, ProgressBar& bar, bool& told) {
  const std::string note = silence.Note(exchange, AwaitedBy(exchange));
  if (!note.empty() && !told) {
    bar.Finish();
    PrintError(note + " Ctrl-C gives up.");
    told = true;
  }
}

// Brings an exchange its bytes and its 10 ms ticks.
template <typename AnyExchange>
bool Run(AnyExchange& exchange, SerialPort& port, const std::string& device,
         const Steps<AnyExchange>& steps) {
  ProgressBar bar(IsErrorTerminal());
  TickClock clock;
  Silence silence;
  bool told = false;
  std::string reason;
  while (!exchange.ended && reason.empty()) {
    BringOn(exchange, port, clock, steps);
    bar.Show(exchange.meter);
    NoteSilence(silence, exchange, bar, told);
    if (exchange.question) {
      bar.Finish();
      reason = AnswerQuestion(exchange, port, steps);
      clock.Restart();
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

}  // namespace

void CatchInterrupt() {
  interrupted = 0;
  std::signal(SIGINT, NoteInterrupt);
  std::signal(SIGTERM, NoteInterrupt);
}

bool RunCloneRead(CloneRead& read, SerialPort& port, const std::string& device) {
  const bool done = Run(read, port, device, {NotifyCloneRead, TickCloneRead, AnswerCloneRead});
  if (!done && !read.ended && !port.IsLost()) {
    port.SendByte(kAbort);
    CancelCloneRead(read);
  }
  return done;
}

bool RunCloneWrite(CloneWrite& write, SerialPort& port, const std::string& device) {
  return Run(write, port, device, {NotifyCloneWrite, TickCloneWrite, AnswerCloneWrite});
}

}  // namespace qz7
