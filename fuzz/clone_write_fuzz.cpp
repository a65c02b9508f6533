// The send exchange against a radio and a user that do anything: each input byte is an event. The
// exchange may end well only after the radio's two acknowledgements and every block.

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "core/files/new_document.h"
#include "core/files/radio_data_file.h"
#include "core/link/clone_write.h"
#include "fuzz/fuzz_seams.h"
#include "tests/unit/memory_line.h"

namespace {

using namespace qz7;

// A sound template on disk, made once.
const std::string& TemplateFile() {
  static const std::string path = [] {
    const auto image = std::make_unique<CloneImage>();
    MakeNewImage(*image);
    std::string name =
        (std::filesystem::temp_directory_path() / "qz7-clone-write-fuzz.tpl").string();
    if (!WriteTemplateFile(*image, name)) {
      std::abort();
    }
    return name;
  }();
  return path;
}

void PlayEvent(FuzzInput& input, CloneWrite& write, MemoryLine& line) {
  switch (input.Byte() % 10) {
    case 0:
      line.incoming.push_back(kAck);
      break;
    case 1:
      line.incoming.push_back(input.Byte());
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
    case 5:
      line.read_limit = 1U + input.Byte() % 20U;
      break;
    case 6:
      fuzz_answers.push_back(input.Byte() % 2 == 0 ? Answer::kRetry : Answer::kCancel);
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
  if (write.polling && !write.ended) {
    TickCloneWrite(write, line);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kMostEvents = 400;
  fuzz_answers.clear();
  FuzzInput input(data, std::min(size, kMostEvents));
  const auto image = std::make_unique<CloneImage>();
  MakeNewImage(*image);
  MemoryLine line;
  line.Open("fuzz");
  CloneWrite write;
  BeginCloneWrite(write, line, *image);
  while (!input.IsEmpty() && !write.ended) {
    PlayEvent(input, write, line);
  }
  if (write.blocks_sent < 0 || write.blocks_sent > kCloneBlockCount) {
    std::abort();
  }
  if (write.ended == 0 && write.blocks_sent != kCloneBlockCount) {
    std::abort();
  }
  return 0;
}
