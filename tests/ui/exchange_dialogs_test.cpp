#include <algorithm>
#include <atomic>
#include <numeric>
#include <thread>

#include "core/link/exchange.h"
#include "desktop/link/clone_dialogs.h"
#include "resources/control_ids.h"
#include "tests/ui/window_fixture.h"
#include "tests/unit/document_bytes.h"

namespace qz7 {
namespace {

using ReadDialogTest = WindowTest;

// The memory of the radio at the other end.
Bytes RadioMemory() {
  Bytes bytes(8122);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    bytes[i] = static_cast<std::uint8_t>(i * 13 + i / 256);
  }
  bytes[0] = 0x0A;
  return bytes;
}

std::uint8_t SumOf(const Bytes& bytes) {
  return static_cast<std::uint8_t>(std::accumulate(bytes.begin(), bytes.end(), 0U));
}

// A radio that sends: its header when it is told to start, then a piece after each acknowledgement.
class SendingRadio : public MemoryLine {
 public:
  void Start() { Give(0, 10); }
  void SendByte(std::uint8_t byte) override {
    MemoryLine::SendByte(byte);
    if (byte != kAck) {
      return;
    }
    ++acknowledged;
    if (acknowledged == 1) {
      line_errors = damage;
      Give(10, 26);
    } else if (acknowledged == 2) {
      Give(26, stop_at);
      if (stop_at == memory.size()) {
        incoming.push_back(static_cast<std::uint8_t>(SumOf(memory) + checksum_error));
      }
    }
  }

  Bytes memory = RadioMemory();
  std::size_t stop_at = 8122;
  int checksum_error = 0;
  unsigned damage = 0;  // on the line behind the header
  int acknowledged = 0;

 private:
  void Give(std::size_t from, std::size_t to) {
    incoming.insert(incoming.end(), memory.begin() + static_cast<std::ptrdiff_t>(from),
                    memory.begin() + static_cast<std::ptrdiff_t>(to));
  }
};

// A radio that receives: it answers the header and the first block.
class ReceivingRadio : public MemoryLine {
 public:
  std::size_t Write(std::span<const std::uint8_t> bytes) override {
    const std::size_t count = MemoryLine::Write(bytes);
    if (answers && (sent.size() == 10 || sent.size() == 26 || sent.size() == 8122)) {
      incoming.push_back(answer);
    }
    return count;
  }
  bool answers = true;
  std::uint8_t answer = kAck;
};

TEST_F(ReadDialogTest, ReceivesTheRadiosMemory) {
  auto& radio = UsePort<SendingRadio>();
  Bytes block(8122);
  const DialogScript script([&](HWND dialog) {
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog, IDCANCEL));
    EXPECT_FALSE(IsWindowEnabled(app.main_window));
    SavePicture(dialog, "read");
    radio.Start();
  });
  EXPECT_TRUE(ShowReadDialog(radio, block));
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
    EXPECT_FALSE(ShowReadDialog(radio, block));
  }
  const DialogScript script([](HWND dialog) { SendMessageA(dialog, WM_CLOSE, 0, 0); });
  EXPECT_FALSE(ShowReadDialog(radio, block));
  EXPECT_TRUE(radio.sent.empty());
  EXPECT_EQ(GetLastActivePopup(app.main_window), app.main_window);
}

TEST_F(ReadDialogTest, ATransferThatStopsTimesOut) {
  auto& radio = UsePort<SendingRadio>();
  radio.stop_at = 3000;
  Bytes block(8122);
  const DialogScript script([&](HWND) { radio.Start(); });
  EXPECT_FALSE(ShowReadDialog(radio, block));
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Receive Timeout"});
  EXPECT_EQ(test_seams.messages[0].caption, "Communications Error");
  EXPECT_EQ(radio.sent.back(), kAbort);
}

TEST_F(ReadDialogTest, AWrongChecksumIsReported) {
  auto& radio = UsePort<SendingRadio>();
  radio.checksum_error = 1;
  Bytes block(8122);
  const DialogScript script([&](HWND) { radio.Start(); });
  EXPECT_FALSE(ShowReadDialog(radio, block));
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
  EXPECT_FALSE(ShowReadDialog(radio, block));
}

