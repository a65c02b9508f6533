#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/link/clone_write.h"
#include "tests/unit/clone_write_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

constexpr const char* kNoTemplate =
    "No template file specified.\nUse Browse Template to select one\nor Help for create "
    "instructions.\n";
constexpr const char* kJapanese =
    "Template file is for a Japanese Version of the QZ-7 Radio.\n\nThis software does not work "
    "with that version of the radio.";

class CloneWriteErrors : public OpenedWrite {
 protected:
  static void ExpectOnlyMessage(const std::string& text, const std::string& caption,
                                Buttons buttons = Buttons::kOk) {
    ASSERT_EQ(ShownTexts(), std::vector<std::string>{text});
    EXPECT_EQ(test_seams.messages[0].caption, caption);
    EXPECT_EQ(test_seams.messages[0].buttons, buttons);
  }

  // The dialog is as it was before the user pressed OK.
  void ExpectStillOpen() {
    EXPECT_EQ(write_.phase, CloneWrite::kIdle);
    EXPECT_TRUE(write_.can_start);
    EXPECT_TRUE(write_.polling);
    EXPECT_FALSE(IsOver());
    EXPECT_TRUE(line_.sent.empty());
  }

  void ExpectAcknowledgeError() {
    ExpectOnlyMessage("Acknowledge Error", "Communications Error", Buttons::kRetryCancel);
    EXPECT_EQ(write_.phase, CloneWrite::kIdle);
    EXPECT_EQ(write_.blocks_sent, 0);
    EXPECT_EQ(write_.echo_received, 0);
    EXPECT_EQ(write_.response_countdown, 0);
  }

  // Only Cancel is left to the user, although the line was made fresh.
  void ExpectDeadEnd() {
    EXPECT_FALSE(write_.can_start);
    EXPECT_TRUE(write_.polling);
    EXPECT_FALSE(IsOver());
    EXPECT_EQ(line_.purges.back(), Queues::kBoth);
    EXPECT_EQ(line_.event_restarts, 2);
    EXPECT_EQ(write_.meter.percent, 0);
  }
};

TEST_F(CloneWriteErrors, WithoutATemplateTheUserIsToldHowToGetOne) {
  StartCloneWrite(write_, line_, "");
  ExpectOnlyMessage(kNoTemplate, "QZ-7H Programmer");
  ExpectStillOpen();
}

TEST_F(CloneWriteErrors, AMissingTemplateIsReportedOnceAndAnotherCanBeChosen) {
  const std::string missing = folder_.File("missing.tpl");
  StartCloneWrite(write_, line_, missing);
  ExpectOnlyMessage("Cannot open file:\n" + missing, "QZ-7H Programmer");
  ExpectStillOpen();
  Start();
  EXPECT_EQ(line_.sent.size(), 10U);
}

TEST_F(CloneWriteErrors, ARadioDataFileIsNoTemplate) {
  PutFile(template_path_, IntactFile("RDF"));
  Start();
  ExpectOnlyMessage("Not a template file:\n" + template_path_, "QZ-7H Programmer");
  ExpectStillOpen();
}

TEST_F(CloneWriteErrors, ADamagedTemplateIsNotUsed) {
  Bytes file = IntactFile("TPL");
  ++file[4000];
  PutFile(template_path_, file);
  Start();
  ExpectOnlyMessage("Radio data file image is corrupted.", "QZ-7H Programmer");
  ExpectStillOpen();
}

TEST_F(CloneWriteErrors, ATemplateOfTheJapaneseVersionIsRefused) {
  WriteTemplate(0x01);
  Start();
  ExpectOnlyMessage(kJapanese, "QZ-7H Programmer");
  ASSERT_EQ(test_seams.messages.size(), 1U);
  EXPECT_EQ(test_seams.messages[0].icon, Icon::kStop);
  EXPECT_EQ(write_.ended, -1);
  EXPECT_FALSE(write_.polling);
  EXPECT_TRUE(line_.sent.empty());
}

TEST_F(CloneWriteErrors, OnlyVersionType1IsRefused) {
  for (const std::uint8_t type : {std::uint8_t{0}, std::uint8_t{2}, std::uint8_t{3},
                                  std::uint8_t{0x81}, std::uint8_t{0xFF}}) {
    WriteTemplate(type);
    Open();
    line_.sent.clear();
    Start();
    EXPECT_TRUE(test_seams.messages.empty());
    ASSERT_EQ(line_.sent.size(), 10U);
    EXPECT_EQ(line_.sent[8], type);
  }
}

TEST_F(CloneWriteErrors, ADocumentOfTheJapaneseVersionIsNotAskedForItsType) {
  working_copy_[3068] = 1;
  Start();
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_EQ(line_.sent.size(), 10U);
}

