// What the user is told of an exchange that hears nothing, and how pauses are ended.

#include <algorithm>

#include "core/link/tick_clock.h"
#include "ctl/line_decorators.h"
#include "resources/control_ids.h"
#include "tests/model/exchange_model.h"

namespace qz7::model {
namespace {

class SilentLine : public ExchangeModel {
 protected:
  SilentLine() { Open(); }

  static void At(Time milliseconds, std::function<void()> look) {
    TheWorld().After(milliseconds * kMillisecond, std::move(look));
  }
  static std::string Awaited() { return GetDlgItem(OpenDialog(), ID_AWAITED)->text; }
};

TEST_F(SilentLine, IsToldOnceByTheConsoleProgramAfterTenSeconds) {
  At(9'900, [] { EXPECT_TRUE(told.empty()); });
  At(10'100, [] { EXPECT_EQ(told.size(), 1U); });
  GiveUpAfter(Program::kConsole, 40'000 * kMillisecond);
  EXPECT_FALSE(Read(Program::kConsole));
  EXPECT_EQ(told,
            (std::vector<std::string>{
                "Still waiting for the radio to start sending. Ctrl-C gives up.", "Given up."}));
}

TEST_F(SilentLine, IsToldByTheWindowUntilTheRadioStarts) {
  SendingRadio radio;
  radio.StartAfter(12'000 * kMillisecond);
  At(9'900, [] { EXPECT_EQ(Awaited(), ""); });
  At(10'100, [] { EXPECT_EQ(Awaited(), "Still waiting for the radio to start sending."); });
  At(12'100, [] { EXPECT_EQ(Awaited(), ""); });
  EXPECT_TRUE(Read(Program::kDesktop));
}

TEST_F(SilentLine, NamesTheAnswerThatAWriteWaitsFor) {
  At(10'500, [] { EXPECT_EQ(Awaited(), "Still waiting for the radio's answer."); });
  GiveUpAfter(Program::kDesktop, 11'000 * kMillisecond);
  EXPECT_FALSE(Write(Program::kDesktop));
}

TEST_F(SilentLine, NamesTheCableThatGivesNothingBack) {
  TheDevice().echoes = false;
  GiveUpAfter(Program::kConsole, 11'000 * kMillisecond);
  EXPECT_FALSE(Write(Program::kConsole));
  EXPECT_EQ(told.at(0), "Still waiting for the cable to give back what was sent. Ctrl-C gives up.");
}

class Transfer : public SilentLine {
 protected:
  static std::string Note() { return GetDlgItem(OpenDialog(), ID_TRANSFER)->text; }
};

TEST_F(Transfer, InvitesToStartThenSaysBytesAndTimeLeft) {
  SendingRadio radio;
  radio.StartAfter(12'000 * kMillisecond);
  At(100, [] { EXPECT_EQ(Note(), "Nothing has come yet: start sending on the radio."); });
  At(11'000, [] { EXPECT_EQ(Note(), "Nothing has come yet: start sending on the radio."); });
  At(12'800, [] { EXPECT_NE(Note().find(" of 8122 bytes"), std::string::npos) << Note(); });
  At(17'000, [] {
    EXPECT_NE(Note().find(" of 8122 bytes, about 5 seconds left"), std::string::npos) << Note();
  });
  EXPECT_TRUE(Read(Program::kDesktop));
}

TEST_F(Transfer, NeverSaysMoreSecondsThanBefore) {
  SendingRadio radio;
  radio.StartAfter(0);
  std::vector<int> seconds;
  for (Time at = 1'200; at < 9'000; at += 50) {
    At(at, [&] {
      const std::string note = Note();
      const std::size_t about = note.find("about ");
      ASSERT_NE(about, std::string::npos) << note;
      seconds.push_back(std::stoi(note.substr(about + 6)));
    });
  }
  EXPECT_TRUE(Read(Program::kDesktop));
  EXPECT_TRUE(std::is_sorted(seconds.rbegin(), seconds.rend()));
  EXPECT_GE(seconds.front(), 8);
  EXPECT_EQ(seconds.back(), 1);
}

TEST_F(Transfer, ThatStandsStillSaysWhatHelps) {
  At(9'900, [] { EXPECT_EQ(Note(), "10 of 8122 bytes"); });
  At(10'500, [] { EXPECT_EQ(Note(), "Press Cancel and start again, on the radio too."); });
  GiveUpAfter(Program::kDesktop, 11'000 * kMillisecond);
  EXPECT_FALSE(Write(Program::kDesktop));
}

// Before the user has pressed OK.
TEST_F(SilentLine, OfAWriteThatHasNotBegunWaitsForNothing) {
  CloneImage image{};
  CloneWrite write;
  BeginCloneWrite(write, *port_, image);
  Preferences preferences;
  At(20'000, [] {
    EXPECT_EQ(Awaited(), "");
    EXPECT_EQ(GetDlgItem(OpenDialog(), ID_TRANSFER)->text,
              "Start receiving on the radio, then press OK.");
  });
  GiveUpAfter(Program::kDesktop, 20'001 * kMillisecond);
  EXPECT_FALSE(ShowWriteDialog(write, *port_, preferences));
}

class Pausing : public ExchangeModel {
 protected:
  bool WriteWithPauses(int milliseconds) {
    CloneImage image{};
    PausingPort pausing(*port_, milliseconds);
    CloneWrite write;
    BeginCloneWrite(write, pausing, image);
    CatchInterrupt();
    StartCloneWrite(write, pausing, TemplateImage());
    return RunCloneWrite(write, pausing, "COM3");
  }
};

TEST_F(Pausing, PausesBeforeEachBlock) {
  Open();
  ReceivingRadio radio;
  ASSERT_TRUE(WriteWithPauses(50));
  const double pauses = 507 * 50.0 * kMillisecond;
  EXPECT_GE(static_cast<double>(TheWorld().now - radio.started), kWire + pauses);
  EXPECT_LE(static_cast<double>(TheWorld().now - radio.started), kWire + 1.4 * pauses);
  port_->Close();
  EXPECT_EQ(radio.received.size(), 8123U);
}

TEST_F(Pausing, IsGivenUpWithinATenthOfASecondInThePause) {
  Open();
  ReceivingRadio radio;
  const Time given_up = TheWorld().now + 5'000 * kMillisecond;
  GiveUpAfter(Program::kConsole, 5'000 * kMillisecond);
  EXPECT_FALSE(WriteWithPauses(10'000));
  EXPECT_GE(TheWorld().now, given_up);
  EXPECT_LE(TheWorld().now - given_up, 100 * kMillisecond);
}

// A program that was kept from running could not hear either.
TEST_F(SilentLine, IsNoLongerThanTheTurnsInWhichSomebodyListened) {
  TickClock clock;
  TheWorld().Pass(20 * kMillisecond);
  EXPECT_EQ(clock.Due(), 2);
  TheWorld().Pass(1'000 * kMillisecond);
  EXPECT_EQ(clock.Due(), 3);
  EXPECT_EQ(clock.Due(), 0);
}

}  // namespace
}  // namespace qz7::model
