#include "fuzz/fuzz_seams.h"

namespace qz7 {

std::deque<Answer> fuzz_answers;

Answer ShowMessage(const std::string& /*text*/, const std::string& /*caption*/, Buttons buttons,
                   Icon /*icon*/) {
  if (fuzz_answers.empty()) {
    return buttons == Buttons::kOk ? Answer::kOk : Answer::kCancel;
  }
  const Answer answer = fuzz_answers.front();
  fuzz_answers.pop_front();
  return answer;
}

std::uint32_t CurrentTimeSeconds() { return 1; }

}  // namespace qz7
