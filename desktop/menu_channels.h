#pragma once

#include "resources/control_ids.h"

namespace qz7 {

// One command a special slot: the ten bands of VFO A, of VFO B and of Home.
inline constexpr int kSlotCommands = CM_HOME_LAST - CM_VFO_A_FIRST + 1;

// The special slot that such a command edits: channel -1 to -30.
constexpr int ChannelOfCommand(int command) { return CM_VFO_A_FIRST - 1 - command; }

}  // namespace qz7