TEST_F(ReadDialogTest, APortThatIsGoneIsNotAskedAgain) {
  auto& radio = UsePort<SendingRadio>();
  Bytes block(8122);
  const DialogScript script([&](HWND dialog) {
    radio.failed = true;
    HandleMessagesUntil([] { return test_seams.messages.size() > 1; }, 200);
    EXPECT_LE(test_seams.messages.size(), 1U);
    Press(dialog, IDCANCEL);
  });
  EXPECT_FALSE(ShowReadDialog(radio, block));
}

// Sends a little at a time, so that the exchange lasts.
class SlowRadio : public SendingRadio {
 public:
  std::size_t Read(std::span<std::uint8_t> buffer) override {
    constexpr std::size_t kPiece = 150;
    const ULONGLONG now = GetTickCount64();
    left_ = now == read_at_ ? left_ : kPiece;
    read_at_ = now;
    const std::size_t count = SendingRadio::Read(buffer.first(std::min(buffer.size(), left_)));
    left_ -= count;
    return count;
  }

 private:
  ULONGLONG read_at_ = 0;
  std::size_t left_ = 0;
};

// Asks a window again and again from threads of its own, and counts the exchange's ticks that go by
// before each answer. A busy machine slows the ticks down with everything else.
class Asker {
 public:
  explicit Asker(HWND window)
      : ticker_([this] {
          while (!over_) {
            Sleep(kTickMilliseconds);
            ++ticks_;
          }
        }),
        asker_([this, window] {
          while (!over_) {
            const int asked = ticks_;
            SendMessageA(window, WM_NULL, 0, 0);
            most_ticks_ = std::max<int>(most_ticks_, ticks_ - asked);
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
      ticker_.join();
    }
  }
  int MostTicks() const { return most_ticks_; }
  int Answers() const { return answers_; }

 private:
  std::atomic<bool> over_ = false;
  std::atomic<bool> done_ = false;
  std::atomic<int> ticks_ = 0;
  std::atomic<int> most_ticks_ = 0;
  std::atomic<int> answers_ = 0;
  std::thread ticker_;
  std::thread asker_;
};

TEST_F(ReadDialogTest, AnswersWithinFiveTicksAtAnyMoment) {
  constexpr int kMostTicks = 50 / kTickMilliseconds;
  auto& radio = UsePort<SlowRadio>();
  Bytes block(8122);
  const DialogScript script([&](HWND) { radio.Start(); });
  Asker asker(app.main_window);
  EXPECT_TRUE(ShowReadDialog(radio, block));
  asker.Finish();
  EXPECT_LE(asker.MostTicks(), kMostTicks);
  EXPECT_GT(asker.Answers(), 10);
}

TEST_F(ReadDialogTest, LeavesNothingBehind) {
  auto& radio = UsePort<SendingRadio>();
  Bytes block(8122);
  const auto read = [&] {
    radio.acknowledged = 0;
    const DialogScript script([&](HWND) { radio.Start(); });
    EXPECT_TRUE(ShowReadDialog(radio, block));
  };
  read();
  const ProcessObjects before = CountObjects();
  for (int i = 0; i < 5; ++i) {
    read();
  }
  EXPECT_TRUE(ComesBackTo(before));
}

class SendingTest : public WindowTest {
 protected:
  SendingTest() {
    Bytes file = IntactFile(std::string_view("TPL\0", 4));
    PutTemplate(file);
  }
  void PutTemplate(Bytes file) {
    FixChecksums(file);
    PutFile(folder.File("mine.tpl"), file);
    Chosen().template_path = folder.File("mine.tpl");
  }
  static Preferences& Chosen() { return app.document.preferences; }
  bool Send() { return ShowWriteDialog(*app.port, app.document.working_copy, Chosen()); }
};

TEST_F(SendingTest, SendsTheDocumentUnderTheTemplatesIdentity) {
  auto& radio = UsePort<ReceivingRadio>();
  const DialogScript start([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, 104), "mine.tpl");
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog, IDOK));
    SavePicture(dialog, "write");
    Press(dialog, IDOK);
    EXPECT_FALSE(IsEnabled(dialog, IDOK));
    EXPECT_FALSE(IsEnabled(dialog, ID_BROWSE_TEMPLATE));
    SendMessageA(dialog, WM_COMMAND, IDOK, 0);
  });
  const DialogScript done([](HWND dialog) {
    SavePicture(dialog, "write_done");
    Press(dialog, IDOK);
  });
  EXPECT_TRUE(Send());
  ASSERT_EQ(radio.sent.size(), 8123U);
  const Bytes file = FileBytes(folder.File("mine.tpl"));
  EXPECT_TRUE(std::equal(file.begin() + 3060, file.begin() + 3070, radio.sent.begin()));
  EXPECT_EQ(radio.sent[10], file[3066]);
  EXPECT_EQ(radio.sent[11], file[3067]);
  EXPECT_EQ(radio.sent[12], file[3072]);
  EXPECT_EQ(radio.sent[13], file[3073]);
  EXPECT_EQ(radio.sent[14], app.document.image[3074]);
  EXPECT_EQ(radio.sent.back(), SumOf(Bytes(radio.sent.begin(), radio.sent.end() - 1)));
}

