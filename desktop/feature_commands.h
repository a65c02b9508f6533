#pragma once

namespace qz7 {

// The commands of the Other menu that edit the radio's settings; false for any other command.
bool RunFeatureCommand(int command);

}  // namespace qz7
