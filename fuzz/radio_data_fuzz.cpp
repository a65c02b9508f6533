// A radio data file with arbitrary bytes, and every accessor over what the reader accepts. Short
// inputs are patches on a sound document, with both checksums made right, so that the fuzzer
// reaches what lies behind them.

#include <algorithm>
#include <span>
#include <string>

#include "core/editors/image_difference.h"
#include "core/editors/print_text.h"
#include "core/files/document_header.h"
#include "core/files/file_inspection.h"
#include "core/files/radio_data_file.h"
#include "core/image/band_plan.h"
#include "core/image/channel_description.h"
#include "core/image/channel_record.h"
#include "core/image/channel_text.h"
#include "core/image/derived_tables.h"
#include "core/image/operating_state.h"
#include "fuzz/fuzz_seams.h"

namespace qz7 {
namespace {

const CloneImage& PatchedDocument(FuzzInput& input) {
  static CloneImage image;
  image = NewImage();
  while (!input.IsEmpty()) {
    const std::size_t at = input.Word() % kCloneImageSize;
    image[at] = input.Byte();
  }
  image[kBlockChecksumOffset] = RadioBlockChecksum(image);
  image[kFileChecksumOffset] = 0;
  image[kFileChecksumOffset] = FileChecksum(image);
  return image;
}

void UseChannel(CloneImage& image, int n) {
  if (n != 0) {
    FormatListRow(image, n, {});
    std::string line;
    FormatPrintLine(image, n, {}, line);
    DescribeChannel(image, n, {});
    SlotTitle(image, n);
  }
  const ChannelName name = GetChannelName(image, n);
  SetChannelName(image, n, name.data());
  SetProgrammed(image, n, IsProgrammed(image, n));
  SetMasked(image, n, IsMasked(image, n));
  SetSkip(image, n, IsSkip(image, n));
  ChannelCommentText(image, n);
  if (const std::uint8_t* record = GetChannelRecord(image, n)) {
    ChannelRecord old;
    std::copy_n(record, kRecordSize, old.begin());
    const ChannelFrequencies frequencies = DecodeFrequencies(record, {});
    BuildChannelRecord(old, DecodeChoices(record, {}), frequencies, n, {});
    IsValidFrequency(image, frequencies.receive);
    FillStepList(frequencies.receive, n, {});
  }
}

template <typename Byte>
bool SameBytes(const Byte* a, const Byte* b, std::size_t size) {
  return a == nullptr || b == nullptr ? a == b : std::equal(a, a + size, b);
}

// Whether the channel is another one than the new document's, which all inputs have in common.
bool IsChanged(CloneImage& image, int n) {
  static CloneImage untouched = NewImage();
  return !SameBytes(GetChannelRecord(image, n), GetChannelRecord(untouched, n), kRecordSize) ||
         !SameBytes(GetChannelFlagByte(image, n), GetChannelFlagByte(untouched, n), 1) ||
         !SameBytes(ChannelComment(image, n), ChannelComment(untouched, n), kCommentSize);
}

// The channels that lie in the image, and some that the count names behind them.
void UseChannels(CloneImage& image) {
  // Beside the changed channels some others, which ones the file says.
  constexpr int kOthers = 32;
  const int other = image[kFileChecksumOffset] % kOthers;
  constexpr int kFirst = -40;
  constexpr int kBehind = kChannelCount + 3;
  const int end = GetChannelCount(image) + 3;
  for (int n = kFirst; n < std::min(end, kBehind); ++n) {
    if (IsChanged(image, n) || (n - kFirst) % kOthers == other) {
      UseChannel(image, n);
    }
  }
  for (int n = std::max(end - kPmsChannelCount - 5, kBehind); n < end; ++n) {
    UseChannel(image, n);
  }
}

void UseEverything(CloneImage& image) {
  UseChannels(image);
  PrintText text;
  if (BuildPrintText(image, "fuzz", DtmfDisplay::kSymbols, {}, text)) {
    PrintLines(text);
  }
  RefreshOperatingState(image);
  MirrorOperatingChannel(image);
  CopyNamesToTable(image);
  RebuildDerivedTables(image);
  CountProgrammedChannels(image);
  DocumentDifferences(NewImage(), image, {});
}

}  // namespace
}  // namespace qz7

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace qz7;
  FuzzInput input(data, size);
  static CloneImage image;
  MemoryFile file(size < kDocumentHeader.size
                      ? std::span<const std::uint8_t>(PatchedDocument(input))
                      : std::span(data, size));
  if (!ReadRadioDataFile(image, file, "fuzz.rdf")) {
    return 0;
  }
  UseEverything(image);
  // What was accepted once is written so that it is accepted again.
  PrepareRadioDataFile(image);
  MemoryFile again(image);
  static CloneImage reread;
  Check(ReadRadioDataFile(reread, again, "fuzz.rdf"));
  return 0;
}
