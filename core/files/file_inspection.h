#pragma once

#include <cstddef>
#include <iosfwd>

#include "core/image/clone_image.h"

namespace qz7 {

enum class FileKind { kRadioData, kTemplate, kUnknown };

// What a file says of itself and which of the readers' checks it passes; no message is shown. A
// file that is too short leaves the checks behind its end failed.
struct FileInspection {
  FileKind kind = FileKind::kUnknown;
  CloneImage image{};  // as read, the filler set to 0
  std::size_t size = 0;
  bool radio_identifier = false;
  bool total_size = false;
  bool complete = false;
  bool file_checksum = false;
  bool radio_block_checksum = false;
};

FileInspection InspectFile(std::istream& file);

// The memory channels that are programmed.
int CountProgrammedChannels(const CloneImage& image);

}  // namespace qz7
