// The receive exchange against a radio and a user that do anything: each input byte is an event.

#include <algorithm>
#include <array>
#include <deque>

#include "core/link/clone_read.h"
#include "fuzz/fuzz_line.h"
#include "fuzz/fuzz_seams.h"

namespace {

using namespace qz7;

// What the radio sends in one input: enough for an exchange that fails and another one.
struct Radio {
  FuzzLine& line;
  std::size_t left = 3 * kRadioBlock.size;

  void Send(std::uint8_t byte, std::size_t count = 1) {
    const std::size_t sent = std::min(left, count);
    left -= sent;
    line.Receive(byte, sent);
  }
};

// A tick or a notification while the exchange waits for an answer must do nothing at all.
void CheckStandsStill(CloneRead& read, FuzzLine& line) {
  const std::size_t incoming = line.Waiting();
  const std::size_t sent = line.sent.size();
  TickCloneRead(read, line);
  NotifyCloneRead(read, line);
  Check(line.Waiting() == incoming && line.sent.size() == sent && read.question.has_value());
}

void PlayEvent(FuzzInput& input, CloneRead& read, Radio& radio, std::deque<Answer>& answers) {
  constexpr int kManyTicks = 30;
  FuzzLine& line = radio.line;
  switch (input.Byte() % 12) {
    case 0:
      radio.Send(0x0A);
      break;
    case 1:
      radio.Send(kAck);
      break;
    case 2:
      radio.Send(input.Byte(), 1U + input.Byte() % 16U);
      break;
    case 3:
      radio.Send(input.Byte(), 16U * (1U + input.Byte()));
      break;
    case 4:
      radio.Send(0x00, kRadioBlock.size);
      break;
    case 5:
      line.line_errors = input.Byte();
      break;
    case 6:
      line.echo = !line.echo;
      break;
    case 7: {
      const std::uint8_t how = input.Byte();
      line.read_limit = 1U + how % 20U;
      line.reads_to_fail = how / 64;  // mostly a few
      break;
    }
    case 8:
      answers.push_back(input.Byte() % 2 == 0 ? Answer::kRetry : Answer::kCancel);
      break;
    case 9:
      NotifyCloneRead(read, line);
      break;
    case 10:
      for (int i = 0; i < kManyTicks; ++i) {
        TickCloneRead(read, line);
      }
      break;
    default:
      radio.Send(CloneChecksum(read.block));
      break;
  }
  TickCloneRead(read, line);
  if (read.question && answers.empty()) {
    CheckStandsStill(read, line);
  } else if (read.question) {
    AnswerCloneRead(read, line, answers.front());
    answers.pop_front();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kGuard = 64;
  constexpr std::uint8_t kGuardByte = 0x5A;
  constexpr std::size_t kMostEvents = 400;
  std::deque<Answer> answers;
  FuzzInput input(data, std::min(size, kMostEvents));
  static std::array<std::uint8_t, kRadioBlock.size + 2 * kGuard> memory;
  memory.fill(kGuardByte);
  FuzzLine line;
  line.Open("fuzz");
  Radio radio{line};
  CloneRead read;
  BeginCloneRead(read, line, std::span(memory).subspan(kGuard, kRadioBlock.size));
  while (!input.IsEmpty() && !read.ended) {
    PlayEvent(input, read, radio, answers);
  }
  for (std::size_t i = 0; i < kGuard; ++i) {
    Check(memory[i] == kGuardByte && memory[memory.size() - 1 - i] == kGuardByte);
  }
  Check(!read.ended || (!read.polling && !read.question));
  return 0;
}
