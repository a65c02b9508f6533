#pragma once

namespace qz7radio {

// What the person at the radio has chosen: to send its memory, to take a new one, or either of
// them again and again.
enum class Mode { kSend, kReceive, kServe };

}  // namespace qz7radio
