#pragma once

namespace qz7 {

// In a catch block, whatever it catches: shows "Out of memory" where it is that, otherwise what the
// exception says.
void ShowUnexpected() noexcept;

}  // namespace qz7
