// The send exchange against a radio and a user that do anything: each input byte is an event. The
// exchange may end well only after the radio's two acknowledgements and every block.

#include <algorithm>
#include <deque>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "core/files/radio_data_file.h"
#include "core/link/clone_write.h"
#include "fuzz/fuzz_line.h"
#include "fuzz/fuzz_seams.h"

namespace {

using namespace qz7;

// A sound template on disk, made once.
const std::string& TemplateFile() {
  static const std::string path = [] {
    const auto image = std::make_unique<CloneImage>(NewImage());
    std::string name =
        (std::filesystem::temp_directory_path() / "qz7-clone-write-fuzz.tpl").string();
    Check(WriteTemplateFile(*image, name));
    return name;
  }();
  return path;
}

void PlayEvent(FuzzInput& input, CloneWrite& write, FuzzLine& line, std::deque<Answer>& answers) {
  switch (input.Byte() % 10) {
    case 0:
      line.Receive(kAck);
      break;
    case 1:
      line.Receive(input.Byte());
      break;
    case 2:
      line.echo = !line.echo;
      break;
    case 3:
      line.write_limit = input.Byte() % 20U;
      break;
    case 4:
      line.write_limit = SIZE_MAX;
      break;
    case 5: {
      const std::uint8_t how = input.Byte();
      line.read_limit = 1U + how % 20U;
      line.reads_to_fail = how / 64;  // mostly a few
      break;
    }
    case 6:
      answers.push_back(input.Byte() % 2 == 0 ? Answer::kRetry : Answer::kCancel);
      break;
    case 7:
      StartCloneWrite(write, line, TemplateFile());
      break;
    case 8:
      write.response_countdown = 0;
      break;
    default:
      NotifyCloneWrite(write, line);
      break;
  }
  TickCloneWrite(write, line);
  if (write.question && !answers.empty()) {
    AnswerCloneWrite(write, line, answers.front());
    answers.pop_front();
  }
}

// The last that was put on the line is the whole block and its checksum.
bool SentEverything(const CloneWrite& write, const FuzzLine& line) {
  std::vector<std::uint8_t> all(write.block.begin(), write.block.end());
  all.push_back(CloneChecksum(write.block));
  return line.sent.size() >= all.size() &&
         std::equal(all.begin(), all.end(),
                    line.sent.end() - static_cast<std::ptrdiff_t>(all.size()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kMostEvents = 400;
  std::deque<Answer> answers;
  FuzzInput input(data, std::min(size, kMostEvents));
  static CloneImage image;
  image = NewImage();
  FuzzLine line;
  line.Open("fuzz");
  CloneWrite write;
  BeginCloneWrite(write, line, image);
  while (!input.IsEmpty() && !write.ended) {
    PlayEvent(input, write, line, answers);
  }
  Check(write.blocks_sent >= 0 && write.blocks_sent <= kCloneBlockCount);
  Check(write.ended != 0 || (write.blocks_sent == kCloneBlockCount && SentEverything(write, line)));
  return 0;
}
