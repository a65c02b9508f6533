#include "core/link/clone_write.h"

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

#include "tests/unit/clone_write_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using CloneWriteTest = OpenedWrite;

TEST_F(CloneWriteTest, OpensIdleWithFreshQueues) {
  EXPECT_EQ(write_.phase, CloneWrite::kIdle);
  EXPECT_EQ(write_.bytes_confirmed, 0);
  EXPECT_TRUE(write_.can_start);
  EXPECT_TRUE(write_.polling);
  EXPECT_FALSE(IsOver());
  EXPECT_EQ(line_.purges, std::vector<Queues>{Queues::kBoth});
  EXPECT_EQ(line_.event_restarts, 1);
  EXPECT_TRUE(line_.sent.empty());
  EXPECT_EQ(write_.meter.total, 8122);
  EXPECT_EQ(write_.meter.percent, 0);
}

TEST_F(CloneWriteTest, OpensAfreshAfterAnEarlierWrite) {
  Start();
  Tick();
  CancelCloneWrite(write_);
  Open();
  EXPECT_EQ(write_.phase, CloneWrite::kIdle);
  EXPECT_EQ(write_.bytes_confirmed, 0);
  EXPECT_TRUE(write_.can_start);
  EXPECT_TRUE(write_.polling);
  EXPECT_FALSE(IsOver());
}

