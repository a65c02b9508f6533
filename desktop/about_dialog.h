#pragma once

namespace qz7 {

// Shows the program's version record.
void ShowAboutDialog();

}  // namespace qz7
