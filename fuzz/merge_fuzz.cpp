// A radio data file to merge from: arbitrary header and body behind two bytes of options. Short
// inputs are patches on a sound document. Nothing but channels, the tables beside them and the
// operating state may change.

#include <algorithm>
#include <span>

#include "core/image/clone_image.h"
#include "core/image/operating_state.h"
#include "core/interchange/merge_dialog_rules.h"
#include "fuzz/fuzz_seams.h"

namespace qz7 {
namespace {

// The document's bytes, patched by place and value.
const CloneImage& PatchedDocument(FuzzInput& input) {
  static CloneImage image;
  image = NewImage();
  while (!input.IsEmpty()) {
    const std::size_t low = input.Byte();
    const std::size_t high = input.Byte();
    image[(low | high << 8) % kCloneImageSize] = input.Byte();
  }
  return image;
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
  static CloneImage image;
  static CloneImage before;
  image = NewImage();
  if ((flags & 1) != 0) {
    WriteU16(image.data() + kChannelCountOffset, 65'535);
  }
  MergeOptions options;
  before = image;
  const MergeCounts counts = OpenMergeDialog(image, source, options);
  SetOnlyHam(source, options, (flags & 2) != 0);
  SetUseKey(source, options, (flags & 4) != 0);
  EditMergeKey(source, options, (flags & 8) != 0 ? "a" : "");
  options.overwrite = (flags & 16) != 0;
  SetGroup2(image, source, options, (flags & 32) != 0);
  const MergeAnswer answer =
      AcceptMerge(image, working_copy, source, options, (flags & 64) != 0 ? start : options.start);
  const bool kept =
      answer == MergeAnswer::kMerged ? NothingElseChanged(before, image) : before == image;
  Check(kept && counts.selected <= counts.available);
}

void UseChannels(const MergeSource& source, int first, int end) {
  for (int s = first; s < end; ++s) {
    SourceRecord(source, s);
    SourceName(source, s);
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
  const std::span bytes = std::span(data, size).subspan(options);
  MemoryFile file(bytes.size() < kDocumentHeader.size
                      ? std::span<const std::uint8_t>(PatchedDocument(input))
                      : bytes);
  static CloneImage working_copy;
  working_copy = NewImage();
  MergeSource source;
  if (!ReadMergeSource(source, working_copy, file, "fuzz.rdf")) {
    return 0;
  }
  SourceRadioType(source);
  // The channels that a radio has, and the last ones that the header names.
  const int end = SourceChannelCount(source) + 2;
  UseChannels(source, -1, std::min(end, kChannelCount + 2));
  UseChannels(source, std::max(end - 4, kChannelCount + 2), end);
  MergeOnce(source, working_copy, flags, start);
  return 0;
}
