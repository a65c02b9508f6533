#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>

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

// The file "qz7.def". One file is written and read, so that no two can differ.
struct DefaultsFile {
  std::filesystem::path path;
  std::filesystem::path fallback_path;  // read as long as there is no file at `path`; empty: none
};

// The one in the current folder; where that cannot be written, the one in the user's own folder,
// which starts from what the current folder has. `user_path` may be empty: no such folder.
DefaultsFile ChooseDefaultsFile(const std::filesystem::path& current_path,
                                const std::filesystem::path& user_path);

// Reads the file; a short one leaves the rest of the record as it was. False without a file.
bool LoadDefaultsRecord(DefaultsRecord& record, const DefaultsFile& file);
// Failures are not reported.
void SaveDefaultsRecord(const DefaultsRecord& record, const DefaultsFile& file);

}  // namespace qz7
