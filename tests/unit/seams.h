#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "files/messages.h"

namespace qz7 {

struct ShownMessage {
  std::string text;
  std::string caption;
  Buttons buttons;
  Icon icon;
};

// The tests' side of the seams: what was shown, and what the user answers. Fresh for every test.
// A message without a scripted answer gets OK or Cancel.
struct TestSeams {
  std::vector<ShownMessage> messages;
  std::deque<Answer> answers;
  std::uint32_t now = 1'000'000;
};
extern TestSeams test_seams;

// The texts of all messages shown so far.
std::vector<std::string> ShownTexts();

}  // namespace qz7
