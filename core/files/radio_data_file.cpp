#include "core/files/radio_data_file.h"

#include <algorithm>
#include <istream>
#include <numeric>
#include <random>

#include "core/files/document_header.h"
#include "core/files/file_output.h"
#include "core/files/paths.h"
#include "core/files/seams.h"
#include "core/image/derived_tables.h"

namespace qz7 {
namespace {

// What the two kinds of file differ in when they are read.
struct FileKind {
  const Magic& magic;
  const char* wrong_magic;
  const char* wrong_radio;
  const char* bad_header;
  const char* bad_format;
};

constexpr FileKind kRadioDataFile = {
    kRadioDataMagic, "Not a radio data file:\n", "Radio data file for for different radio:\n",
    "Radio data file has invalid header", "Radio data file has invalid format"};
constexpr FileKind kTemplateFile = {
    kTemplateMagic, "Not a template file:\n", "Template file for for different radio:\n",
    "Template file has invalid header", "Template file has invalid format"};

bool Refuse(const std::string& message) {
  ShowFileError(message);
  return false;
}

bool RefuseToOpen(const std::filesystem::path& path) {
  return Refuse("Cannot open file:\n" + PathText(path));
}

unsigned SumOf(const CloneImage& image, Region region) {
  const auto first = image.begin() + static_cast<std::ptrdiff_t>(region.offset);
  return std::accumulate(first, first + static_cast<std::ptrdiff_t>(region.size), 0U);
}

// Reads the file whole and checks all but its checksums.
bool ReadImageFile(CloneImage& buffer, std::istream& file, const std::string& name,
                   const FileKind& kind) {
  const auto read = [&](Region part) {
    file.read(reinterpret_cast<char*>(buffer.data() + part.offset),
              static_cast<std::streamsize>(part.size));
    return file.gcount() == static_cast<std::streamsize>(part.size);
  };
  if (!read(kDocumentHeader) || !HasMagic(buffer, kind.magic)) {
    return Refuse(kind.wrong_magic + name);
  }
  if (!std::equal(kRadioIdentifier.begin(), kRadioIdentifier.end(),
                  buffer.begin() + kIdentifierOffset)) {
    return Refuse(kind.wrong_radio + ShownText(RadioName(buffer)));
  }
  if (ReadU32(buffer.data() + kTotalSizeOffset) != kCloneImageSize) {
    return Refuse(kind.bad_header);
  }
  if (!read({.offset = kDocumentHeader.size, .size = kCloneImageSize - kDocumentHeader.size})) {
    return Refuse(kind.bad_format);
  }
  return true;
}

void StoreFileChecksum(CloneImage& image) {
  image[kFileChecksumOffset] = 0;
  image[kFileChecksumOffset] = FileChecksum(image);
}

// The filler is written after the checksum on purpose: it makes two saves of one document differ,
// and every reader ignores it.
void DrawFiller(CloneImage& image) {
  std::minstd_rand generator(CurrentTimeSeconds());
  std::generate_n(image.begin() + kFiller.offset, kFiller.size,
                  [&] { return static_cast<std::uint8_t>(generator()); });
}

// An old file lives on as the current version, with both checksums fresh.
void UpgradeVersion(CloneImage& image) {
  WriteU32(image.data() + kVersionOffset, kFormatVersion);
  image[kBlockChecksumOffset] = RadioBlockChecksum(image);
  StoreFileChecksum(image);
}

}  // namespace

std::uint8_t RadioBlockChecksum(const CloneImage& image) {
  return static_cast<std::uint8_t>(SumOf(image, kRadioBlock));
}

std::uint8_t FileChecksum(CloneImage& image) {
  std::fill_n(image.begin() + kFiller.offset, kFiller.size, std::uint8_t{0});
  return static_cast<std::uint8_t>(0U - SumOf(image, {.offset = 0, .size = kCloneImageSize}));
}

bool ReadRadioDataFile(CloneImage& buffer, const std::filesystem::path& path) {
  std::ifstream file = OpenToRead(path);
  return file ? ReadRadioDataFile(buffer, file, PathText(path)) : RefuseToOpen(path);
}

bool ReadTemplateFile(CloneImage& buffer, const std::filesystem::path& path) {
  std::ifstream file = OpenToRead(path);
  return file ? ReadTemplateFile(buffer, file, PathText(path)) : RefuseToOpen(path);
}

bool ReadRadioDataFile(CloneImage& buffer, std::istream& file, const std::string& name) {
  constexpr std::uint32_t kOldVersion = 1;
  if (!ReadImageFile(buffer, file, name, kRadioDataFile)) {
    return false;
  }
  const bool old_version = ReadU32(buffer.data() + kVersionOffset) == kOldVersion;
  const bool file_intact = FileChecksum(buffer) == 0;
  const bool block_intact = RadioBlockChecksum(buffer) == buffer[kBlockChecksumOffset];
  if (!file_intact && !old_version) {
    return Refuse("Radio data file image is corrupted.\nError 1362");
  }
  // An old file is believed silently when one of its checksums is wrong, not when both are. A
  // damaged radio block is reported, and the file is loaded all the same.
  if (!block_intact && !(old_version && file_intact)) {
    ShowFileError("Radio data file image is corrupted.\nError 1377");
  }
  if (old_version) {
    UpgradeVersion(buffer);
  }
  return true;
}

bool ReadTemplateFile(CloneImage& buffer, std::istream& file, const std::string& name) {
  if (!ReadImageFile(buffer, file, name, kTemplateFile)) {
    return false;
  }
  if (FileChecksum(buffer) != 0 || RadioBlockChecksum(buffer) != buffer[kBlockChecksumOffset]) {
    return Refuse("Radio data file image is corrupted.");
  }
  return true;
}

void PrepareRadioDataFile(CloneImage& image) {
  image[kBlockChecksumOffset] = RadioBlockChecksum(image);
  RebuildDerivedTables(image);
  StoreFileChecksum(image);
  DrawFiller(image);
}

bool WriteRadioDataFile(CloneImage& image, const std::filesystem::path& path) {
  PrepareRadioDataFile(image);
  return WriteFileOrShow(path, image);
}

void PrepareTemplateFile(CloneImage& image) {
  image[kBlockChecksumOffset] = RadioBlockChecksum(image);
  RebuildDerivedTables(image);
  SetMagic(image, kTemplateMagic);
  StoreFileChecksum(image);
}

bool WriteTemplateFile(CloneImage& image, const std::filesystem::path& path) {
  PrepareTemplateFile(image);
  const bool written = WriteFileOrShow(path, image);
  SetMagic(image, kRadioDataMagic);
  return written;
}

std::filesystem::path TemplatePath(const std::filesystem::path& folder,
                                   const std::filesystem::path& name) {
  constexpr std::size_t kNameCharacters = 8;
  std::filesystem::path::string_type stem = name.native().substr(0, kNameCharacters);
  stem.erase(std::min(stem.find('.'), stem.size()));
  stem.erase(std::min(stem.find(' '), stem.size()));
  return InFolder(folder, stem) += ".tpl";
}

}  // namespace qz7