TEST_F(SendingTest, WithoutATemplateItSaysSoAndStaysOpen) {
  UsePort<ReceivingRadio>();
  Chosen().template_path.clear();
  const DialogScript script([](HWND dialog) {
    Press(dialog, IDOK);
    EXPECT_EQ(ShownTexts(), std::vector<std::string>{
                                "No template file specified.\nUse Browse Template to select one\n"
                                "or Help for create instructions.\n"});
    EXPECT_TRUE(IsEnabled(dialog, IDOK));
    Press(dialog, IDCANCEL);
  });
  EXPECT_FALSE(Send());
}

TEST_F(SendingTest, ATemplateOfTheJapaneseVersionEndsIt) {
  auto& radio = UsePort<ReceivingRadio>();
  Bytes file = IntactFile(std::string_view("TPL\0", 4));
  file[3068] = 1;
  PutTemplate(file);
  const DialogScript script([](HWND dialog) { Press(dialog, IDOK); });
  EXPECT_FALSE(Send());
  ASSERT_EQ(test_seams.messages.size(), 1U);
  EXPECT_EQ(test_seams.messages[0].icon, Icon::kStop);
  EXPECT_TRUE(radio.sent.empty());
}

TEST_F(SendingTest, BrowseStoresTheTemplateEvenWhenTheSendIsCancelled) {
  UsePort<ReceivingRadio>();
  test_seams.files = {qz7::Chosen("C:\\radio\\other.tpl")};
  const DialogScript script([](HWND dialog) {
    Press(dialog, ID_BROWSE_TEMPLATE);
    EXPECT_EQ(TextOf(dialog, 104), "other.tpl");
    Press(dialog, IDCANCEL);
  });
  EXPECT_FALSE(Send());
  EXPECT_EQ(test_seams.profile["TemplateFile"], "C:\\radio\\other.tpl");
  ASSERT_EQ(test_seams.open_boxes.size(), 1U);
  EXPECT_STREQ(test_seams.open_boxes[0].title, "Select Radio Template File");
  EXPECT_STREQ(test_seams.open_boxes[0].default_extension, "tpl");
}

TEST_F(SendingTest, ACancelledBrowseChangesNothing) {
  UsePort<ReceivingRadio>();
  const DialogScript script([](HWND dialog) {
    Press(dialog, ID_BROWSE_TEMPLATE);
    EXPECT_EQ(TextOf(dialog, 104), "mine.tpl");
    Press(dialog, IDCANCEL);
  });
  EXPECT_FALSE(Send());
  EXPECT_TRUE(test_seams.profile_writes.empty());
}

TEST_F(SendingTest, AfterRetryOfAWrongAnswerOnlyCancelIsLeft) {
  UsePort<ReceivingRadio>().answer = 0x15;
  test_seams.answers = {Answer::kRetry};
  const DialogScript script([](HWND dialog) {
    Press(dialog, IDOK);
    EXPECT_TRUE(HandleMessagesUntil([] { return !test_seams.messages.empty(); }));
    HandleMessages();
    EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Acknowledge Error"});
    EXPECT_FALSE(IsEnabled(dialog, IDOK));
    EXPECT_FALSE(IsEnabled(dialog, ID_BROWSE_TEMPLATE));
    Press(dialog, IDCANCEL);
  });
  EXPECT_FALSE(Send());
}

TEST_F(SendingTest, ARadioThatDoesNotAnswerLeavesTheDialogWaiting) {
  auto& radio = UsePort<ReceivingRadio>();
  radio.answers = false;
  const DialogScript script([&](HWND dialog) {
    Press(dialog, IDOK);
    HandleMessagesUntil([] { return false; }, 400);
    EXPECT_TRUE(test_seams.messages.empty());
    EXPECT_EQ(radio.sent.size(), 10U);
    Press(dialog, IDCANCEL);
  });
  EXPECT_FALSE(Send());
}

}  // namespace
}  // namespace qz7
