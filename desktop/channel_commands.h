#pragma once

namespace qz7 {

// The memory list, the groups, and the editors of the VFO and home slots. False for a command that
// is none of these.
bool RunChannelCommand(int command);

}  // namespace qz7