TEST_F(CloneWriteTest, SendsNothingBeforeTheUserStartsIt) {
  Arrive({0x06, 0x06, 0x06});
  for (int n = 0; n < 1000; ++n) {
    Tick();
    Notify();
  }
  EXPECT_TRUE(line_.sent.empty());
  EXPECT_EQ(write_.phase, CloneWrite::kIdle);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(CloneWriteTest, StartsWithTheTemplatesHeaderByteByByte) {
  Start();
  EXPECT_EQ(line_.sent, (Bytes{0x0A, 0x11, 0x12, 0x13, 0x14, 0x15, 0x61, 0x71, 0x00, 0x19}));
  EXPECT_EQ(line_.write_sizes, std::vector<std::size_t>(10, 1));
  EXPECT_EQ(write_.phase, CloneWrite::kWaitEcho);
  EXPECT_EQ(write_.echo_expected, 10);
  EXPECT_EQ(write_.blocks_sent, 0);
  EXPECT_EQ(write_.response_countdown, 10);
  EXPECT_FALSE(write_.can_start);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(CloneWriteTest, DiscardsTheTransmitQueueBeforeTheHeader) {
  Start();
  EXPECT_EQ(line_.purges, (std::vector<Queues>{Queues::kBoth, Queues::kTransmit}));
}

TEST_F(CloneWriteTest, AwaitsAnAnswerBehindTheHeader) {
  Start();
  Tick();
  EXPECT_EQ(write_.phase, CloneWrite::kBlockEchoed);
  EXPECT_EQ(write_.bytes_confirmed, 10);
  EXPECT_EQ(line_.sent.size(), 10U);
  for (int n = 0; n < 100; ++n) {
    Tick();
  }
  EXPECT_EQ(line_.sent.size(), 10U);
}

TEST_F(CloneWriteTest, SendsTheFirstBlockAfterTheAnswerAndAwaitsAnother) {
  Start();
  Tick();
  ArriveAndTick({0x06});
  ASSERT_EQ(line_.sent.size(), 26U);
  EXPECT_EQ(line_.write_sizes.back(), 16U);
  EXPECT_EQ(write_.blocks_sent, 1);
  EXPECT_EQ(write_.phase, CloneWrite::kBlockEchoed);
  EXPECT_EQ(write_.bytes_confirmed, 26);
  for (int n = 0; n < 100; ++n) {
    Tick();
  }
  EXPECT_EQ(line_.sent.size(), 26U);
}

TEST_F(CloneWriteTest, SendsTheOtherBlocksBackToBackWithoutAnswers) {
  Start();
  Tick();
  ArriveAndTick({0x06});
  ArriveAndTick({0x06});
  EXPECT_EQ(write_.phase, CloneWrite::kFinished);
  EXPECT_EQ(line_.sent.size(), 8123U);
}

TEST_F(CloneWriteTest, PutsHeaderBlocksAndChecksumOnTheLine) {
  Start();
  Tick();
  ArriveAndTick({0x06});
  ArriveAndTick({0x06});
  Bytes expected = ExpectedBlock();
  const unsigned sum = std::accumulate(expected.begin(), expected.end(), 0U);
  expected.push_back(static_cast<std::uint8_t>(sum % 256));
  EXPECT_EQ(line_.sent.size(), expected.size());
  EXPECT_EQ(FirstDifference(line_.sent, expected), -1);
  std::vector<std::size_t> sizes(10, 1);
  sizes.insert(sizes.end(), 507, 16);
  sizes.push_back(1);
  EXPECT_EQ(line_.write_sizes, sizes);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(CloneWriteTest, EndsOnATickAfterTheChecksum) {
  Start();
  Tick();
  ArriveAndTick({0x06});
  ArriveAndTick({0x06});
  EXPECT_FALSE(IsOver());
  Tick();
  EXPECT_EQ(write_.ended, 0);
  EXPECT_FALSE(write_.polling);
}

TEST_F(CloneWriteTest, DoesNotEndOnANotification) {
  Start();
  Notify();
  Arrive({0x06});
  Notify();
  Arrive({0x06});
  Notify();
  EXPECT_EQ(write_.phase, CloneWrite::kFinished);
  EXPECT_FALSE(IsOver());
  Arrive({0x06});
  for (int n = 0; n < 10; ++n) {
    Notify();
  }
  EXPECT_FALSE(IsOver());
  EXPECT_TRUE(write_.polling);
  Tick();
  EXPECT_EQ(write_.ended, 0);
}

TEST_F(CloneWriteTest, DiscardsTheTransmitQueueWithItsLastStep) {
  Start();
  Tick();
  ArriveAndTick({0x06});
  ArriveAndTick({0x06});
  const std::size_t purges = line_.purges.size();
  StepCloneWrite(write_, line_);
  EXPECT_EQ(write_.ended, 0);
  ASSERT_EQ(line_.purges.size(), purges + 1);
  EXPECT_EQ(line_.purges.back(), Queues::kTransmit);
}

TEST_F(CloneWriteTest, EndsItsMeterAtTheBlockWithoutTheChecksum) {
  Start();
  Tick();
  ArriveAndTick({0x06});
  ArriveAndTick({0x06});
  EXPECT_EQ(write_.bytes_confirmed, 8122);
  EXPECT_EQ(write_.meter.count, 8122);
  EXPECT_EQ(write_.meter.percent, 100);
  Tick();
  EXPECT_EQ(write_.bytes_confirmed, 8122);
}

TEST_F(CloneWriteTest, ShowsThePercentOfTheBytesThatCameBack) {
  line_.echo = false;
  Start();
  EchoAndTick(10);
  ArriveAndTick({0x06});
  EchoAndTick(16);
  ArriveAndTick({0x06});
  for (int n = 1; n < 254; ++n) {
    EchoAndTick(16);
  }
  EXPECT_EQ(write_.bytes_confirmed, 10 + 254 * 16);
  EXPECT_EQ(write_.meter.percent, 50);
}

TEST_F(CloneWriteTest, WaitsForTheWholeEchoOfTheHeader) {
  line_.echo = false;
  Start();
  EchoAndTick(9);
  EXPECT_EQ(write_.phase, CloneWrite::kWaitEcho);
  EXPECT_EQ(write_.echo_received, 9);
  EXPECT_EQ(write_.bytes_confirmed, 0);
  EchoAndTick(1);
  EXPECT_EQ(write_.phase, CloneWrite::kBlockEchoed);
  EXPECT_EQ(write_.echo_received, 0);
  EXPECT_EQ(write_.bytes_confirmed, 10);
}

TEST_F(CloneWriteTest, SendsEachBlockOnlyAfterTheEchoOfTheOneBefore) {
  line_.echo = false;
  Start();
  EchoAndTick(10);
  ArriveAndTick({0x06});
  EXPECT_EQ(line_.sent.size(), 26U);
  EchoAndTick(16);
  ArriveAndTick({0x06});
  for (std::size_t sent = 42; sent < 8122; sent += 16) {
    ASSERT_EQ(line_.sent.size(), sent);
    EchoAndTick(15);
    ASSERT_EQ(line_.sent.size(), sent);
    EchoAndTick(1);
  }
  EXPECT_EQ(line_.sent.size(), 8122U);
  EXPECT_EQ(FirstDifference(line_.sent, ExpectedBlock()), -1);
}

TEST_F(CloneWriteTest, DoesNotTakeAnAnswerForAnEcho) {
  line_.echo = false;
  Start();
  Arrive(Bytes(9, 0x5C));
  ArriveAndTick({0x06});
  EXPECT_EQ(write_.phase, CloneWrite::kBlockEchoed);
  EXPECT_EQ(line_.sent.size(), 10U);
}

TEST_F(CloneWriteTest, TakesAnAnswerThatWaitsBehindTheLastBlock) {
  SendAllBlocks();
  Arrive(Bytes(16, 0x5C));
  ArriveAndTick({0x06});
  EXPECT_TRUE(line_.incoming.empty());
  EXPECT_EQ(write_.phase, CloneWrite::kFinished);
  EXPECT_EQ(line_.sent.size(), 8123U);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(CloneWriteTest, SendsTheChecksumWithoutTheLastAnswer) {
  SendAllBlocks();
  EchoAndTick(16);
  EXPECT_EQ(write_.phase, CloneWrite::kFinished);
  EXPECT_EQ(line_.sent.size(), 8123U);
  Tick();
  EXPECT_EQ(write_.ended, 0);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(CloneWriteTest, TakesItsEchoInPiecesOfOneByte) {
  line_.read_limit = 1;
  Start();
  Tick();
  ArriveAndTick({0x06});
  ArriveAndTick({0x06});
  EXPECT_EQ(write_.phase, CloneWrite::kFinished);
  EXPECT_EQ(line_.sent.size(), 8123U);
  EXPECT_EQ(write_.bytes_confirmed, 8122);
}

TEST_F(CloneWriteTest, IgnoresASecondStart) {
  Start();
  Tick();
  const auto before = line_.sent;
  Start();
  StartCloneWrite(write_, line_, "");
  StartCloneWrite(write_, line_, folder_.File("missing.tpl"));
  EXPECT_EQ(line_.sent, before);
  EXPECT_EQ(line_.purges.size(), 2U);
  EXPECT_EQ(write_.phase, CloneWrite::kBlockEchoed);
  EXPECT_FALSE(write_.can_start);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(CloneWriteTest, StartsOnlyWhileItIsIdle) {
  const auto expect_no_start_in = [this](int phase) {
    const std::size_t sent = line_.sent.size();
    ASSERT_EQ(write_.phase, phase);
    Start();
    EXPECT_EQ(write_.phase, phase);
    EXPECT_EQ(line_.sent.size(), sent);
  };
  Start();
  expect_no_start_in(CloneWrite::kWaitEcho);
  Tick();
  expect_no_start_in(CloneWrite::kBlockEchoed);
  Arrive({0x06});
  StepCloneWrite(write_, line_);
  expect_no_start_in(CloneWrite::kSendBlock);
  Tick();
  ArriveAndTick({0x06});
  expect_no_start_in(CloneWrite::kFinished);
}

TEST_F(CloneWriteTest, WaitsWithoutEndForARadioThatStopsAnswering) {
  line_.echo = false;
  Start();
  for (int n = 0; n < 1000; ++n) {
    Tick();
  }
  EXPECT_EQ(write_.phase, CloneWrite::kWaitEcho);
  EchoAndTick(10);
  for (int n = 0; n < 1000; ++n) {
    Tick();
  }
  EXPECT_EQ(write_.phase, CloneWrite::kBlockEchoed);
  EXPECT_EQ(write_.response_countdown, 10);
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_FALSE(IsOver());
}

TEST_F(CloneWriteTest, LoadsTheCountdownWithEveryBlock) {
  Start();
  Tick();
  write_.response_countdown = 3;
  Arrive({0x06});
  Notify();
  EXPECT_EQ(write_.blocks_sent, 1);
  EXPECT_EQ(write_.response_countdown, 10);
}

TEST_F(CloneWriteTest, TakesNoNoticeOfLineErrors) {
  Start();
  line_.line_errors = 4;
  Tick();
  ArriveAndTick({0x06});
  ArriveAndTick({0x06});
  Tick();
  EXPECT_EQ(write_.ended, 0);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(CloneWriteTest, AwaitsTheRestOfAnEchoOrOneByte) {
  line_.echo = false;
  Start();
  EXPECT_EQ(BytesAwaited(write_), 10U);
  EchoAndTick(3);
  EXPECT_EQ(BytesAwaited(write_), 7U);
  EchoAndTick(7);
  EXPECT_EQ(BytesAwaited(write_), 1U);
  ArriveAndTick({0x06});
  EXPECT_EQ(BytesAwaited(write_), 16U);
}

TEST_F(CloneWriteTest, CancelSendsNothingAndEndsWithMinus1) {
  Start();
  Tick();
  CancelCloneWrite(write_);
  EXPECT_EQ(write_.ended, -1);
  EXPECT_FALSE(write_.polling);
  EXPECT_EQ(line_.sent.size(), 10U);
}

}  // namespace
}  // namespace qz7
