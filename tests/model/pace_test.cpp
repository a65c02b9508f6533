// How long the exchanges take by the machine's clock, over every kind of driver.

#include "tests/model/exchange_model.h"

namespace qz7::model {
namespace {

struct Case {
  Kind kind;
  Program program;
};

void PrintTo(const Case& test, std::ostream* out) {
  *out << test.kind.name << NameOf(test.program);
}

std::vector<Case> Cases() {
  std::vector<Case> cases;
  for (const Kind& kind : Drivers()) {
    cases.push_back({kind, Program::kDesktop});
    cases.push_back({kind, Program::kConsole});
  }
  return cases;
}

class Pace : public ExchangeModel, public testing::WithParamInterface<Case> {
 protected:
  void SetUp() override { Open(GetParam().kind.driver); }
  static Program TheProgram() { return GetParam().program; }
};

TEST_P(Pace, ReadsWithinTwoPercentOfTheWire) {
  SendingRadio radio;
  radio.StartAfter(500 * kMillisecond);
  ASSERT_TRUE(Read(TheProgram()));
  const double ratio = static_cast<double>(TheWorld().now - radio.started) / kWire;
  EXPECT_LE(ratio, 1.02);
  RecordProperty("ratio", std::to_string(ratio));
  EXPECT_EQ(block_, radio.memory);
  port_->Close();
  EXPECT_EQ(radio.acknowledged, 3);
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_EQ(told, std::vector<std::string>{});
}

TEST_P(Pace, WritesWithinTenPercentOfTheWireAndTheConsoleProgramWithinFive) {
  ReceivingRadio radio;
  block_ = SampleMemory();
  ASSERT_TRUE(Write(TheProgram()));
  const double ratio = static_cast<double>(TheWorld().now - radio.started) / kWire;
  // A block is seen and read at 3 ms each by the slow one.
  const double slack = GetParam().kind.name == "Slow" ? 0.35 : 0;
  EXPECT_LE(ratio, (TheProgram() == Program::kDesktop ? 1.10 : 1.05) + slack);
  RecordProperty("ratio", std::to_string(ratio));
  port_->Close();
  ASSERT_EQ(radio.received.size(), 8123U);
  EXPECT_TRUE(std::equal(block_.begin() + 14, block_.end(), radio.received.begin() + 14));
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_P(Pace, TellsASilentRadioAfterAQuarterOfASecond) {
  SendingRadio radio;
  radio.stops_at = 3000;
  radio.StartAfter(500 * kMillisecond);
  Time shown = 0;
  test_seams.answer = [&](Buttons) {
    shown = TheWorld().now;
    return Answer::kCancel;
  };
  EXPECT_FALSE(Read(TheProgram()));
  if (TheProgram() == Program::kConsole) {
    shown = TheWorld().now;
    EXPECT_EQ(told.at(0), "Receive Timeout");
  } else {
    EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Receive Timeout"});
  }
  EXPECT_GE(shown - radio.last_sent, 250 * kMillisecond);
  EXPECT_LE(shown - radio.last_sent, 300 * kMillisecond);
  port_->Close();
  EXPECT_TRUE(radio.aborted);
}

TEST_P(Pace, AnswersCancelWithinATenthOfASecondAtAnyMoment) {
  for (const Time moment : {100, 505, 2000, 9700}) {
    SendingRadio radio;
    radio.StartAfter(500 * kMillisecond);
    const Time given_up = TheWorld().now + moment * kMillisecond;
    GiveUpAfter(TheProgram(), moment * kMillisecond);
    EXPECT_FALSE(Read(TheProgram()));
    EXPECT_GE(TheWorld().now, given_up);
    EXPECT_LE(TheWorld().now - given_up, 100 * kMillisecond) << moment;
    TheWorld().Pass(200 * kMillisecond);
  }
}

TEST_P(Pace, AnswersCancelOfAWriteWithinATenthOfASecond) {
  for (const Time moment : {60, 85, 2000}) {
    ReceivingRadio radio;
    const Time given_up = TheWorld().now + moment * kMillisecond;
    GiveUpAfter(TheProgram(), moment * kMillisecond);
    EXPECT_FALSE(Write(TheProgram()));
    EXPECT_GE(TheWorld().now, given_up);
    EXPECT_LE(TheWorld().now - given_up, 100 * kMillisecond) << moment;
    TheWorld().Pass(1'000 * kMillisecond);
  }
}

INSTANTIATE_TEST_SUITE_P(Drivers, Pace, testing::ValuesIn(Cases()), [](const auto& test) {
  return test.param.kind.name + NameOf(test.param.program);
});

}  // namespace
}  // namespace qz7::model
