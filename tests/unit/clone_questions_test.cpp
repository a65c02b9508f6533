// An exchange that has asked something waits for the answer, whatever comes meanwhile.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/link/clone_read.h"
#include "core/link/clone_write.h"
#include "tests/unit/clone_write_fixture.h"
#include "tests/unit/exchange_fixture.h"

namespace qz7 {
namespace {

class ReadThatAsks : public ListeningRead {
 protected:
  void AskAboutTheChecksum() {
    ReceiveMemory(8122);
    Arrive({static_cast<std::uint8_t>(ChecksumOf(radio_) + 1)});
    NotifyCloneRead(read_, line_);
    ExpectOpenQuestion("Checksum Error");
  }
  void ExpectOpenQuestion(const std::string& text) {
    ASSERT_TRUE(read_.question.has_value());
    EXPECT_EQ(read_.question->text, text);
  }
  void Answer(qz7::Answer answer) { AnswerCloneRead(read_, line_, answer); }
};

TEST_F(ReadThatAsks, ShowsNothingItself) {
  AskAboutTheChecksum();
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_EQ(read_.question->caption, std::string("Communications Error"));
  EXPECT_EQ(read_.question->buttons, Buttons::kRetryCancel);
}

TEST_F(ReadThatAsks, DoesNothingUntilItIsAnswered) {
  AskAboutTheChecksum();
  Arrive({ChecksumOf(radio_)});
  EXPECT_FALSE(StepCloneRead(read_, line_));
  NotifyCloneRead(read_, line_);
  for (int n = 0; n < 100; ++n) {
    TickCloneRead(read_, line_);
  }
  EXPECT_EQ(line_.incoming.size(), 1U);
  EXPECT_EQ(line_.sent, (Bytes{0x06, 0x06}));
  EXPECT_FALSE(IsOver());
  ExpectOpenQuestion("Checksum Error");
}

TEST_F(ReadThatAsks, CountsNoTicksWhileATimeOutIsAskedAbout) {
  ReceiveMemory(3000);
  for (int n = 0; n < 26; ++n) {
    TickCloneRead(read_, line_);
  }
  ExpectOpenQuestion("Receive Timeout");
  for (int n = 0; n < 100; ++n) {
    TickCloneRead(read_, line_);
  }
  EXPECT_EQ(line_.sent, (Bytes{0x06, 0x06}));
  Answer(qz7::Answer::kCancel);
  EXPECT_EQ(line_.sent, (Bytes{0x06, 0x06, 0xFF}));
  EXPECT_EQ(read_.ended, -1);
}

TEST_F(ReadThatAsks, TellsTheRadioOfAWrongReadBackBeforeItAsks) {
  WaitForReadBack();
  Arrive({0x15});
  NotifyCloneRead(read_, line_);
  ExpectOpenQuestion("Acknowledge Error");
  EXPECT_EQ(line_.sent, (Bytes{0x06, 0xFF}));
  EXPECT_FALSE(read_.polling);
}

TEST_F(ReadThatAsks, TellsTheRadioOfAWrongChecksumOnlyWhenTheUserGivesUp) {
  AskAboutTheChecksum();
  EXPECT_EQ(line_.sent, (Bytes{0x06, 0x06}));
  Answer(qz7::Answer::kCancel);
  EXPECT_EQ(line_.sent, (Bytes{0x06, 0x06, 0xFF}));
}

TEST_F(ReadThatAsks, LooksForLineErrorsBehindARetriedChecksumAndAsksAgain) {
  AskAboutTheChecksum();
  line_.line_errors = 4;
  Answer(qz7::Answer::kRetry);
  ExpectOpenQuestion("Bad Receive Data");
  EXPECT_FALSE(read_.polling);
}

TEST_F(ReadThatAsks, GoesOnWithItsStepWhenATimeOutIsRetried) {
  ReceiveMemory(3000);
  for (int n = 0; n < 26; ++n) {
    TickCloneRead(read_, line_);
  }
  line_.line_errors = 4;
  Answer(qz7::Answer::kRetry);
  // The step behind the answer has listened for a header, where line errors do not matter.
  EXPECT_EQ(line_.line_errors, 0U);
  EXPECT_FALSE(read_.question.has_value());
}

TEST_F(ReadThatAsks, ForgetsItsQuestionWhenTheUserCancelsTheRead) {
  AskAboutTheChecksum();
  CancelCloneRead(read_);
  Answer(qz7::Answer::kRetry);
  EXPECT_EQ(read_.ended, -1);
  EXPECT_FALSE(read_.polling);
  EXPECT_EQ(line_.event_restarts, 1);
}

TEST_F(ReadThatAsks, TakesNoAnswerThatItHasNotAskedFor) {
  ReceiveMemory(3000);
  Answer(qz7::Answer::kCancel);
  EXPECT_FALSE(IsOver());
  EXPECT_EQ(read_.position, 3000);
  EXPECT_TRUE(read_.polling);
}

TEST_F(ReadThatAsks, LeavesLineErrorsBehindAFailedReadForTheNextStep) {
  ReceiveMemory(3000);
  line_.failed = true;
  line_.line_errors = 4;
  StepCloneRead(read_, line_);
  ExpectOpenQuestion("ERROR");
  EXPECT_EQ(line_.line_errors, 4U);
}

class WriteThatAsks : public OpenedWrite {
 protected:
  void AskAboutTheAnswer() {
    Start();
    Tick();
    Arrive({0x15});
    NotifyCloneWrite(write_, line_);
    ASSERT_TRUE(write_.question.has_value());
    EXPECT_EQ(write_.question->text, std::string("Acknowledge Error"));
    EXPECT_EQ(write_.question->caption, std::string("Communications Error"));
  }
};

TEST_F(WriteThatAsks, DoesNothingUntilItIsAnswered) {
  AskAboutTheAnswer();
  EXPECT_TRUE(test_seams.messages.empty());
  Arrive({0x06});
  EXPECT_FALSE(StepCloneWrite(write_, line_));
  NotifyCloneWrite(write_, line_);
  TickCloneWrite(write_, line_);
  Start();
  EXPECT_EQ(line_.sent.size(), 10U);
  EXPECT_EQ(line_.incoming.size(), 1U);
  EXPECT_TRUE(write_.question.has_value());
}

TEST_F(WriteThatAsks, ForgetsItsQuestionWhenTheUserCancelsTheWrite) {
  AskAboutTheAnswer();
  CancelCloneWrite(write_);
  AnswerCloneWrite(write_, line_, Answer::kRetry);
  EXPECT_EQ(write_.ended, -1);
  EXPECT_EQ(line_.event_restarts, 1);
}

TEST_F(WriteThatAsks, TakesNoAnswerThatItHasNotAskedFor) {
  Start();
  AnswerCloneWrite(write_, line_, Answer::kCancel);
  EXPECT_FALSE(IsOver());
  EXPECT_TRUE(write_.polling);
}

}  // namespace
}  // namespace qz7
