#pragma once

#include <cstdint>
#include <span>

#include "core/files/preferences.h"
#include "core/image/clone_image.h"
#include "core/link/serial_port.h"

namespace qz7 {

// Each shows its dialog and runs the exchange in it; true when the exchange succeeded.

// Receives the radio's block into `block`.
bool ShowReadDialog(SerialPort& port, std::span<std::uint8_t> block);

// Sends the working copy's block on the base of the configured template, which the user can change,
// and says what to do next when that is done.
bool ShowWriteDialog(SerialPort& port, CloneImage& working_copy, Preferences& preferences);

}  // namespace qz7