TEST_F(CloneWriteErrors, AWrongAnswerToTheHeaderCanOnlyBeCancelledAfterRetry) {
  Start();
  Tick();
  test_seams.answers = {Answer::kRetry};
  ArriveAndTick({0x15, 0x06});
  ExpectAcknowledgeError();
  ExpectDeadEnd();
  ArriveAndTick({0x06});
  Start();
  EXPECT_EQ(line_.sent.size(), 10U);
  CancelCloneWrite(write_);
  EXPECT_EQ(write_.ended, -1);
}

TEST_F(CloneWriteErrors, AWrongAnswerToTheHeaderEndsTheSendWithCancel) {
  Start();
  Tick();
  test_seams.answers = {Answer::kCancel};
  ArriveAndTick({0xFF});
  ExpectAcknowledgeError();
  EXPECT_EQ(write_.ended, -1);
  EXPECT_FALSE(write_.polling);
  EXPECT_EQ(line_.event_restarts, 1);
  EXPECT_EQ(line_.sent.size(), 10U);  // no abort byte either
}

TEST_F(CloneWriteErrors, AWrongAnswerToTheFirstBlockIsAnErrorToo) {
  for (const Answer answer : {Answer::kRetry, Answer::kCancel}) {
    test_seams = TestSeams{};
    line_.sent.clear();
    Open();
    Start();
    Tick();
    ArriveAndTick({0x06});
    test_seams.answers = {answer};
    Arrive({0x07});
    Notify();
    ExpectAcknowledgeError();
    EXPECT_EQ(IsOver(), answer == Answer::kCancel);
    EXPECT_FALSE(write_.can_start);
    EXPECT_EQ(line_.sent.size(), 26U);
  }
}

TEST_F(CloneWriteErrors, AWrongAnswerToTheLastBlockKeepsTheChecksumBack) {
  SendAllBlocks();
  Arrive(Bytes(16, 0x5C));
  test_seams.answers = {Answer::kCancel};
  ArriveAndTick({0x15});
  ExpectAcknowledgeError();
  EXPECT_EQ(write_.ended, -1);
  EXPECT_EQ(line_.sent.size(), 8122U);
}

TEST_F(CloneWriteErrors, AWrongAnswerToTheLastBlockCanOnlyBeCancelledAfterRetry) {
  SendAllBlocks();
  Arrive(Bytes(16, 0x5C));
  test_seams.answers = {Answer::kRetry};
  ArriveAndTick({0x15});
  ExpectAcknowledgeError();
  ExpectDeadEnd();
  EXPECT_EQ(line_.sent.size(), 8122U);
}

// Nothing counts the countdown down, on purpose, so that only a test's hand brings it to 0: while
// the radio's answer to the first block is awaited, and between that answer and the next block.
class ResponseTimeOut : public CloneWriteErrors, public testing::WithParamInterface<int> {
 protected:
  void SetUp() override {
    Start();
    Tick();
    ArriveAndTick({0x06});
    ASSERT_EQ(line_.sent.size(), 26U);
    if (GetParam() == CloneWrite::kSendBlock) {
      Arrive({0x06});
      StepCloneWrite(write_, line_);
    }
    ASSERT_EQ(write_.phase, GetParam());
    write_.response_countdown = 0;
  }
};

TEST_P(ResponseTimeOut, IsShownOnATickAndTheUserMayStartAgain) {
  Tick();
  ExpectOnlyMessage("Timeout waiting for QZ-7 response", "Communications Error");
  EXPECT_EQ(write_.phase, CloneWrite::kIdle);
  EXPECT_EQ(write_.blocks_sent, 0);
  EXPECT_EQ(write_.meter.percent, 0);
  EXPECT_TRUE(write_.can_start);
  EXPECT_TRUE(write_.polling);
  EXPECT_FALSE(IsOver());
  EXPECT_EQ(line_.purges.back(), Queues::kBoth);
  EXPECT_EQ(line_.event_restarts, 2);
  EXPECT_EQ(line_.sent.size(), 26U);
}

TEST_P(ResponseTimeOut, LeavesAWriteThatCanBeStartedAgain) {
  Tick();
  line_.sent.clear();
  Start();
  Tick();
  ArriveAndTick({0x06});
  ArriveAndTick({0x06});
  ASSERT_EQ(line_.sent.size(), 8123U);
  line_.sent.pop_back();
  EXPECT_EQ(FirstDifference(line_.sent, ExpectedBlock()), -1);
  Tick();
  EXPECT_EQ(write_.ended, 0);
}

TEST_P(ResponseTimeOut, IsNotShownOnANotification) {
  Notify();
  EXPECT_TRUE(test_seams.messages.empty());
}

INSTANTIATE_TEST_SUITE_P(EveryPhase, ResponseTimeOut,
                         testing::Values(CloneWrite::kSendBlock, CloneWrite::kBlockEchoed),
                         [](const testing::TestParamInfo<int>& place) {
                           return "Phase" + std::to_string(place.param);
                         });

TEST_F(CloneWriteErrors, NoTimeOutIsShownWhileAnEchoIsAwaited) {
  line_.echo = false;
  Start();
  write_.response_countdown = 0;
  Tick();
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_EQ(write_.phase, CloneWrite::kWaitEcho);
}

