#include <algorithm>
#include <atomic>
#include <thread>

#include "core/link/clone_read.h"
#include "desktop/link/clone_dialogs.h"
#include "desktop/link/exchange_window.h"
#include "resources/control_ids.h"
#include "tests/ui/radio_lines.h"
#include "tests/ui/window_fixture.h"

namespace qz7 {

// Told apart from the boxes that belong to a window by their number.
namespace {
int boxes_without_owner = 0;
}  // namespace

void ShowBoxWithoutOwner(const std::string& text, const std::string& caption) {
  ++boxes_without_owner;
  ShowMessage(text, caption, Buttons::kOk, Icon::kNone);
}

namespace {

class ReadDialogTest : public WindowTest {
 protected:
  static bool Read(SerialPort& port, std::span<std::uint8_t> block) {
    CloneRead read;
    BeginCloneRead(read, port, block);
    return ShowReadDialog(read, port);
  }
};

TEST_F(ReadDialogTest, ReceivesTheRadiosMemory) {
  auto& radio = UsePort<SendingRadio>();
  Bytes block(8122);
  const DialogScript script([&](HWND dialog) {
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog, IDCANCEL));
    EXPECT_FALSE(IsWindowEnabled(app.main_window));
    EXPECT_EQ(TextOf(dialog, ID_TRANSFER), "Nothing has come yet: start sending on the radio.");
    SavePicture(dialog, "read");
    radio.Start();
  });
  EXPECT_TRUE(Read(radio, block));
  EXPECT_EQ(block, RadioMemory());
  EXPECT_EQ(radio.sent, (Bytes{kAck, kAck, kAck}));
  EXPECT_TRUE(IsWindowEnabled(app.main_window));
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(ReadDialogTest, CancelAndClosingEndIt) {
  auto& radio = UsePort<SendingRadio>();
  Bytes block(8122);
  {
    const DialogScript script([](HWND dialog) { Press(dialog, IDCANCEL); });
    EXPECT_FALSE(Read(radio, block));
  }
  const DialogScript script([](HWND dialog) { SendMessageA(dialog, WM_CLOSE, 0, 0); });
  EXPECT_FALSE(Read(radio, block));
  EXPECT_TRUE(radio.sent.empty());
  EXPECT_EQ(GetLastActivePopup(app.main_window), app.main_window);
}

TEST_F(ReadDialogTest, ATransferThatStopsTimesOut) {
  auto& radio = UsePort<SendingRadio>();
  radio.stop_at = 3000;
  Bytes block(8122);
  const DialogScript script([&](HWND) { radio.Start(); });
  EXPECT_FALSE(Read(radio, block));
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Receive Timeout"});
  EXPECT_EQ(test_seams.messages[0].caption, "Communications Error");
  EXPECT_EQ(radio.sent.back(), kAbort);
}

TEST_F(ReadDialogTest, AWrongChecksumIsReported) {
  auto& radio = UsePort<SendingRadio>();
  radio.checksum_error = 1;
  Bytes block(8122);
  const DialogScript script([&](HWND) { radio.Start(); });
  EXPECT_FALSE(Read(radio, block));
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Checksum Error"});
}

TEST_F(ReadDialogTest, AfterRetryOfADamagedLineItWaitsForCancel) {
  auto& radio = UsePort<SendingRadio>();
  test_seams.answers = {Answer::kRetry};
  Bytes block(8122);
  radio.damage = 1;
  const DialogScript script([&](HWND dialog) {
    radio.Start();
    EXPECT_TRUE(HandleMessagesUntil([] { return !test_seams.messages.empty(); }));
    EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Bad Receive Data"});
    const std::size_t unread = radio.incoming.size();
    EXPECT_GT(unread, 0U);
    EXPECT_FALSE(HandleMessagesUntil([&] { return radio.incoming.size() != unread; }, 200));
    Press(dialog, IDCANCEL);
  });
  EXPECT_FALSE(Read(radio, block));
}

// The box of a question handles messages itself: ticks and bytes that come meanwhile change
// nothing.
TEST_F(ReadDialogTest, StandsStillWhileAQuestionIsShown) {
  auto& radio = UsePort<SendingRadio>();
  radio.checksum_error = 1;
  Bytes block(8122);
  HWND read_dialog = nullptr;
  test_seams.answer = [&](Buttons) {
    radio.incoming.push_back(SumOf(radio.memory));
    for (int n = 0; n < 50; ++n) {
      SendMessageA(read_dialog, WM_TIMER, 1, 0);
    }
    HandleMessagesUntil([] { return false; }, 100);
    EXPECT_EQ(radio.incoming.size(), 1U);
    return Answer::kCancel;
  };
  const DialogScript script([&](HWND dialog) {
    read_dialog = dialog;
    radio.Start();
  });
  EXPECT_FALSE(Read(radio, block));
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Checksum Error"});
  EXPECT_EQ(radio.sent.back(), kAbort);
}

TEST_F(ReadDialogTest, APortThatIsGoneIsToldOnceWithoutAnOwnerAndOnlyCancelIsLeft) {
  auto& radio = UsePort<SendingRadio>();
  Bytes block(8122);
  boxes_without_owner = 0;
  const DialogScript script([&](HWND dialog) {
    radio.failed = true;
    EXPECT_TRUE(HandleMessagesUntil([&] { return radio.IsLost(); }));
    HandleMessagesUntil([] { return test_seams.messages.size() > 1; }, 200);
    EXPECT_EQ(ShownTexts(), std::vector<std::string>{"ERROR"});
    EXPECT_EQ(boxes_without_owner, 1);
    EXPECT_EQ(TextOf(dialog, ID_TRANSFER), "Press Cancel and start again, on the radio too.");
    Press(dialog, IDCANCEL);
  });
  EXPECT_FALSE(Read(radio, block));
}

TEST_F(ReadDialogTest, OneFailedReadIsToldAndTheReadGoesOn) {
  auto& radio = UsePort<SendingRadio>();
  Bytes block(8122);
  const DialogScript script([&](HWND) {
    radio.reads_to_fail = 1;
    radio.Start();
  });
  EXPECT_TRUE(Read(radio, block));
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"ERROR"});
  EXPECT_EQ(block, RadioMemory());
}

