#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/image/clone_image.h"

namespace qz7 {

// The document header, bytes 0..179 of a file and of the image:
//
//    0   4  magic "RDF\0" (radio data file) or "TPL\0" (template file)
//    4   4  radio identifier "QZ7H"
//    8   4  format version: 2; 1 is accepted in a radio data file and upgraded
//   12   4  total size: 21282
//   16  40  radio name, zero-terminated
//   56   2  channel count: 240      58  2  size of a summary entry: 12
//   60   2  size of a name entry: 10    62  2  size of a comment: 32
//   64   4  offset of the summary table    68  4  of the name table
//   72   4  of the comments                76  4  of the radio memory block
//   80   1  radio block checksum
//   81   1  file checksum
//   82  18  filler
//  100  80  file comment, zero-terminated, at most 79 characters
inline constexpr std::size_t kMagicOffset = 0;
inline constexpr std::size_t kIdentifierOffset = 4;
inline constexpr std::size_t kVersionOffset = 8;
inline constexpr std::size_t kTotalSizeOffset = 12;
inline constexpr Region kRadioName{.offset = 16, .size = 40};
inline constexpr std::size_t kSummarySizeOffset = 58;
inline constexpr std::size_t kNameSizeOffset = 60;
inline constexpr std::size_t kCommentSizeOffset = 62;
inline constexpr std::size_t kSummaryTableOffset = 64;
inline constexpr std::size_t kNameTableOffset = 68;
inline constexpr std::size_t kCommentsOffset = 72;
inline constexpr std::size_t kRadioBlockOffset = 76;
inline constexpr std::size_t kBlockChecksumOffset = 80;
inline constexpr std::size_t kFileChecksumOffset = 81;
inline constexpr Region kFiller{.offset = 82, .size = 18};
inline constexpr Region kFileComment{.offset = 100, .size = 80};

using Magic = std::array<std::uint8_t, 4>;
inline constexpr Magic kRadioDataMagic = {'R', 'D', 'F', 0};
inline constexpr Magic kTemplateMagic = {'T', 'P', 'L', 0};
inline constexpr std::string_view kRadioIdentifier = "QZ7H";
inline constexpr std::string_view kRadioNameText = "Tamro QZ-7H";
inline constexpr std::uint32_t kFormatVersion = 2;

void SetMagic(CloneImage& image, const Magic& magic);
bool HasMagic(const CloneImage& image, const Magic& magic);

// The header of a new document: every field but checksums, filler and comment.
void WriteDocumentHeader(CloneImage& image);

std::string_view RadioName(const CloneImage& image);
std::string_view FileComment(const CloneImage& image);

}  // namespace qz7
