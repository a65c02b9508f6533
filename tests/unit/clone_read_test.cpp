#include "core/link/clone_read.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "core/image/clone_image.h"
#include "tests/unit/exchange_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using CloneReadTest = ListeningRead;

TEST_F(CloneReadTest, OpensWithFreshQueuesAndWaitsForTheHeader) {
  EXPECT_EQ(read_.phase, CloneRead::kWaitHeader);
  EXPECT_EQ(read_.position, 0);
  EXPECT_TRUE(read_.polling);
  EXPECT_FALSE(IsOver());
  EXPECT_EQ(line_.purges, std::vector<Queues>{Queues::kBoth});
  EXPECT_EQ(line_.event_restarts, 1);
  EXPECT_TRUE(line_.sent.empty());
  EXPECT_EQ(read_.meter.total, 8122);
  EXPECT_EQ(read_.meter.percent, 0);
}

TEST_F(CloneReadTest, OpensAfreshAfterAnEarlierRead) {
  ReceiveMemory(3000);
  CancelCloneRead(read_);
  Open();
  EXPECT_EQ(read_.phase, CloneRead::kWaitHeader);
  EXPECT_EQ(read_.position, 0);
  EXPECT_EQ(read_.block_fill, 0);
  EXPECT_EQ(read_.blocks_done, 0);
  EXPECT_EQ(read_.meter.percent, 0);
  EXPECT_TRUE(read_.polling);
  EXPECT_FALSE(IsOver());
}

TEST_F(CloneReadTest, DropsWhatWasInTheQueuesWhenItOpens) {
  Arrive({0x0A, 0x0A});
  Open();
  EXPECT_TRUE(line_.incoming.empty());
}

TEST_F(CloneReadTest, FindsNothingToDoOnASilentLine) {
  EXPECT_FALSE(Step());
  EXPECT_EQ(read_.phase, CloneRead::kWaitHeader);
  EXPECT_EQ(read_.position, 0);
}

TEST_F(CloneReadTest, TakesTheHeaderByteByByte) {
  ArriveMemory(0, 10);
  for (int n = 1; n <= 9; ++n) {
    EXPECT_TRUE(Step());
    EXPECT_EQ(read_.position, n);
    EXPECT_EQ(read_.phase, CloneRead::kWaitHeader);
    EXPECT_TRUE(line_.sent.empty());
  }
  EXPECT_TRUE(Step());
  EXPECT_EQ(read_.position, 10);
  EXPECT_EQ(read_.phase, CloneRead::kReadBackAck);
  EXPECT_EQ(line_.sent, Bytes{0x06});
}

TEST_F(CloneReadTest, SkipsNoiseBeforeTheHeaderWithoutAMessage) {
  Arrive({0x00, 0xFF, 0x06, 0x0B, 0x8A});
  for (int n = 0; n < 5; ++n) {
    EXPECT_TRUE(Step());
    EXPECT_EQ(read_.position, 0);
  }
  EXPECT_TRUE(test_seams.messages.empty());
  ReceiveMemory(26);
  EXPECT_EQ(read_.position, 26);
  EXPECT_TRUE(std::equal(radio_.begin(), radio_.begin() + 26, block_.Span().begin()));
}

