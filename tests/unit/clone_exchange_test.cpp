#include <gtest/gtest.h>

#include <vector>

#include "core/link/exchange.h"
#include "tests/unit/exchange_fixture.h"
#include "tests/unit/memory_line.h"
#include "tests/unit/seams.h"

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

TEST(Exchange, RestartsWithEmptyQueuesARunningTimerAndAMeterAt0) {
  MemoryLine line;
  line.Open("line");
  line.incoming = {1, 2, 3};
  Exchange exchange;
  BeginProgress(exchange.meter, 8122, 202, 22);
  SetProgress(exchange.meter, 4061);
  RestartExchange(exchange, line);
  EXPECT_TRUE(line.incoming.empty());
  EXPECT_EQ(line.purges, std::vector<Queues>{Queues::kBoth});
  EXPECT_EQ(line.event_restarts, 1);
  EXPECT_TRUE(exchange.polling);
  EXPECT_EQ(exchange.meter.percent, 0);
  EXPECT_EQ(exchange.meter.filled_width, 0);
  EXPECT_TRUE(exchange.meter_changed);
}

TEST(Exchange, StopsItsTimerForALinkError) {
  Exchange exchange;
  exchange.polling = true;
  test_seams.answers = {Answer::kRetry};
  EXPECT_TRUE(LinkErrorRetry(exchange, "Receive Timeout"));
  EXPECT_FALSE(exchange.polling);
  EXPECT_FALSE(exchange.ended.has_value());
  ExpectRetryBox("Receive Timeout");
}

TEST(Exchange, GoesOnAfterALinkErrorOnlyForRetry) {
  Exchange exchange;
  for (const Answer answer : {Answer::kCancel, Answer::kOk, Answer::kNo}) {
    test_seams.answers = {answer};
    EXPECT_FALSE(LinkErrorRetry(exchange, "Checksum Error"));
  }
}

TEST(Exchange, ShowsALinkErrorWithoutAChoice) {
  Exchange exchange;
  exchange.polling = true;
  LinkErrorOk(exchange, "No answer");
  EXPECT_FALSE(exchange.polling);
  ASSERT_EQ(ShownTexts(), std::vector<std::string>{"No answer"});
  EXPECT_EQ(test_seams.messages[0].caption, "Communications Error");
  EXPECT_EQ(test_seams.messages[0].buttons, Buttons::kOk);
}

TEST(Exchange, AsksForThePaintingOfAChangedMeter) {
  Exchange exchange;
  BeginProgress(exchange.meter, 8122, 202, 22);
  ShowExchangeProgress(exchange, 40);
  EXPECT_FALSE(exchange.meter_changed);
  ShowExchangeProgress(exchange, 4061);
  EXPECT_TRUE(exchange.meter_changed);
  EXPECT_EQ(exchange.meter.percent, 50);
  // The driver has not painted yet.
  ShowExchangeProgress(exchange, 4062);
  EXPECT_TRUE(exchange.meter_changed);
}

TEST(Exchange, EndsWithItsResultAndAStoppedTimer) {
  for (const int result : {0, -1}) {
    Exchange exchange;
    exchange.polling = true;
    EndExchange(exchange, result);
    EXPECT_EQ(exchange.ended, result);
    EXPECT_FALSE(exchange.polling);
  }
}

}  // namespace
}  // namespace qz7
