// A radio data file with arbitrary bytes, and every accessor over what the reader accepts. Short
// inputs are patches on a sound document, with both checksums made right, so that the fuzzer
// reaches what lies behind them.

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <sstream>
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

std::string PatchedDocument(FuzzInput& input) {
  CloneImage image = NewImage();
  while (!input.IsEmpty()) {
    const std::size_t at = input.Word() % kCloneImageSize;
    image[at] = input.Byte();
  }
  image[kBlockChecksumOffset] = RadioBlockChecksum(image);
  image[kFileChecksumOffset] = 0;
  image[kFileChecksumOffset] = FileChecksum(image);
  return {image.begin(), image.end()};
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
         !SameBytes(ChannelComment(image, n), ChannelComment(untouched, n), kCommentSize) ||
         GetChannelName(image, n) != GetChannelName(untouched, n) ||
         IsProgrammed(image, n) != IsProgrammed(untouched, n) ||
         IsMasked(image, n) != IsMasked(untouched, n) || IsSkip(image, n) != IsSkip(untouched, n);
}

void UseEverything(CloneImage& image) {
  const CloneImage before = image;
  // Beside the changed channels some others, which ones the file says.
  constexpr int kOthers = 32;
  const int other = image[kFileChecksumOffset] % kOthers;
  for (int n = -40; n <= GetChannelCount(image) + 2; ++n) {
    if (IsChanged(image, n) || (n + 40) % kOthers == other) {
      UseChannel(image, n);
    }
  }
  PrintText text;
  if (BuildPrintText(image, "fuzz", DtmfDisplay::kSymbols, {}, text)) {
    PrintLines(text);
  }
  RefreshOperatingState(image);
  MirrorOperatingChannel(image);
  CopyNamesToTable(image);
  RebuildDerivedTables(image);
  CountProgrammedChannels(image);
  DocumentDifferences(before, image, {});
}

}  // namespace
}  // namespace qz7

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace qz7;
  FuzzInput input(data, size);
  const auto image = std::make_unique<CloneImage>();
  const std::string bytes = size < kDocumentHeader.size
                                ? PatchedDocument(input)
                                : std::string(reinterpret_cast<const char*>(data), size);
  std::istringstream file(bytes);
  if (!ReadRadioDataFile(*image, file, "fuzz.rdf")) {
    return 0;
  }
  UseEverything(*image);
  // What was accepted once is written so that it is accepted again.
  PrepareRadioDataFile(*image);
  std::istringstream again(std::string(image->begin(), image->end()));
  const auto reread = std::make_unique<CloneImage>();
  if (!ReadRadioDataFile(*reread, again, "fuzz.rdf")) {
    std::abort();
  }
  return 0;
}
