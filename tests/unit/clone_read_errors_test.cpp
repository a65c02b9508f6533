#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "core/link/clone_read.h"
#include "tests/unit/exchange_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

class CloneReadErrors : public ListeningRead {
 protected:
  // How often the exchange was started afresh since it opened.
  int Restarts() const { return line_.event_restarts - 1; }

  void ExpectRestarted() {
    EXPECT_EQ(Restarts(), 1);
    EXPECT_EQ(line_.purges, (std::vector<Queues>{Queues::kBoth, Queues::kBoth}));
    EXPECT_TRUE(read_.polling);
    EXPECT_EQ(read_.meter.percent, 0);
    EXPECT_FALSE(IsOver());
  }

  void ExpectGivenUp() {
    EXPECT_EQ(read_.ended, -1);
    EXPECT_FALSE(read_.polling);
    EXPECT_EQ(Restarts(), 0);
  }
};

TEST_F(CloneReadErrors, The26thSilentTickTimesOut) {
  ReceiveMemory(3000);
  Ticks(25);
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_EQ(read_.ticks_left, 0);
  Tick();
  ExpectRetryBox("Receive Timeout");
}

TEST_F(CloneReadErrors, SilenceBehindTheHeadersAcknowledgementTimesOut) {
  ReceiveMemory(10);
  Ticks(25);
  EXPECT_TRUE(test_seams.messages.empty());
  Tick();
  ExpectRetryBox("Receive Timeout");
}

TEST_F(CloneReadErrors, AnyByteStartsTheCountdownAgain) {
  ReceiveMemory(3000);
  Ticks(25);
  ArriveMemory(3000, 3001);
  Notify();
  EXPECT_EQ(read_.ticks_left, 25);
  Ticks(25);
  EXPECT_TRUE(test_seams.messages.empty());
  Tick();
  ExpectRetryBox("Receive Timeout");
}

TEST_F(CloneReadErrors, AByteThatComesWithTheLastTickIsInTime) {
  ReceiveMemory(3000);
  Ticks(24);
  ArriveMemory(3000, 3001);
  Tick();
  EXPECT_EQ(read_.ticks_left, 25);
  EXPECT_EQ(read_.position, 3001);
}

TEST_F(CloneReadErrors, AByteThatOnlyTheTickFindsIsTooLateOnceTheCountIs0) {
  ReceiveMemory(3000);
  Ticks(25);
  ArriveMemory(3000, 3001);
  Tick();
  ExpectRetryBox("Receive Timeout");
}

TEST_F(CloneReadErrors, NotificationsDoNotCountTheTimeOut) {
  ReceiveMemory(3000);
  for (int n = 0; n < 1000; ++n) {
    Notify();
  }
  EXPECT_EQ(read_.ticks_left, 25);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(CloneReadErrors, ARadioThatNeverStartsDoesNotTimeOut) {
  Ticks(1000);
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_TRUE(read_.polling);
}

TEST_F(CloneReadErrors, AHalfHeaderDoesNotTimeOut) {
  ArriveMemory(0, 9);
  Ticks(1000);
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_EQ(read_.position, 9);
}

TEST_F(CloneReadErrors, AnAcknowledgementThatDoesNotComeBackDoesNotTimeOut) {
  WaitForReadBack();
  Ticks(1000);
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_EQ(read_.phase, CloneRead::kReadBackAck);
}

TEST_F(CloneReadErrors, AMissingChecksumDoesNotTimeOut) {
  ReceiveMemory(8122);
  Ticks(1000);
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_EQ(read_.phase, CloneRead::kWaitChecksum);
}

TEST_F(CloneReadErrors, AFailedReadIsToldCountsAsNoByteAndTheReadGoesOn) {
  ReceiveMemory(3000);
  line_.reads_to_fail = 1;
  EXPECT_FALSE(StepCloneRead(read_, line_));
  EXPECT_EQ(read_.position, 3000);
  EXPECT_EQ(read_.phase, CloneRead::kData);
  ArriveMemory(3000, 8122);
  Arrive({ChecksumOf(radio_)});
  AnswerQuestions();
  ASSERT_EQ(ShownTexts(), std::vector<std::string>{"ERROR"});
  EXPECT_EQ(test_seams.messages[0].caption, "Read Error");
  EXPECT_EQ(test_seams.messages[0].buttons, Buttons::kOk);
  EXPECT_EQ(read_.ended, 0);
  EXPECT_EQ(block_.Content(), radio_);
}

TEST_F(CloneReadErrors, FailedReadsThatDoNotFollowEachOtherAreEachTold) {
  ReceiveMemory(3000);
  for (int n = 0; n < 3; ++n) {
    line_.reads_to_fail = 1;
    Tick();
    Tick();
  }
  EXPECT_EQ(ShownTexts(), (std::vector<std::string>{"ERROR", "ERROR", "ERROR"}));
  EXPECT_FALSE(line_.IsLost());
}

TEST_F(CloneReadErrors, ASecondFailedReadInARowLosesThePortWithoutAnotherBox) {
  ReceiveMemory(3000);
  line_.failed = true;
  for (int n = 0; n < 1000; ++n) {
    Tick();
    Notify();
  }
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"ERROR"});
  EXPECT_TRUE(line_.IsLost());
  EXPECT_FALSE(line_.IsOpen());
  EXPECT_FALSE(IsOver());
  CancelCloneRead(read_);
  EXPECT_EQ(read_.ended, -1);
}

