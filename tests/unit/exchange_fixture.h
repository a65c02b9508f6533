#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "core/link/clone_read.h"
#include "tests/unit/memory_line.h"
#include "tests/unit/seams.h"
#include "tests/unit/temp_folder.h"

namespace qz7 {

// What a radio sends: a header that starts with 0x0A, and bytes that differ from their neighbours.
inline Bytes RadioMemory() {
  Bytes block = {0x0A, 0x01, 0x02, 0x06, 0x09, 0x24, 0xC1, 0x01, 0x00, 0x24};
  for (std::size_t i = block.size(); i < kRadioBlock.size; ++i) {
    block.push_back(static_cast<std::uint8_t>(i * 29 + i / 256));
  }
  return block;
}

// The checksum byte that belongs to a radio's memory.
inline std::uint8_t ChecksumOf(const Bytes& block) {
  unsigned sum = 0;
  for (const std::uint8_t byte : block) {
    sum += byte;
  }
  return static_cast<std::uint8_t>(sum % 256);
}

// Room for a radio block with bytes around it that nobody may touch.
class GuardedBlock {
 public:
  std::span<std::uint8_t> Span() { return std::span(bytes_).subspan(kGuard, kRadioBlock.size); }
  Bytes Content() const { return {bytes_.begin() + kGuard, bytes_.end() - kGuard}; }
  bool GuardsAreIntact() const {
    const auto is_guard = [](std::uint8_t byte) { return byte == kGuardByte; };
    return std::all_of(bytes_.begin(), bytes_.begin() + kGuard, is_guard) &&
           std::all_of(bytes_.end() - kGuard, bytes_.end(), is_guard);
  }

 private:
  static constexpr std::ptrdiff_t kGuard = 128;
  static constexpr std::uint8_t kGuardByte = 0xA5;
  Bytes bytes_ = Bytes(kRadioBlock.size + 2 * kGuard, kGuardByte);
};

// The only message so far is this one of the link, and it leaves the choice to retry.
inline void ExpectRetryBox(const std::string& text) {
  ASSERT_EQ(ShownTexts(), std::vector<std::string>{text});
  EXPECT_EQ(test_seams.messages[0].caption, "Communications Error");
  EXPECT_EQ(test_seams.messages[0].buttons, Buttons::kRetryCancel);
}

// A read that listens on a line in memory. The test plays the radio; the line echoes, as the cable
// does, unless the test switches that off.
class ListeningRead : public testing::Test {
 protected:
  ListeningRead() {
    line_.Open("line");
    Open();
  }

  void Open() { BeginCloneRead(read_, line_, block_.Span()); }

  void Arrive(const Bytes& bytes) {
    line_.incoming.insert(line_.incoming.end(), bytes.begin(), bytes.end());
  }
  // The radio sends its memory from one place up to another.
  void ArriveMemory(std::size_t first, std::size_t end) {
    line_.incoming.insert(line_.incoming.end(), radio_.begin() + static_cast<std::ptrdiff_t>(first),
                          radio_.begin() + static_cast<std::ptrdiff_t>(end));
  }

  // As a program does: shows what a step has asked, and hands the answer over.
  void AnswerQuestions() {
    while (read_.question) {
      const LinkQuestion asked = *read_.question;
      AnswerCloneRead(read_, line_,
                      ShowMessage(asked.text, asked.caption, asked.buttons, Icon::kNone));
    }
  }
  bool Step() {
    const bool worked = StepCloneRead(read_, line_);
    AnswerQuestions();
    return worked;
  }
  void Notify() {
    NotifyCloneRead(read_, line_);
    AnswerQuestions();
  }
  void Tick() {
    ASSERT_TRUE(read_.polling) << "no tick comes from a timer that is stopped";
    TickCloneRead(read_, line_);
    AnswerQuestions();
  }
  void Ticks(int count) {
    for (int n = 0; n < count && read_.polling; ++n) {
      Tick();
    }
  }

  // The radio has sent so many bytes, 10 or more, and waited for both acknowledgements.
  void ReceiveMemory(std::size_t count) {
    std::size_t first = 0;
    for (const std::size_t end : {std::size_t{10}, std::size_t{26}, count}) {
      if (end <= count && first < end) {
        ArriveMemory(first, end);
        Notify();
        first = end;
      }
    }
    if (first < count) {
      ArriveMemory(first, count);
      Notify();
    }
  }

  // The header has come; its acknowledgement has been sent and has not come back.
  void WaitForReadBack() {
    line_.echo = false;
    ArriveMemory(0, 10);
    Notify();
    ASSERT_EQ(read_.phase, CloneRead::kReadBackAck);
  }

  bool IsOver() const { return read_.ended.has_value(); }

  const Bytes radio_ = RadioMemory();
  GuardedBlock block_;
  MemoryLine line_;
  CloneRead read_;
};

}  // namespace qz7
