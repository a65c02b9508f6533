// The port by itself, over drivers that are unkind.

#include "tests/model/exchange_model.h"

namespace qz7::model {
namespace {

class PortModel : public ExchangeModel {
 protected:
  std::vector<std::uint8_t> ReadUpTo(std::size_t most) {
    std::vector<std::uint8_t> bytes(most);
    bytes.resize(port_->Read(bytes).value_or(0));
    return bytes;
  }
  static void RadioSendsAfter(Time delay, int count) {
    for (int i = 0; i < count; ++i) {
      TheWorld().After(delay + i * kWireByte,
                       [i] { TheDevice().RadioSends(static_cast<std::uint8_t>(i)); });
    }
  }
};

TEST_F(PortModel, WaitsByTheClockWhateverTheTimersStep) {
  for (const Driver& driver : {Driver{}, Driver{.refuses_wait = true}}) {
    Open(driver);
    const Time start = TheWorld().now;
    EXPECT_FALSE(port_->WaitForInput(1, 200));
    EXPECT_GE(TheWorld().now - start, 200 * kMillisecond);
    EXPECT_LE(TheWorld().now - start, 200 * kMillisecond + kCoarseStep + kMillisecond);
    port_->Close();
  }
}

TEST_F(PortModel, WakesWhenTheLastOfTheBytesHasCome) {
  Open();
  RadioSendsAfter(100 * kMillisecond, 16);
  const Time start = TheWorld().now;
  EXPECT_TRUE(port_->WaitForInput(16, 1000));
  EXPECT_EQ(ReadUpTo(20).size(), 16U);
  EXPECT_LE(TheWorld().now - start, 100 * kMillisecond + 16 * kWireByte + kMillisecond);
}

TEST_F(PortModel, GivesWhatHasComeWhenTheTimeIsOver) {
  Open();
  RadioSendsAfter(10 * kMillisecond, 3);
  EXPECT_TRUE(port_->WaitForInput(16, 50));
  EXPECT_EQ(ReadUpTo(20).size(), 3U);
}

TEST_F(PortModel, AsksADriverThatHasRefusedOnlyOnce) {
  Open({.refuses_wait = true});
  EXPECT_EQ(port_->ArmReceiveEvent(), nullptr);
  TheDevice().driver = {};
  EXPECT_EQ(port_->ArmReceiveEvent(), nullptr);
  Open();
  EXPECT_NE(port_->ArmReceiveEvent(), nullptr);
}

TEST_F(PortModel, MakesTheTimerFinerOnlyForADriverThatRefuses) {
  Open();
  port_->ArmReceiveEvent();
  EXPECT_EQ(TheWorld().timer_step, kCoarseStep);
  Open({.refuses_wait = true});
  port_->ArmReceiveEvent();
  EXPECT_EQ(TheWorld().timer_step, kMillisecond);
  port_->Close();
  EXPECT_EQ(TheWorld().timer_step, kCoarseStep);
}

TEST_F(PortModel, TakesAnEmptiedQueueForNoRefusal) {
  Open({.purge_aborts_wait = true});
  ASSERT_NE(port_->ArmReceiveEvent(), nullptr);
  port_->Purge(Queues::kTransmit);
  EXPECT_NE(port_->ArmReceiveEvent(), nullptr);
  EXPECT_EQ(TheWorld().timer_step, kCoarseStep);
}

// A write that is taken back leaves the wait for received bytes alone.
TEST_F(PortModel, StillHearsAfterAWriteThatIsNotDone) {
  Open({.writes_forever = true});
  const HANDLE event = port_->ArmReceiveEvent();
  port_->Write(std::vector<std::uint8_t>(16));
  port_->Purge(Queues::kTransmit);
  RadioSendsAfter(kMillisecond, 1);
  EXPECT_EQ(WaitForSingleObject(event, 100), WAIT_OBJECT_0);
  EXPECT_EQ(ReadUpTo(4).size(), 1U);
}

TEST_F(PortModel, TakesNoFurtherWriteWhileOneHangs) {
  Open({.writes_forever = true});
  EXPECT_EQ(port_->Write(std::vector<std::uint8_t>(16)), 16U);
  const Time start = TheWorld().now;
  EXPECT_EQ(port_->Write(std::vector<std::uint8_t>(16)), 0U);
  EXPECT_LE(TheWorld().now - start, 70 * kMillisecond);
}

TEST_F(PortModel, ReportsAStatusThatFailsOnceAsAFailedRead) {
  Open({.failing_status = 1});
  std::vector<std::uint8_t> bytes(4);
  EXPECT_EQ(port_->Read(bytes), std::nullopt);
  EXPECT_EQ(port_->Read(bytes), 0U);
}

TEST_F(PortModel, KeepsLineErrorsThatAnotherQuestionCleared) {
  Open();
  TheDevice().DamageNextByte();
  RadioSendsAfter(0, 1);
  TheWorld().Pass(2 * kWireByte);
  ReadUpTo(1);
  EXPECT_EQ(port_->LineErrors(), CE_FRAME);
  EXPECT_EQ(port_->LineErrors(), 0U);
}

TEST_F(PortModel, OpensPortsBeyondNineHoweverTheyAreSpelt) {
  EXPECT_EQ(port_->Open("COM12").status, PortStatus::kOpen);
  EXPECT_EQ(port_->Open("com12").status, PortStatus::kOpen);
  EXPECT_EQ(port_->Open("COM13").status, PortStatus::kAbsent);
}

TEST_F(PortModel, HasOneOwner) {
  Open();
  EXPECT_EQ(MakeSerialPort()->Open("COM3").status, PortStatus::kBusy);
}

}  // namespace
}  // namespace qz7::model