TEST_F(CloneReadErrors, RetryAfterATimeOutListensForAHeaderAndKeepsThePosition) {
  ReceiveMemory(3000);
  const Bytes sent = line_.sent;
  test_seams.answers = {Answer::kRetry};
  Ticks(26);
  ExpectRestarted();
  EXPECT_EQ(read_.phase, CloneRead::kWaitHeader);
  EXPECT_EQ(read_.position, 3000);
  EXPECT_EQ(line_.sent, sent);
}

TEST_F(CloneReadErrors, AHeaderAfterARetriedTimeOutIsNotAcknowledged) {
  ReceiveMemory(3000);
  test_seams.answers = {Answer::kRetry};
  Ticks(26);
  ArriveMemory(0, 10);
  Notify();
  EXPECT_EQ(read_.phase, CloneRead::kWaitHeader);
  EXPECT_EQ(read_.position, 3010);
  EXPECT_EQ(read_.blocks_done, 0);
  EXPECT_EQ(line_.sent.size(), 2U);
  EXPECT_TRUE(std::equal(radio_.begin(), radio_.begin() + 10, block_.Span().begin() + 3000));
  Ticks(1000);
  EXPECT_EQ(test_seams.messages.size(), 1U);
}

TEST_F(CloneReadErrors, CancelAfterATimeOutTellsTheRadioAndEnds) {
  ReceiveMemory(3000);
  test_seams.answers = {Answer::kCancel};
  Ticks(26);
  ExpectGivenUp();
  EXPECT_EQ(line_.sent, (Bytes{0x06, 0x06, 0xFF}));
  EXPECT_EQ(read_.phase, CloneRead::kWaitHeader);
  EXPECT_EQ(read_.position, 0);
  EXPECT_EQ(read_.blocks_done, 0);
}

TEST_F(CloneReadErrors, AnotherByteThanTheAcknowledgementIsAnError) {
  for (const std::uint8_t wrong : {std::uint8_t{0x00}, std::uint8_t{0x0A}, std::uint8_t{0x86}}) {
    test_seams = TestSeams{};
    Open();
    WaitForReadBack();
    Arrive({wrong});
    Step();
    ExpectRetryBox("Acknowledge Error");
  }
}

TEST_F(CloneReadErrors, RetryAfterAnAcknowledgeErrorTakesDataFromTheStartOfTheBlock) {
  WaitForReadBack();
  Arrive({0x15, 0x31, 0x32});
  test_seams.answers = {Answer::kRetry};
  Step();
  ExpectRestarted();
  EXPECT_EQ(read_.phase, CloneRead::kData);
  EXPECT_EQ(read_.position, 0);
  EXPECT_EQ(read_.ticks_left, 25);
  EXPECT_EQ(line_.sent, (Bytes{0x06, 0xFF}));
  Arrive({0x41, 0x42, 0x43});
  Notify();
  EXPECT_EQ(read_.position, 3);
  EXPECT_EQ(Bytes(block_.Span().begin(), block_.Span().begin() + 3), (Bytes{0x41, 0x42, 0x43}));
}

TEST_F(CloneReadErrors, TheAbortOfARetriedAcknowledgeErrorDoesNotComeBackAsData) {
  WaitForReadBack();
  line_.echo = true;
  Arrive({0x15});
  test_seams.answers = {Answer::kRetry};
  Notify();
  EXPECT_EQ(line_.sent, (Bytes{0x06, 0xFF}));
  EXPECT_EQ(read_.phase, CloneRead::kData);
  EXPECT_EQ(read_.position, 0);
}

TEST_F(CloneReadErrors, RetryAfterAnAcknowledgeErrorTimesOutLikeOtherData) {
  WaitForReadBack();
  Arrive({0x15});
  test_seams.answers = {Answer::kRetry};
  Step();
  Ticks(25);
  EXPECT_EQ(test_seams.messages.size(), 1U);
  Tick();
  EXPECT_EQ(ShownTexts(), (std::vector<std::string>{"Acknowledge Error", "Receive Timeout"}));
}

TEST_F(CloneReadErrors, CancelAfterAnAcknowledgeErrorTellsTheRadioAndEnds) {
  WaitForReadBack();
  Arrive({0x15});
  test_seams.answers = {Answer::kCancel};
  Step();
  ExpectGivenUp();
  EXPECT_EQ(read_.phase, CloneRead::kWaitHeader);
  EXPECT_EQ(read_.position, 0);
  EXPECT_EQ(read_.ticks_left, 0);
  EXPECT_EQ(line_.sent, (Bytes{0x06, 0xFF}));
}

