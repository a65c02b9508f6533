// The receive exchange against a radio and a user that do anything: each input byte is an event.

#include <cstdlib>
#include <deque>
#include <vector>

#include "core/link/clone_read.h"
#include "fuzz/fuzz_seams.h"
#include "tests/unit/memory_line.h"

namespace {

using namespace qz7;

// A queue that nobody reads takes no more than two exchanges.
void SendBlockOf(MemoryLine& line, std::uint8_t byte, int count) {
  if (line.incoming.size() > 2 * kRadioBlock.size) {
    return;
  }
  line.incoming.insert(line.incoming.end(), static_cast<std::size_t>(count), byte);
}

// A tick or a notification while the exchange waits for an answer must do nothing at all.
void CheckStandsStill(CloneRead& read, MemoryLine& line) {
  const std::size_t incoming = line.incoming.size();
  const std::size_t sent = line.sent.size();
  TickCloneRead(read, line);
  NotifyCloneRead(read, line);
  if (line.incoming.size() != incoming || line.sent.size() != sent || !read.question) {
    std::abort();
  }
}

void PlayEvent(FuzzInput& input, CloneRead& read, MemoryLine& line, std::deque<Answer>& answers) {
  constexpr int kManyTicks = 30;
  switch (input.Byte() % 12) {
    case 0:
      SendBlockOf(line, 0x0A, 1);
      break;
    case 1:
      SendBlockOf(line, kAck, 1);
      break;
    case 2:
      SendBlockOf(line, input.Byte(), 1 + input.Byte() % 16);
      break;
    case 3:
      SendBlockOf(line, input.Byte(), 16 * (1 + input.Byte()));
      break;
    case 4:
      SendBlockOf(line, 0x00, static_cast<int>(kRadioBlock.size));
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
      line.incoming.push_back(CloneChecksum(read.block));
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
  std::vector<std::uint8_t> memory(kRadioBlock.size + 2 * kGuard, kGuardByte);
  MemoryLine line;
  line.Open("fuzz");
  CloneRead read;
  BeginCloneRead(read, line, std::span(memory).subspan(kGuard, kRadioBlock.size));
  while (!input.IsEmpty() && !read.ended) {
    PlayEvent(input, read, line, answers);
  }
  for (std::size_t i = 0; i < kGuard; ++i) {
    if (memory[i] != kGuardByte || memory[memory.size() - 1 - i] != kGuardByte) {
      std::abort();
    }
  }
  if (read.ended && (read.polling || read.question)) {
    std::abort();
  }
  return 0;
}
