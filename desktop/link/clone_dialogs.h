#pragma once

#include "core/files/preferences.h"
#include "core/link/clone_read.h"
#include "core/link/clone_write.h"

namespace qz7 {

// Each shows its dialog and runs the exchange, which has begun, in it; true when the exchange
// succeeded.

bool ShowReadDialog(CloneRead& read, SerialPort& port);

// Sends on the base of the configured template, which the user can change, and says what to do next
// when that is done.
bool ShowWriteDialog(CloneWrite& write, SerialPort& port, Preferences& preferences);

}  // namespace qz7
