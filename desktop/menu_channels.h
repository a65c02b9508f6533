#pragma once

#include <optional>

#include "resources/control_ids.h"

namespace qz7 {

// The special slot that a command of the VFO and Home menus edits: channel -1 to -30; nothing for
// any other command.
constexpr std::optional<int> ChannelOfCommand(int command) {
  if (command < CM_VFO_A_FIRST || command > CM_HOME_LAST) {
    return std::nullopt;
  }
  return CM_VFO_A_FIRST - 1 - command;
}

}  // namespace qz7
