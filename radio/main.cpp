#include <sys/prctl.h>

#include <exception>
#include <string>

#include "radio/ending.h"
#include "radio/options.h"
#include "radio/report.h"
#include "radio/session.h"
#include "radio/storage.h"

namespace qz7radio {
namespace {

// Everything that can be refused is looked at before the terminal is there.
std::string PrepareMemory(Session& session) {
  session.memory = BuiltInMemory();
  const std::string& image = session.options.image;
  if (image.empty()) {
    return "";
  }
  if (session.options.mode != Mode::kSend) {
    if (std::string reason = CheckTarget(image); !reason.empty()) {
      return reason;
    }
  }
  return LoadMemory(image, session.memory);
}

std::string PrepareTerminal(Session& session) {
  if (std::string reason = OpenTerminal(session.line.terminal); !reason.empty()) {
    return reason;
  }
  const std::string& link = session.options.link;
  return link.empty() ? "" : MakeLink(link, session.line.terminal);
}

void SayFaults(const FaultList& list) {
  for (const Fault& fault : list.faults) {
    Say("fault " + FaultName(fault) + (fault.played ? " played" : " not reached"));
  }
}

int Main(int argc, char** argv) {
  int status = kExitDone;
  const std::optional<Options> options = ReadOptions(argc, argv, status);
  if (!options) {
    return status;
  }
  Session session;
  session.options = *options;
  session.faults.faults = options->faults;
  if (!options->wire_speed) {
    session.line.byte_time = std::chrono::nanoseconds(0);
  }
  WatchForEnding();
  // Sleeping is allowed to end 50 microseconds late by default, a twentieth of a byte.
  prctl(PR_SET_TIMERSLACK, 1UL, 0UL, 0UL, 0UL);
  std::string reason = PrepareMemory(session);
  if (reason.empty()) {
    reason = PrepareTerminal(session);
  }
  if (!reason.empty()) {
    Note(reason);
    return kExitWrongUsage;
  }
  Say(session.line.terminal.name);
  status = Run(session);
  CloseTerminal(session.line.terminal);
  if (!options->link.empty()) {
    RemoveLink(options->link, session.line.terminal);
  }
  SayFaults(session.faults);
  return status;
}

}  // namespace
}  // namespace qz7radio

int main(int argc, char** argv) {
  try {
    return qz7radio::Main(argc, argv);
  } catch (const std::exception& error) {
    qz7radio::Note(error.what());
    return qz7radio::kExitFailed;
  }
}