// A device that has gone away takes nothing and gives nothing. It is told once, and only Cancel is
// left.
class VanishedPort : public CloneWriteErrors {
 protected:
  void ExpectToldOnceAndNoSuccess() {
    line_.failed = true;
    for (int n = 0; n < 1000 && write_.polling; ++n) {
      TickCloneWrite(write_, line_);
      AnswerQuestions();
      Notify();
    }
    ExpectOnlyMessage("ERROR", "Read Error");
    EXPECT_FALSE(IsOver());
    EXPECT_TRUE(line_.IsLost());
    CancelCloneWrite(write_);
    EXPECT_EQ(write_.ended, -1);
  }
};

TEST_F(VanishedPort, BeforeTheStartIsNeverTakenForSuccess) {
  line_.failed = true;
  Start();
  EXPECT_FALSE(write_.can_start);
  ExpectToldOnceAndNoSuccess();
}

TEST_F(VanishedPort, InTheHeaderIsNeverTakenForSuccess) {
  Start();
  ExpectToldOnceAndNoSuccess();
}

TEST_F(VanishedPort, BeforeAFollowingBlockIsNeverTakenForSuccess) {
  Start();
  Tick();
  ArriveAndTick({0x06});
  Arrive({0x06});
  StepCloneWrite(write_, line_);
  ASSERT_EQ(write_.phase, CloneWrite::kSendBlock);
  ExpectToldOnceAndNoSuccess();
  EXPECT_EQ(line_.sent.size(), 26U);
}

TEST_F(VanishedPort, BeforeTheChecksumIsNeverTakenForSuccess) {
  SendAllBlocks();
  Arrive(Bytes(16, 0x5C));
  while (write_.phase != CloneWrite::kBlockEchoed) {
    ASSERT_TRUE(StepCloneWrite(write_, line_));
  }
  ExpectToldOnceAndNoSuccess();
  EXPECT_EQ(line_.sent.size(), 8122U);
}

TEST_F(CloneWriteErrors, OneFailedReadIsToldAndTheSendGoesOn) {
  Start();
  line_.reads_to_fail = 1;
  Tick();
  ExpectOnlyMessage("ERROR", "Read Error");
  ArriveAndTick({0x06});
  ArriveAndTick({0x06});
  Tick();
  EXPECT_EQ(write_.ended, 0);
  EXPECT_EQ(line_.sent.size(), 8123U);
}

TEST_F(CloneWriteErrors, SendsWhatAShortWriteDidNotTakeLater) {
  line_.write_limit = 5;
  Start();
  Tick();
  Arrive({0x06});
  while (write_.blocks_sent < 2) {
    Tick();
    if (write_.blocks_sent == 1 && write_.phase == CloneWrite::kBlockEchoed) {
      ASSERT_EQ(line_.sent.size(), 26U);
      Arrive({0x06});
    }
  }
  for (int n = 0; n < 4 * 507 && !IsOver(); ++n) {
    Tick();
  }
  EXPECT_EQ(write_.ended, 0);
  ASSERT_EQ(line_.sent.size(), 8123U);
  line_.sent.pop_back();
  EXPECT_EQ(FirstDifference(line_.sent, ExpectedBlock()), -1);
}

TEST_F(CloneWriteErrors, TakesNoOtherBytesForTheEchoOfWhatWasNotSent) {
  Start();
  Tick();
  line_.write_limit = 5;
  ArriveAndTick({0x06});
  line_.write_limit = 0;
  ASSERT_EQ(line_.sent.size(), 20U);
  ArriveAndTick(Bytes(6, 0x5C));
  EXPECT_EQ(write_.echo_received, 16);
  EXPECT_EQ(write_.phase, CloneWrite::kWaitEcho);
}

TEST_F(CloneWriteErrors, WaitsForTheEchoOfAHeaderThatTheLineDidNotTake) {
  line_.write_limit = 0;
  Start();
  EXPECT_EQ(write_.echo_expected, 10);
  Tick();
  EXPECT_EQ(write_.phase, CloneWrite::kWaitEcho);
}

TEST_F(CloneWriteErrors, SendsAChecksumThatTheLineDidNotTakeAgain) {
  SendAllBlocks();
  line_.write_limit = 0;
  EchoAndTick(16);
  Tick();
  EXPECT_EQ(write_.phase, CloneWrite::kBlockEchoed);
  EXPECT_FALSE(IsOver());
  line_.write_limit = 1;
  Tick();
  EXPECT_EQ(line_.sent.size(), 8123U);
  EXPECT_EQ(write_.phase, CloneWrite::kFinished);
}

TEST_F(CloneWriteErrors, NoTimeOutIsShownBeforeTheStart) {
  ASSERT_EQ(write_.response_countdown, 0);
  Tick();
  EXPECT_TRUE(test_seams.messages.empty());
}

}  // namespace
}  // namespace qz7
