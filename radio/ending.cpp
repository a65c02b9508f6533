#include "radio/ending.h"

#include <initializer_list>

namespace qz7radio {
namespace {

volatile std::sig_atomic_t end_asked = 0;
sigset_t wait_mask;

void OnEndingSignal(int /*signal*/) { end_asked = 1; }

}  // namespace

void WatchForEnding() {
  struct sigaction action {};
  action.sa_handler = OnEndingSignal;
  sigset_t ending;
  sigemptyset(&ending);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    sigaction(signal, &action, nullptr);
    sigaddset(&ending, signal);
  }
  sigprocmask(SIG_BLOCK, &ending, &wait_mask);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    sigdelset(&wait_mask, signal);
  }
  // A reader of standard output that goes away must not keep the link from being removed.
  struct sigaction ignore {};
  ignore.sa_handler = SIG_IGN;
  sigaction(SIGPIPE, &ignore, nullptr);
}

bool EndAsked() { return end_asked != 0; }

const sigset_t& WaitMask() { return wait_mask; }

}  // namespace qz7radio
