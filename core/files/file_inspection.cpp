#include "core/files/file_inspection.h"

#include <algorithm>
#include <istream>

#include "core/files/document_header.h"
#include "core/files/radio_data_file.h"

namespace qz7 {

FileInspection InspectFile(std::istream& file) {
  FileInspection found;
  CloneImage& image = found.image;
  file.read(reinterpret_cast<char*>(image.data()), static_cast<std::streamsize>(image.size()));
  found.size = static_cast<std::size_t>(file.gcount());
  if (found.size < kDocumentHeader.size) {
    return found;
  }
  if (HasMagic(image, kRadioDataMagic)) {
    found.kind = FileKind::kRadioData;
  } else if (HasMagic(image, kTemplateMagic)) {
    found.kind = FileKind::kTemplate;
  }
  found.radio_identifier = std::equal(kRadioIdentifier.begin(), kRadioIdentifier.end(),
                                      image.begin() + kIdentifierOffset);
  found.total_size = ReadU32(image.data() + kTotalSizeOffset) == kCloneImageSize;
  found.complete = found.size == kCloneImageSize;
  found.file_checksum = found.complete && FileChecksum(image) == 0;
  found.radio_block_checksum =
      found.complete && RadioBlockChecksum(image) == image[kBlockChecksumOffset];
  return found;
}

int CountProgrammedChannels(const CloneImage& image) {
  int programmed = 0;
  for (int n = 1; n <= std::min(GetChannelCount(image), kChannelCount); ++n) {
    programmed += IsProgrammed(image, n) ? 1 : 0;
  }
  return programmed;
}

}  // namespace qz7
