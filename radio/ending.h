#pragma once

#include <csignal>

namespace qz7radio {

// Makes the usual ending signals (interrupt, terminate, hang-up) set a mark instead of killing the
// program, so that the link goes away and the report still comes. They get through only during a
// wait that uses WaitMask(), which leaves no gap between looking at the mark and going to sleep.
void WatchForEnding();

bool EndAsked();

const sigset_t& WaitMask();

}  // namespace qz7radio
