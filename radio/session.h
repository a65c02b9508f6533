#pragma once

#include "radio/faults.h"
#include "radio/line.h"
#include "radio/memory.h"
#include "radio/options.h"

namespace qz7radio {

// The radio with its memory, its cable, and what the person at its keys wants.
struct Session {
  Options options;
  Line line;
  FaultList faults;
  Memory memory{};
};

// Plays the radio until the exchange asked for has come about or somebody ends it. Returns the exit
// status.
int Run(Session& session);

}  // namespace qz7radio
