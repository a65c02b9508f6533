#include "tests/unit/seams.h"

#include <gtest/gtest.h>

namespace qz7 {

TestSeams test_seams;

Answer ShowMessage(const std::string& text, const std::string& caption, Buttons buttons,
                   Icon icon) {
  test_seams.messages.push_back({text, caption, buttons, icon});
  if (test_seams.answers.empty()) {
    return buttons == Buttons::kOk ? Answer::kOk : Answer::kCancel;
  }
  const Answer answer = test_seams.answers.front();
  test_seams.answers.pop_front();
  return answer;
}

std::uint32_t CurrentTimeSeconds() { return test_seams.now; }

std::vector<std::string> ShownTexts() {
  std::vector<std::string> texts;
  for (const ShownMessage& message : test_seams.messages) {
    texts.push_back(message.text);
  }
  return texts;
}

namespace {

class FreshSeams : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo&) override { test_seams = TestSeams{}; }
};

}  // namespace
}  // namespace qz7

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  testing::UnitTest::GetInstance()->listeners().Append(new qz7::FreshSeams);
  return RUN_ALL_TESTS();
}
