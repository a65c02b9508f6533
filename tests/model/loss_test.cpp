// A cable that is pulled out, and what else a driver does to an exchange.

#include <set>

#include "tests/model/exchange_model.h"

namespace qz7::model {
namespace {

struct Moment {
  const char* name;
  Time pulled;  // milliseconds after the exchange has begun
};

void PrintTo(const Moment& moment, std::ostream* out) { *out << moment.name; }

// The kinds that differ in how a call ends.
std::vector<Kind> EndingDrivers() {
  std::vector<Kind> kinds = Drivers();
  std::erase_if(kinds, [](const Kind& kind) {
    const std::set<std::string> names = {"AtOnce", "Late", "NoWait", "AbortedWait"};
    return !names.contains(kind.name);
  });
  return kinds;
}

class PulledOut : public ExchangeModel,
                  public testing::WithParamInterface<std::tuple<Kind, Program, Moment>> {
 protected:
  void SetUp() override {
    Open(std::get<0>(GetParam()).driver);
    TheWorld().After(std::get<2>(GetParam()).pulled * kMillisecond, [] { TheDevice().Unplug(); });
  }
  static Program TheProgram() { return std::get<1>(GetParam()); }

  // The window tells it in one box and waits for Cancel; qz7ctl ends with the message.
  void IsToldOnceAndThenLost(const std::function<bool()>& exchange) {
    const Time begun = TheWorld().now;
    if (TheProgram() == Program::kDesktop) {
      GiveUpAfter(Program::kDesktop, 10'000 * kMillisecond);
    }
    EXPECT_FALSE(exchange());
    if (TheProgram() == Program::kDesktop) {
      EXPECT_EQ(ShownTexts(), std::vector<std::string>{"ERROR"});
    } else {
      EXPECT_EQ(told, (std::vector<std::string>{"ERROR", "COM3 has gone away."}));
      EXPECT_LE(TheWorld().now - begun, (std::get<2>(GetParam()).pulled + 100) * kMillisecond);
    }
    EXPECT_TRUE(port_->IsLost());
    EXPECT_FALSE(TheDevice().IsOpen());
    test_seams.messages.clear();
  }

  void IsOpenedAnew() {
    EXPECT_FALSE(OpenPort(*port_, "COM3"));
    EXPECT_EQ(ShownTexts(), std::vector<std::string>{"COM3: Invalid or unsupported port."});
    TheDevice().Plug();
    EXPECT_TRUE(OpenPort(*port_, "COM3"));
    EXPECT_FALSE(port_->IsLost());
  }
};

TEST_P(PulledOut, EndsAReadAndTheNextOneWorks) {
  {
    SendingRadio radio;
    radio.StartAfter(100 * kMillisecond);
    IsToldOnceAndThenLost([&] { return Read(TheProgram()); });
  }
  IsOpenedAnew();
  SendingRadio again;
  again.StartAfter(100 * kMillisecond);
  EXPECT_TRUE(Read(TheProgram()));
  EXPECT_EQ(block_, again.memory);
}

TEST_P(PulledOut, EndsAWriteAndTheNextOneWorks) {
  ReceivingRadio radio;
  IsToldOnceAndThenLost([&] { return Write(TheProgram()); });
  EXPECT_LT(radio.received.size(), 8123U);
  IsOpenedAnew();
  ReceivingRadio again;
  EXPECT_TRUE(Write(TheProgram()));
  port_->Close();
  EXPECT_EQ(again.received.size(), 8123U);
}

// Before the radio sends, between header and acknowledgement, in the first block, in the stream.
INSTANTIATE_TEST_SUITE_P(
    Moments, PulledOut,
    testing::Combine(testing::ValuesIn(EndingDrivers()),
                     testing::Values(Program::kDesktop, Program::kConsole),
                     testing::Values(Moment{"Before", 0}, Moment{"Header", 105},
                                     Moment{"Acknowledgement", 112}, Moment{"Block", 120},
                                     Moment{"Stream", 3000}, Moment{"End", 9300})),
    [](const auto& test) {
      return std::get<0>(test.param).name + NameOf(std::get<1>(test.param)) +
             std::get<2>(test.param).name;
    });

class Trouble : public ExchangeModel, public testing::WithParamInterface<Program> {};

TEST_P(Trouble, AReadGoesOnBehindOneStatusThatFails) {
  for (int nth : {3, 40, 200}) {
    Open();
    test_seams.messages.clear();
    TheDevice().driver.failing_status = nth;
    SendingRadio radio;
    radio.StartAfter(100 * kMillisecond);
    EXPECT_TRUE(Read(GetParam())) << nth;
    EXPECT_EQ(block_, radio.memory);
    EXPECT_LE(test_seams.messages.size(), 1U);
  }
}

TEST_P(Trouble, ADamagedByteIsTold) {
  Open();
  SendingRadio radio;
  radio.damages = 4000;
  radio.StartAfter(100 * kMillisecond);
  GiveUpAfter(GetParam(), 12'000 * kMillisecond);
  test_seams.answers = {Answer::kRetry};
  EXPECT_FALSE(Read(GetParam()));
  if (GetParam() == Program::kDesktop) {
    EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Bad Receive Data"});
  } else {
    EXPECT_EQ(told.at(0), "Bad Receive Data");
  }
}

// The box has messages of its own: ticks come while it is open and count nothing.
TEST_F(ExchangeModel, TheTimeOfABoxIsNoSilence) {
  Open();
  SendingRadio radio;
  TheDevice().driver.failing_status = 401;
  radio.StartAfter(100 * kMillisecond);
  test_seams.answer = [](Buttons) {
    HandleMessagesFor(1000);
    return Answer::kOk;
  };
  EXPECT_TRUE(Read(Program::kDesktop));
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"ERROR"});
}

// A window whose messages are held up, as while its menu or its title bar is held: what has come
// meanwhile is read before the time that has passed is counted.
TEST_F(ExchangeModel, AProgramThatStoodStillReadsOn) {
  Open();
  SendingRadio radio;
  radio.StartAfter(100 * kMillisecond);
  TheWorld().After(4000 * kMillisecond, [] {
    static DLGPROC own;
    own = OpenDialog()->procedure;
    OpenDialog()->procedure = [](HWND dialog, UINT message, WPARAM w, LPARAM l) -> INT_PTR {
      dialog->procedure = own;
      TheWorld().Pass(1500 * kMillisecond);
      return own(dialog, message, w, l);
    };
  });
  EXPECT_TRUE(Read(Program::kDesktop));
  EXPECT_EQ(block_, radio.memory);
  EXPECT_TRUE(test_seams.messages.empty());
}

INSTANTIATE_TEST_SUITE_P(Programs, Trouble, testing::Values(Program::kDesktop, Program::kConsole),
                         [](const auto& test) { return NameOf(test.param); });

}  // namespace
}  // namespace qz7::model