TEST_F(CloneReadTest, TestsOnlyTheFirstByteOfTheHeader) {
  const Bytes header = {0x0A, 0xFF, 0x00, 0x0A, 0x06, 0x0B, 0x80, 0x7F, 0x01, 0xEE};
  Arrive(header);
  Notify();
  EXPECT_EQ(line_.sent, Bytes{0x06});
  EXPECT_EQ(read_.phase, CloneRead::kData);
  EXPECT_TRUE(std::equal(header.begin(), header.end(), block_.Span().begin()));
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(CloneReadTest, StartsTheDataWhenTheAcknowledgementComesBack) {
  WaitForReadBack();
  EXPECT_FALSE(Step());
  EXPECT_EQ(read_.phase, CloneRead::kReadBackAck);
  Arrive({0x06});
  EXPECT_TRUE(Step());
  EXPECT_EQ(read_.phase, CloneRead::kData);
  EXPECT_EQ(read_.ticks_left, 25);
  EXPECT_EQ(read_.position, 10);
}

TEST_F(CloneReadTest, AcknowledgesTheFirstBlock) {
  WaitForReadBack();
  Arrive({0x06});
  Step();
  ArriveMemory(10, 26);
  EXPECT_TRUE(Step());
  EXPECT_EQ(read_.phase, CloneRead::kReadBackAck);
  EXPECT_EQ(line_.sent, (Bytes{0x06, 0x06}));
  EXPECT_EQ(read_.position, 26);
  EXPECT_EQ(read_.block_fill, 0);
  EXPECT_EQ(read_.blocks_done, 1);
}

TEST_F(CloneReadTest, WaitsForTheRestOfABlock) {
  ReceiveMemory(10);
  ArriveMemory(10, 15);
  EXPECT_TRUE(Step());
  EXPECT_EQ(read_.block_fill, 5);
  EXPECT_EQ(read_.position, 15);
  EXPECT_FALSE(Step());
  ArriveMemory(15, 40);
  EXPECT_TRUE(Step());
  EXPECT_EQ(read_.position, 26);
  EXPECT_EQ(read_.block_fill, 0);
  EXPECT_EQ(line_.incoming.size(), 14U + 1U);  // the next block, and the acknowledgement's echo
}

TEST_F(CloneReadTest, TakesOtherBlocksWithoutAnAcknowledgement) {
  ReceiveMemory(26);
  ArriveMemory(26, 42);
  EXPECT_TRUE(Step());
  EXPECT_EQ(read_.phase, CloneRead::kData);
  EXPECT_EQ(read_.position, 42);
  EXPECT_EQ(read_.block_fill, 0);
  EXPECT_EQ(read_.blocks_done, 2);
  EXPECT_EQ(line_.sent.size(), 2U);
}

TEST_F(CloneReadTest, WaitsForTheChecksumBehindTheWholeBlock) {
  ReceiveMemory(8121);
  EXPECT_EQ(read_.phase, CloneRead::kData);
  ArriveMemory(8121, 8122);
  EXPECT_TRUE(Step());
  EXPECT_EQ(read_.phase, CloneRead::kWaitChecksum);
  EXPECT_EQ(read_.position, 8122);
  EXPECT_FALSE(Step());
  EXPECT_FALSE(IsOver());
}

TEST_F(CloneReadTest, SendsExactlyTwoAcknowledgementsBeforeTheChecksum) {
  ReceiveMemory(8122);
  EXPECT_EQ(line_.sent, (Bytes{0x06, 0x06}));
}

TEST_F(CloneReadTest, EndsWith0AndAThirdAcknowledgementOnARightChecksum) {
  ReceiveMemory(8122);
  Arrive({ChecksumOf(radio_)});
  Notify();
  EXPECT_EQ(read_.ended, 0);
  EXPECT_FALSE(read_.polling);
  EXPECT_EQ(line_.sent, (Bytes{0x06, 0x06, 0x06}));
  EXPECT_EQ(block_.Content(), radio_);
  EXPECT_TRUE(block_.GuardsAreIntact());
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(CloneReadTest, SendsItsBytesAheadOfTheQueue) {
  ReceiveMemory(8122);
  Arrive({ChecksumOf(radio_)});
  Notify();
  EXPECT_EQ(line_.sent.size(), 3U);
  EXPECT_TRUE(line_.write_sizes.empty());
}

TEST_F(CloneReadTest, ReadsOnTicksAsOnNotifications) {
  ArriveMemory(0, 10);
  Tick();
  EXPECT_EQ(read_.phase, CloneRead::kData);
  ArriveMemory(10, 26);
  Tick();
  ArriveMemory(26, 8122);
  Arrive({ChecksumOf(radio_)});
  Tick();
  EXPECT_EQ(read_.ended, 0);
  EXPECT_EQ(block_.Content(), radio_);
}

TEST_F(CloneReadTest, ReadsTheSameInPiecesOfOneByte) {
  line_.read_limit = 1;
  ReceiveMemory(8122);
  EXPECT_EQ(read_.phase, CloneRead::kWaitChecksum);
  EXPECT_EQ(read_.blocks_done, 506);
  EXPECT_EQ(line_.sent, (Bytes{0x06, 0x06}));
  Arrive({ChecksumOf(radio_)});
  Notify();
  EXPECT_EQ(read_.ended, 0);
  EXPECT_EQ(block_.Content(), radio_);
}

TEST_F(CloneReadTest, ReadsTheSameWhenBytesComeOneATick) {
  for (std::size_t n = 0; n < 8122; ++n) {
    ArriveMemory(n, n + 1);
    Tick();
  }
  Arrive({ChecksumOf(radio_)});
  Tick();
  EXPECT_EQ(read_.ended, 0);
  EXPECT_EQ(block_.Content(), radio_);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(CloneReadTest, ABlockWhoseSumIsAMultipleOf256HasTheChecksum0) {
  Bytes memory = radio_;
  memory[8121] = static_cast<std::uint8_t>(memory[8121] - ChecksumOf(memory));
  ASSERT_EQ(ChecksumOf(memory), 0);
  ReceiveMemory(8121);
  Arrive({memory[8121], 0x00});
  Notify();
  EXPECT_EQ(read_.ended, 0);
  EXPECT_EQ(block_.Content(), memory);
}

TEST_F(CloneReadTest, WritesOnlyTheRadioBlockOfAnImage) {
  CloneImage image;
  image.fill(0x77);
  BeginCloneRead(read_, line_, RadioBlockOf(image));
  ReceiveMemory(8122);
  EXPECT_TRUE(std::equal(radio_.begin(), radio_.end(), image.begin() + 3060));
  EXPECT_EQ(std::count(image.begin(), image.begin() + 3060, 0x77), 3060);
  EXPECT_EQ(std::count(image.begin() + 11'182, image.end(), 0x77), 21'282 - 11'182);
}

TEST_F(CloneReadTest, ShowsThePercentOfTheBytesReceived) {
  ReceiveMemory(4074);  // 10 and 254 blocks: 501 tenths
  EXPECT_EQ(read_.meter.percent, 50);
  ArriveMemory(4074, 8122);
  Notify();
  EXPECT_EQ(read_.meter.percent, 100);
}

TEST_F(CloneReadTest, AwaitsTheRestOfABlockOrOneByte) {
  EXPECT_EQ(BytesAwaited(read_), 1U);
  WaitForReadBack();
  EXPECT_EQ(BytesAwaited(read_), 1U);
  line_.echo = true;
  Arrive({0x06});
  Notify();
  EXPECT_EQ(BytesAwaited(read_), 16U);
  ArriveMemory(10, 26);
  Notify();
  EXPECT_EQ(BytesAwaited(read_), 16U);
  ArriveMemory(26, 31);
  Notify();
  EXPECT_EQ(BytesAwaited(read_), 11U);
  ArriveMemory(31, 8122);
  Notify();
  ASSERT_EQ(read_.phase, CloneRead::kWaitChecksum);
  EXPECT_EQ(BytesAwaited(read_), 1U);
}

TEST_F(CloneReadTest, CancelSendsNothingAndEndsWithMinus1) {
  ReceiveMemory(3000);
  const Bytes sent = line_.sent;
  CancelCloneRead(read_);
  EXPECT_EQ(read_.ended, -1);
  EXPECT_FALSE(read_.polling);
  EXPECT_EQ(line_.sent, sent);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(CloneReadTest, CancelWhileWaitingForTheRadioEndsWithMinus1) {
  CancelCloneRead(read_);
  EXPECT_EQ(read_.ended, -1);
  EXPECT_TRUE(line_.sent.empty());
}

}  // namespace
}  // namespace qz7