TEST_F(CloneReadErrors, TheFirstBlocksAcknowledgementCanComeBackWrongToo) {
  WaitForReadBack();
  Arrive({0x06});
  Step();
  ArriveMemory(10, 26);
  Step();
  Arrive({0x07});
  test_seams.answers = {Answer::kRetry};
  Step();
  ExpectRetryBox("Acknowledge Error");
  ExpectRestarted();
  EXPECT_EQ(line_.sent, (Bytes{0x06, 0x06, 0xFF}));
  EXPECT_EQ(read_.phase, CloneRead::kData);
  EXPECT_EQ(read_.position, 0);
}

TEST_F(CloneReadErrors, AChecksumThatIsOffByOneIsAnError) {
  for (const int off : {-1, 1}) {
    test_seams = TestSeams{};
    line_.sent.clear();
    Open();
    ReceiveMemory(8122);
    Arrive({static_cast<std::uint8_t>(ChecksumOf(radio_) + off)});
    Notify();
    ExpectRetryBox("Checksum Error");
    EXPECT_EQ(read_.ended, -1);
  }
}

TEST_F(CloneReadErrors, RetryAfterAChecksumErrorTakesAnotherChecksum) {
  ReceiveMemory(8122);
  Arrive({static_cast<std::uint8_t>(ChecksumOf(radio_) + 1), 0x55});
  test_seams.answers = {Answer::kRetry};
  Step();
  ExpectRetryBox("Checksum Error");
  ExpectRestarted();
  EXPECT_EQ(read_.phase, CloneRead::kWaitChecksum);
  EXPECT_EQ(line_.sent, (Bytes{0x06, 0x06}));
  Arrive({ChecksumOf(radio_)});
  Notify();
  EXPECT_EQ(read_.ended, 0);
  EXPECT_EQ(line_.sent, (Bytes{0x06, 0x06, 0x06}));
  EXPECT_EQ(block_.Content(), radio_);
}

TEST_F(CloneReadErrors, CancelAfterAChecksumErrorTellsTheRadioAndEnds) {
  ReceiveMemory(8122);
  Arrive({static_cast<std::uint8_t>(ChecksumOf(radio_) - 1)});
  test_seams.answers = {Answer::kCancel};
  Notify();
  ExpectGivenUp();
  EXPECT_EQ(read_.phase, CloneRead::kWaitHeader);
  EXPECT_EQ(read_.position, 0);
  EXPECT_EQ(line_.sent, (Bytes{0x06, 0x06, 0xFF}));
}

// Where the line errors are found: the phase, and the bytes received until then.
struct Place {
  int phase;
  int position;
};

class BadReceiveData : public CloneReadErrors, public testing::WithParamInterface<Place> {
 protected:
  void SetUp() override {
    if (GetParam().phase == CloneRead::kReadBackAck) {
      WaitForReadBack();
    } else {
      ReceiveMemory(static_cast<std::size_t>(GetParam().position));
    }
    ASSERT_EQ(read_.phase, GetParam().phase);
    ASSERT_EQ(read_.position, GetParam().position);
    sent_ = line_.sent;
    line_.line_errors = 4;
  }

  Bytes sent_;
};

TEST_P(BadReceiveData, RetryLeavesTheTimerStopped) {
  test_seams.answers = {Answer::kRetry};
  Step();
  ExpectRetryBox("Bad Receive Data");
  EXPECT_FALSE(read_.polling);
  EXPECT_FALSE(IsOver());
  EXPECT_EQ(Restarts(), 0);
  EXPECT_EQ(read_.phase, CloneRead::kWaitHeader);
  EXPECT_EQ(line_.sent, sent_);
  CancelCloneRead(read_);
  EXPECT_EQ(read_.ended, -1);
}

TEST_P(BadReceiveData, CancelListensAgainAndKeepsThePosition) {
  test_seams.answers = {Answer::kCancel};
  Step();
  ExpectRetryBox("Bad Receive Data");
  ExpectRestarted();
  EXPECT_EQ(read_.phase, CloneRead::kWaitHeader);
  EXPECT_EQ(read_.position, GetParam().position);
  EXPECT_EQ(line_.sent, sent_);
}

TEST_P(BadReceiveData, IsFoundOnATick) {
  Tick();
  ExpectRetryBox("Bad Receive Data");
}

TEST_P(BadReceiveData, IsFoundOnANotification) {
  Notify();
  ExpectRetryBox("Bad Receive Data");
}

INSTANTIATE_TEST_SUITE_P(EveryPhase, BadReceiveData,
                         testing::Values(Place{CloneRead::kReadBackAck, 10},
                                         Place{CloneRead::kData, 26},
                                         Place{CloneRead::kWaitChecksum, 8122}),
                         [](const testing::TestParamInfo<Place>& place) {
                           return "Phase" + std::to_string(place.param.phase);
                         });

}  // namespace
}  // namespace qz7
