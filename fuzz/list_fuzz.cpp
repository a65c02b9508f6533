// A list of channels with arbitrary bytes, whose columns are told by its header line.

#include <algorithm>
#include <span>

#include "core/interchange/import.h"
#include "core/interchange/list_recognition.h"
#include "fuzz/fuzz_seams.h"

namespace qz7 {
namespace {

std::span<const std::uint8_t> BytesOf(const std::string& text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

// Each line stands for one of the file's, in their order.
void CheckLines(const RecognisedList& list) {
  Check(std::count(list.text.begin(), list.text.end(), '\n') ==
        static_cast<std::ptrdiff_t>(list.lines.size()));
  Check(list.text.empty() || list.text.back() == '\n');
  Check(std::is_sorted(list.lines.begin(), list.lines.end()));
  Check(list.lines.empty() || list.lines.front() >= 1);
}

}  // namespace
}  // namespace qz7

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace qz7;
  const RecognisedList list = RecogniseList({data, size});
  if (!list.is_recognised) {
    Check(list.text.empty() && list.lines.empty());
    return 0;
  }
  CheckLines(list);
  static CloneImage image;
  image = NewImage();
  ImportSession session;
  ImportRequest request;
  request.columns = kRecognisedColumns;
  const auto result = ImportIntoImage(image, session, BytesOf(list.text), request);
  if (result) {
    Check(result->placed <= result->listed && result->listed <= list.lines.size());
    const auto doubts = AllDoubts(list, result->doubts);
    Check(doubts.size() == list.doubts.size() + result->doubts.size());
  } else {
    Check(image == NewImage());
  }
  return 0;
}
