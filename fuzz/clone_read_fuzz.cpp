// The receive exchange against a radio and a user that do anything: each input byte is an event.

#include <cstdlib>
#include <vector>

#include "core/link/clone_read.h"
#include "fuzz/fuzz_seams.h"
#include "tests/unit/memory_line.h"

namespace {

using namespace qz7;

void SendBlockOf(MemoryLine& line, std::uint8_t byte, int count) {
  line.incoming.insert(line.incoming.end(), static_cast<std::size_t>(count), byte);
}

void PlayEvent(FuzzInput& input, CloneRead& read, MemoryLine& line) {
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
    case 7:
      line.read_limit = 1U + input.Byte() % 20U;
      break;
    case 8:
      fuzz_answers.push_back(input.Byte() % 2 == 0 ? Answer::kRetry : Answer::kCancel);
      break;
    case 9:
      NotifyCloneRead(read, line);
      break;
    case 10:
      for (int i = 0; i < kManyTicks && read.polling; ++i) {
        TickCloneRead(read, line);
      }
      break;
    default:
      line.incoming.push_back(CloneChecksum(read.block));
      break;
  }
  if (read.polling && !read.ended) {
    TickCloneRead(read, line);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kGuard = 64;
  constexpr std::uint8_t kGuardByte = 0x5A;
  constexpr std::size_t kMostEvents = 400;
  fuzz_answers.clear();
  FuzzInput input(data, std::min(size, kMostEvents));
  std::vector<std::uint8_t> memory(kRadioBlock.size + 2 * kGuard, kGuardByte);
  MemoryLine line;
  line.Open("fuzz");
  CloneRead read;
  BeginCloneRead(read, line, std::span(memory).subspan(kGuard, kRadioBlock.size));
  while (!input.IsEmpty() && !read.ended) {
    PlayEvent(input, read, line);
  }
  for (std::size_t i = 0; i < kGuard; ++i) {
    if (memory[i] != kGuardByte || memory[memory.size() - 1 - i] != kGuardByte) {
      std::abort();
    }
  }
  if (read.ended && read.polling) {
    std::abort();
  }
  return 0;
}
