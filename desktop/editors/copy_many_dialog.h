#pragma once

namespace qz7 {

// What the copy-many dialog collects.
struct CopyMany {
  int first = 0;
  int second = 0;
  bool option_a = false;
  bool option_b = false;
};

// Asks for the four values; both numbers start as `number`. True for OK. No command opens it yet.
bool ShowCopyManyDialog(int number, CopyMany& chosen);

}  // namespace qz7
