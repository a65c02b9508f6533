// A radio data file to merge from: arbitrary header and body behind two bytes of options. Short
// inputs are patches on a sound document. Nothing but channels, the tables beside them and the
// operating state may change.

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <string>

#include "core/image/clone_image.h"
#include "core/image/operating_state.h"
#include "core/interchange/merge_dialog_rules.h"
#include "fuzz/fuzz_seams.h"

namespace qz7 {
namespace {

// The document's bytes, patched by place and value.
std::string PatchedDocument(FuzzInput& input) {
  CloneImage image = NewImage();
  while (!input.IsEmpty()) {
    const std::size_t low = input.Byte();
    const std::size_t high = input.Byte();
    image[(low | high << 8) % kCloneImageSize] = input.Byte();
  }
  return {image.begin(), image.end()};
}

bool Same(const CloneImage& a, const CloneImage& b, std::size_t from, std::size_t to) {
  const auto at = [](std::size_t offset) { return static_cast<std::ptrdiff_t>(offset); };
  return std::equal(a.begin() + at(from), a.begin() + at(to), b.begin() + at(from));
}

bool NothingElseChanged(const CloneImage& before, const CloneImage& after) {
  return Same(before, after, kDocumentHeader.offset, kChannelFlags.offset) &&
         Same(before, after, kChannelFlags.end(), kChannelRecords.offset) &&
         Same(before, after, kChannelRecords.end(), kOperatingMode) &&
         Same(before, after, kCurrentMemoryFlags + 1, kNameTable.offset);
}

void MergeOnce(const MergeSource& source, const CloneImage& working_copy, int flags, int start) {
  const auto image = std::make_unique<CloneImage>(NewImage());
  if ((flags & 1) != 0) {
    WriteU16(image->data() + kChannelCountOffset, 65'535);
  }
  MergeOptions options;
  const CloneImage before = *image;
  const MergeCounts counts = OpenMergeDialog(*image, source, options);
  SetOnlyHam(source, options, (flags & 2) != 0);
  SetUseKey(source, options, (flags & 4) != 0);
  EditMergeKey(source, options, (flags & 8) != 0 ? "a" : "");
  options.overwrite = (flags & 16) != 0;
  SetGroup2(*image, source, options, (flags & 32) != 0);
  const MergeAnswer answer =
      AcceptMerge(*image, working_copy, source, options, (flags & 64) != 0 ? start : options.start);
  const bool kept =
      answer == MergeAnswer::kMerged ? NothingElseChanged(before, *image) : before == *image;
  if (!kept || counts.selected > counts.available) {
    std::abort();
  }
}

}  // namespace
}  // namespace qz7

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace qz7;
  FuzzInput input(data, size);
  const int flags = input.Byte();
  const int start = input.Byte();
  const std::size_t options = std::min<std::size_t>(size, 2);
  const std::string bytes =
      size - options < kDocumentHeader.size
          ? PatchedDocument(input)
          : std::string(reinterpret_cast<const char*>(data) + options, size - options);
  std::istringstream file(bytes);
  const auto working_copy = std::make_unique<CloneImage>(NewImage());
  MergeSource source;
  if (!ReadMergeSource(source, *working_copy, file, "fuzz.rdf")) {
    return 0;
  }
  SourceRadioType(source);
  for (int s = -1; s <= SourceChannelCount(source) + 1; ++s) {
    SourceRecord(source, s);
    SourceName(source, s);
  }
  MergeOnce(source, *working_copy, flags, start);
  return 0;
}
