// An import file with arbitrary bytes, read by options and columns from the front of the input,
// twice in one session: what import keeps for the whole run is part of the second reading. Nothing
// but channels and the tables beside them may change.

#include <algorithm>
#include <array>
#include <memory>
#include <span>

#include "core/image/clone_image.h"
#include "core/interchange/import.h"
#include "core/interchange/import_columns.h"
#include "fuzz/fuzz_seams.h"

namespace qz7 {
namespace {

constexpr std::size_t kOptionBytes = 17;

ImportRequest Request(FuzzInput& input) {
  constexpr std::array<char, 8> kSeparators = {',', ';', '\t', '"', '\0', ' ', '\n', '\''};
  ImportRequest request;
  const int flags = input.Byte();
  request.options.headers = (flags & 1) != 0;
  request.options.delimited = (flags & 2) == 0;
  request.options.field_separator = kSeparators[input.Byte() % kSeparators.size()];
  request.options.text_separator = kSeparators[input.Byte() % kSeparators.size()];
  for (std::uint32_t& column : request.columns) {
    column = input.Byte() % 16;
  }
  if ((flags & 4) != 0) {
    request.rows = {0, 2, input.Byte(), -1};
  }
  if ((flags & 8) != 0) {
    request.start = input.Byte() - 8;
  }
  return request;
}

void SetVersion(CloneImage& image, int choice) {
  image[kVersionType] = static_cast<std::uint8_t>(choice & 3);
  image[kVersionSubtype] = static_cast<std::uint8_t>(choice >> 2 & 7);
  image[kWideCoverage] = static_cast<std::uint8_t>(choice >> 5 & 1);
  WriteU16(image.data() + kChannelCountOffset,
           static_cast<std::uint16_t>((choice & 0x40) != 0 ? 65'535 : kChannelCount));
}

bool Same(const CloneImage& a, const CloneImage& b, std::size_t from, std::size_t to) {
  const auto at = [](std::size_t offset) { return static_cast<std::ptrdiff_t>(offset); };
  return std::equal(a.begin() + at(from), a.begin() + at(to), b.begin() + at(from));
}

// The gaps between the regions that an import writes, but for the header, whose count it restores.
bool NothingElseChanged(const CloneImage& before, const CloneImage& after) {
  return Same(before, after, kDocumentHeader.offset, kChannelCountOffset) &&
         Same(before, after, kChannelCountOffset + 2, kSummaryTable.offset) &&
         Same(before, after, kRadioBlock.offset, kChannelFlags.offset) &&
         Same(before, after, kChannelFlags.end(), kChannelRecords.offset) &&
         Same(before, after, kChannelRecords.end(), kNameTable.offset);
}

// Every row selected and every button pressed, in and out of turn.
void UseColumnDialog(ImportSession session, std::span<const std::uint8_t> bytes) {
  ImportLines lines = LinesOf(bytes);
  ColumnDialog dialog = OpenColumnDialog(session, lines);
  for (int row = 0; row <= static_cast<int>(dialog.texts.size()); ++row) {
    SelectColumn(dialog, row);
    PressFieldButton(dialog, row % kCsvColumnCount, row);
    PressFieldButton(dialog, row * 7 % kCsvColumnCount, row / 2);
  }
  AcceptColumns(session, dialog);
}

}  // namespace
}  // namespace qz7

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace qz7;
  FuzzInput input(data, std::min(size, kOptionBytes));
  const std::span<const std::uint8_t> bytes =
      std::span(data, size).subspan(std::min(size, kOptionBytes));
  const auto image = std::make_unique<CloneImage>();
  SetVersion(*image, input.Byte());
  const ImportRequest request = Request(input);
  ImportSession session;
  for (int i = 0; i < 2; ++i) {
    const CloneImage before = *image;
    const auto result = ImportIntoImage(*image, session, bytes, request);
    Check(result ? NothingElseChanged(before, *image) : before == *image);
  }
  UseColumnDialog(session, bytes);
  const ImportLines lines = LinesOf(bytes);
  ImportLines opened = lines;
  session.line_count = CountLines(opened);
  if (const auto list = OpenSelection(*image, session, opened)) {
    for (const ImportRecord& record : list->Rows()) {
      FormatImportRow(record);
    }
  }
  return 0;
}