// Sends a little at a time, so that the exchange lasts.
class SlowRadio : public SendingRadio {
 public:
  std::optional<std::size_t> Read(std::span<std::uint8_t> buffer) override {
    const ULONGLONG now = GetTickCount64();
    left_ = now == read_at_ ? left_ : piece;
    read_at_ = now;
    const auto count = SendingRadio::Read(buffer.first(std::min(buffer.size(), left_)));
    left_ -= count.value_or(0);
    return count;
  }

  std::size_t piece = 150;

 private:
  ULONGLONG read_at_ = 0;
  std::size_t left_ = 0;
};

// Asks a window again and again from a thread of its own.
class Asker {
 public:
  explicit Asker(HWND window)
      : asker_([this, window] {
          while (!over_) {
            SendMessageA(window, WM_NULL, 0, 0);
            ++answers_;
            Sleep(1);
          }
          done_ = true;
        }) {}
  Asker(const Asker&) = delete;
  Asker& operator=(const Asker&) = delete;
  ~Asker() { Finish(); }

  void Finish() {
    over_ = true;
    HandleMessagesUntil([this] { return done_.load(); });
    if (asker_.joinable()) {
      asker_.join();
    }
  }
  int Answers() const { return answers_; }

 private:
  std::atomic<bool> over_ = false;
  std::atomic<bool> done_ = false;
  std::atomic<int> answers_ = 0;
  std::thread asker_;
};

TEST_F(ReadDialogTest, SaysHowManyBytesHaveComeAndForHowLongItWillGoOn) {
  auto& radio = UsePort<SlowRadio>();
  Bytes block(8122);
  radio.piece = 16;
  const DialogScript script([&](HWND dialog) {
    radio.Start();
    EXPECT_TRUE(HandleMessagesUntil([&] {
      const std::string text = TextOf(dialog, ID_TRANSFER);
      return text.find(" of 8122 bytes, about ") != text.npos && text.ends_with(" left");
    }));
    SavePicture(dialog, "read_half");
    radio.piece = 4'000;
  });
  EXPECT_TRUE(Read(radio, block));
}

// How soon is told by the model of the port, whose clock does not depend on a busy machine.
TEST_F(ReadDialogTest, AnswersOthersAllTheWhile) {
  auto& radio = UsePort<SlowRadio>();
  Bytes block(8122);
  const DialogScript script([&](HWND) { radio.Start(); });
  Asker asker(app.main_window);
  EXPECT_TRUE(Read(radio, block));
  EXPECT_GT(asker.Answers(), 10);
}

TEST_F(ReadDialogTest, LeavesNothingBehind) {
  auto& radio = UsePort<SendingRadio>();
  Bytes block(8122);
  const auto read = [&] {
    radio.acknowledged = 0;
    const DialogScript script([&](HWND) { radio.Start(); });
    EXPECT_TRUE(Read(radio, block));
  };
  read();
  const ProcessObjects before = CountObjects();
  for (int i = 0; i < 5; ++i) {
    read();
  }
  EXPECT_TRUE(ComesBackTo(before));
}

}  // namespace
}  // namespace qz7
