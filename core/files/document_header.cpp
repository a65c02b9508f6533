#include "core/files/document_header.h"

#include <algorithm>

namespace qz7 {
namespace {

void PutText(CloneImage& image, std::size_t offset, std::string_view text) {
  std::copy(text.begin(), text.end(), image.begin() + static_cast<std::ptrdiff_t>(offset));
}

std::string_view TextAt(const CloneImage& image, Region field) {
  return FieldText(reinterpret_cast<const char*>(image.data() + field.offset), field.size);
}

}  // namespace

void SetMagic(CloneImage& image, const Magic& magic) {
  std::copy(magic.begin(), magic.end(), image.begin() + kMagicOffset);
}

bool HasMagic(const CloneImage& image, const Magic& magic) {
  return std::equal(magic.begin(), magic.end(), image.begin() + kMagicOffset);
}

void WriteDocumentHeader(CloneImage& image) {
  const auto put16 = [&](std::size_t offset, std::size_t value) {
    WriteU16(image.data() + offset, static_cast<std::uint16_t>(value));
  };
  const auto put32 = [&](std::size_t offset, std::size_t value) {
    WriteU32(image.data() + offset, static_cast<std::uint32_t>(value));
  };
  SetMagic(image, kRadioDataMagic);
  PutText(image, kIdentifierOffset, kRadioIdentifier);
  put32(kVersionOffset, kFormatVersion);
  put32(kTotalSizeOffset, kCloneImageSize);
  std::fill_n(image.begin() + kRadioName.offset, kRadioName.size, std::uint8_t{0});
  PutText(image, kRadioName.offset, kRadioNameText);
  put16(kChannelCountOffset, kChannelCount);
  put16(kSummarySizeOffset, kSummaryEntrySize);
  put16(kNameSizeOffset, kNameEntrySize);
  put16(kCommentSizeOffset, kCommentSize);
  put32(kSummaryTableOffset, kSummaryTable.offset);
  put32(kNameTableOffset, kNameTable.offset);
  put32(kCommentsOffset, kComments.offset);
  put32(kRadioBlockOffset, kRadioBlock.offset);
}

std::string_view RadioName(const CloneImage& image) { return TextAt(image, kRadioName); }
std::string_view FileComment(const CloneImage& image) { return TextAt(image, kFileComment); }

}  // namespace qz7
