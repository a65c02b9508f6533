#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "core/image/clone_image.h"

namespace qz7 {

// The defaults record: a snapshot of the radio's settings, from which the dialogs can start instead
// of from the document. It mirrors pieces of the image one behind the other:
//
//   record     image
//     0  789   9618    settings, WX names, VORN identifier, autodial memories
//   789    4  10490
//   793    1  10497
//   794    5  10502    levels, bit fields
inline constexpr std::size_t kDefaultsRecordSize = 799;
using DefaultsRecord = std::array<std::uint8_t, kDefaultsRecordSize>;

// Where the record keeps an image byte that it mirrors; kDefaultsRecordSize for any other byte.
std::size_t DefaultsPlace(std::size_t image_offset);

// Takes every mirrored byte from the image, bit fields whole.
void FillDefaultsRecord(DefaultsRecord& record, const CloneImage& image);

// The main dialog's settings: whole bytes, and of the bit fields the bits that it owns.
void CopyMainDefaultsToImage(const DefaultsRecord& record, CloneImage& image);
void CopyMainDefaultsToRecord(const CloneImage& image, DefaultsRecord& record);

// The file "qz7.def": the one in the current folder, or, where there is none and none can be made,
// the one in the user's own folder.
struct DefaultsFile {
  std::string path;
  std::string fallback_path;  // empty: none
};

// Reads the file; a short one leaves the rest of the record as it was. Without a file the record is
// filled from the image.
void LoadDefaultsRecord(DefaultsRecord& record, const DefaultsFile& file, const CloneImage& image);
// Failures are not reported.
void SaveDefaultsRecord(const DefaultsRecord& record, const DefaultsFile& file);

}  // namespace qz7
