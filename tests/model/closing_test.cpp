// The lines drop, and the port is closed, once the last stop bit has left machine and adapter.

#include <algorithm>

#include "tests/model/exchange_model.h"

namespace qz7::model {
namespace {

class Closing : public ExchangeModel {
 protected:
  // When the lines dropped; the only time that they did.
  static Time Dropped() {
    const auto is_off = [](const LineState& state) { return !state.dtr && !state.rts; };
    const auto& lines = TheDevice().lines;
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(), is_off), 1);
    const auto off = std::find_if(lines.begin(), lines.end(), is_off);
    return off != lines.end() ? off->at : 0;
  }

  void ClosesBehindTheLastStopBit(std::size_t bytes, Time most) {
    const Time asked = TheWorld().now;
    port_->Close();
    EXPECT_EQ(TheDevice().left.size(), bytes);
    EXPECT_EQ(TheDevice().bytes_cut, 0U);
    EXPECT_GE(Dropped(), TheDevice().last_stop_bit);
    EXPECT_LE(TheWorld().now - asked, most);
  }
};

class ClosingOf : public Closing, public testing::WithParamInterface<Kind> {
 protected:
  void SetUp() override { Open(GetParam().driver); }
};

TEST_P(ClosingOf, WaitsForTheLastAcknowledgement) {
  port_->SendByte(kAck);
  ClosesBehindTheLastStopBit(1, 140 * kMillisecond);
}

TEST_P(ClosingOf, WaitsForABlock) {
  EXPECT_EQ(port_->Write(std::vector<std::uint8_t>(16, 0x55)), 16U);
  ClosesBehindTheLastStopBit(16, 140 * kMillisecond);
}

TEST_P(ClosingOf, WaitsForAHeaderThatIsWrittenByteByByte) {
  const std::vector<std::uint8_t> header(10, 0x0A);
  const std::size_t taken = WriteBytesOneByOne(*port_, header);
  ClosesBehindTheLastStopBit(taken, 140 * kMillisecond);
  EXPECT_EQ(taken, 10U);
}

TEST_P(ClosingOf, TakesNoTimeWhenEverythingHasComeBack) {
  std::vector<std::uint8_t> bytes(16, 0x55);
  port_->Write(bytes);
  ASSERT_TRUE(port_->WaitForInput(16, 1000));
  ASSERT_EQ(port_->Read(bytes), 16U);
  ClosesBehindTheLastStopBit(16, 40 * kMillisecond);
}

INSTANTIATE_TEST_SUITE_P(Drivers, ClosingOf, testing::ValuesIn(Drivers()),
                         [](const auto& test) { return test.param.name; });

// An adapter that holds its bytes back, and says when they have gone.
TEST_F(Closing, WaitsForTheDriverThatTells) {
  Open({.adapter_time = 30 * kMillisecond});
  port_->SendByte(kAck);
  ClosesBehindTheLastStopBit(1, 100 * kMillisecond);
}

TEST_F(Closing, WaitsForTheQueueOfADriverThatDoesNotTell) {
  Open({.tells_empty = false});
  port_->Write(std::vector<std::uint8_t>(200, 0x55));
  ClosesBehindTheLastStopBit(200, 400 * kMillisecond);
}

TEST_F(Closing, WaitsASecondAtMost) {
  Open({.writes_forever = true});
  port_->Write(std::vector<std::uint8_t>(16, 0x55));
  const Time asked = TheWorld().now;
  port_->Close();
  EXPECT_GE(TheWorld().now - asked, 1000 * kMillisecond);
  EXPECT_LE(TheWorld().now - asked, 1100 * kMillisecond);
}

TEST_F(Closing, DoesNotWaitForADeviceThatIsGone) {
  Open();
  port_->Write(std::vector<std::uint8_t>(16, 0x55));
  TheDevice().Unplug();
  std::vector<std::uint8_t> bytes(16);
  EXPECT_EQ(port_->Read(bytes), std::nullopt);
  const Time asked = TheWorld().now;
  port_->Close();
  EXPECT_LE(TheWorld().now - asked, kMillisecond);
}

TEST_F(Closing, OfAReadLeavesTheRadioItsLastAcknowledgement) {
  for (const Program program : {Program::kDesktop, Program::kConsole}) {
    TheDevice().lines.clear();
    Open();
    SendingRadio radio;
    radio.StartAfter(100 * kMillisecond);
    ASSERT_TRUE(Read(program));
    port_->Close();
    EXPECT_EQ(radio.acknowledged, 3);
    EXPECT_GE(Dropped(), TheDevice().last_stop_bit);
    EXPECT_LE(Dropped() - TheDevice().last_stop_bit, 40 * kMillisecond);
  }
}

TEST_F(Closing, OfAWriteLeavesTheRadioItsChecksum) {
  for (const Program program : {Program::kDesktop, Program::kConsole}) {
    TheDevice().lines.clear();
    Open();
    ReceivingRadio radio;
    ASSERT_TRUE(Write(program));
    port_->Close();
    EXPECT_EQ(radio.received.size(), 8123U);
    EXPECT_GE(Dropped(), TheDevice().last_stop_bit);
  }
}

}  // namespace
}  // namespace qz7::model
