#pragma once

#include <string>

namespace qz7 {

// Asks what to find in the memory list, beginning with what was looked for last; the text is
// the answer. False for Cancel, and then it stays.
bool AskWhatToFind(std::string& text);

}  // namespace qz7
