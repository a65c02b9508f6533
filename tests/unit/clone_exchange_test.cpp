#include <gtest/gtest.h>

#include <vector>

#include "core/link/exchange.h"
#include "tests/unit/exchange_fixture.h"
#include "tests/unit/memory_line.h"

namespace qz7 {
namespace {

TEST(CloneChecksum, IsTheLowByteOfTheSum) {
  Bytes block(8122, 0);
  EXPECT_EQ(CloneChecksum(block), 0x00);
  block[0] = 0xFF;
  block[8121] = 0x03;
  EXPECT_EQ(CloneChecksum(block), 0x02);
  // 8122 times 255 is 2071110, which is 0x1F9A46.
  EXPECT_EQ(CloneChecksum(Bytes(8122, 0xFF)), 0x46);
}

TEST(CloneChecksum, OfASumThatIsAMultipleOf256Is0) {
  Bytes block(8122, 0);
  block[100] = 0xF0;
  block[8000] = 0x10;
  EXPECT_EQ(CloneChecksum(block), 0x00);
}

TEST(CloneBlocks, Are507Of16BytesBehindAHeaderOf10) {
  EXPECT_EQ(kCloneHeaderSize, 10U);
  EXPECT_EQ(kCloneBlockSize, 16U);
  EXPECT_EQ(kCloneBlockCount, 507);
}

TEST(RadioBlockOf, IsTheImagesPartThatTheRadioHas) {
  CloneImage image{};
  const auto block = RadioBlockOf(image);
  EXPECT_EQ(block.data(), image.data() + 3060);
  EXPECT_EQ(block.size(), 8122U);
}

class ExchangeTest : public testing::Test {
 protected:
  ExchangeTest() {
    line_.Open("line");
    exchange_.meter.total = 8122;
    RestartExchange(exchange_, line_);
  }

  void ExpectQuestion(LinkError error, const std::string& text, const std::string& caption,
                      Buttons buttons) {
    ASSERT_TRUE(exchange_.question.has_value());
    EXPECT_EQ(exchange_.question->error, error);
    EXPECT_EQ(exchange_.question->text, text);
    EXPECT_EQ(exchange_.question->caption, caption);
    EXPECT_EQ(exchange_.question->buttons, buttons);
  }

  MemoryLine line_;
  Exchange exchange_;
};

TEST_F(ExchangeTest, RestartsWithEmptyQueuesARunningTimerAndAMeterAt0) {
  line_.incoming = {1, 2, 3};
  SetProgress(exchange_.meter, 4061);
  exchange_.polling = false;
  RestartExchange(exchange_, line_);
  EXPECT_TRUE(line_.incoming.empty());
  EXPECT_EQ(line_.purges, (std::vector<Queues>{Queues::kBoth, Queues::kBoth}));
  EXPECT_EQ(line_.event_restarts, 2);
  EXPECT_TRUE(exchange_.polling);
  EXPECT_EQ(exchange_.meter.percent, 0);
}

TEST_F(ExchangeTest, StopsItsTimerForAQuestion) {
  AskForRetry(exchange_, LinkError::kReceiveTimeout, "Receive Timeout");
  EXPECT_FALSE(exchange_.polling);
  EXPECT_FALSE(exchange_.ended.has_value());
  EXPECT_FALSE(IsRunning(exchange_, line_));
  ExpectQuestion(LinkError::kReceiveTimeout, "Receive Timeout", "Communications Error",
                 Buttons::kRetryCancel);
}

TEST_F(ExchangeTest, AsksWithoutAChoiceToo) {
  AskForOk(exchange_, LinkError::kNoResponse, "No answer");
  EXPECT_FALSE(exchange_.polling);
  ExpectQuestion(LinkError::kNoResponse, "No answer", "Communications Error", Buttons::kOk);
}

TEST_F(ExchangeTest, TellsAFailedReadAndKeepsItsTimer) {
  line_.failed = true;
  Bytes buffer(4);
  EXPECT_EQ(ReadArrived(exchange_, line_, buffer), 0U);
  EXPECT_TRUE(exchange_.polling);
  EXPECT_FALSE(IsRunning(exchange_, line_));
  ExpectQuestion(LinkError::kFailedRead, "ERROR", "Read Error", Buttons::kOk);
}

TEST_F(ExchangeTest, GivesItsQuestionUpOnce) {
  AskForRetry(exchange_, LinkError::kChecksum, "Checksum Error");
  EXPECT_EQ(TakeQuestion(exchange_), LinkError::kChecksum);
  EXPECT_EQ(TakeQuestion(exchange_), std::nullopt);
}

TEST_F(ExchangeTest, EndsWithItsResultAStoppedTimerAndNoQuestion) {
  for (const int result : {0, -1}) {
    AskForRetry(exchange_, LinkError::kChecksum, "Checksum Error");
    exchange_.polling = true;
    EndExchange(exchange_, result);
    EXPECT_EQ(exchange_.ended, result);
    EXPECT_FALSE(exchange_.polling);
    EXPECT_FALSE(exchange_.question.has_value());
  }
}

}  // namespace
}  // namespace qz7
