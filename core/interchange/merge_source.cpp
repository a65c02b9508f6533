#include "core/interchange/merge_source.h"

#include <algorithm>
#include <istream>
#include <new>

#include "core/files/document_header.h"
#include "core/files/paths.h"
#include "core/files/seams.h"

namespace qz7 {
namespace {

bool Refuse(MergeSource& source, const std::string& message) {
  source = {};
  ShowFileError(message);
  return false;
}

bool ReadBytes(std::istream& file, std::uint8_t* to, std::size_t size) {
  file.read(reinterpret_cast<char*>(to), static_cast<std::streamsize>(size));
  return file.gcount() == static_cast<std::streamsize>(size);
}

bool Allocate(MergeSource& source, std::uint32_t size) {
  if (size < kSmallestSource || size > kLargestSource) {
    return false;
  }
  source.bytes.reset(new (std::nothrow) std::uint8_t[size]);
  source.size = size;
  return source.IsLoaded();
}

std::uint16_t HeaderU16(const MergeSource& source, std::size_t offset) {
  return ReadU16(source.bytes.get() + offset);
}
std::uint32_t HeaderU32(const MergeSource& source, std::size_t offset) {
  return ReadU32(source.bytes.get() + offset);
}

// `size` bytes of entry s of a table, by the header's fields for its place and its entries' size.
std::optional<std::span<const std::uint8_t>> Entry(const MergeSource& source, int s,
                                                   std::size_t table_field,
                                                   std::size_t entry_size_field,
                                                   std::size_t least_size) {
  if (s < 1 || s > SourceChannelCount(source)) {
    return std::nullopt;
  }
  const std::uint64_t entry_size = HeaderU16(source, entry_size_field);
  const std::uint64_t offset =
      HeaderU32(source, table_field) + static_cast<std::uint64_t>(s - 1) * entry_size;
  const std::uint64_t size = std::max<std::uint64_t>(entry_size, least_size);
  if (offset + size > source.size) {
    return std::nullopt;
  }
  return source.View().subspan(static_cast<std::size_t>(offset), static_cast<std::size_t>(size));
}

}  // namespace

FileBox MergeFileBox(const std::filesystem::path& folder) {
  return {.title = "Radio File for Merge",
          .filters = {{"Radio Files (*.rdf)", "*.rdf"}, {"All files (*.*)", "*.*"}},
          .default_extension = "rdf",
          .folder = folder,
          .initial_name = ""};
}

bool ReadMergeSource(MergeSource& source, CloneImage& working_copy,
                     const std::filesystem::path& path) {
  std::ifstream file = OpenToRead(path);
  return file ? ReadMergeSource(source, working_copy, file, PathText(path))
              : Refuse(source, "Cannot open file:\n" + PathText(path));
}

bool ReadMergeSource(MergeSource& source, CloneImage& working_copy, std::istream& file,
                     const std::string& name) {
  source = {};
  if (!ReadBytes(file, working_copy.data(), kDocumentHeader.size) ||
      !HasMagic(working_copy, kRadioDataMagic)) {
    return Refuse(source, "Not a radio data file:\n" + name);
  }
  if (!Allocate(source, ReadU32(working_copy.data() + kTotalSizeOffset))) {
    return Refuse(source, "Out of Memory");
  }
  std::copy_n(working_copy.begin(), kDocumentHeader.size, source.bytes.get());
  if (!ReadBytes(file, source.bytes.get() + kDocumentHeader.size,
                 source.size - kDocumentHeader.size)) {
    return Refuse(source, "Radio data file has invalid format");
  }
  return true;
}

int SourceChannelCount(const MergeSource& source) { return HeaderU16(source, kChannelCountOffset); }

int SourceSummaryCount(const MergeSource& source) {
  const int count = SourceChannelCount(source);
  const std::uint32_t entry_size = HeaderU16(source, kSummarySizeOffset);
  const std::uint32_t table = HeaderU32(source, kSummaryTableOffset);
  if (table > source.size) {
    return 0;
  }
  const std::size_t room = source.size - table;
  return entry_size == 0 ? count : std::min(count, static_cast<int>(room / entry_size));
}

std::string_view SourceRadioType(const MergeSource& source) {
  return FieldText(reinterpret_cast<const char*>(source.bytes.get() + kRadioName.offset),
                   kRadioName.size);
}

bool IsSameModel(const MergeSource& source) {
  return std::equal(kRadioIdentifier.begin(), kRadioIdentifier.end(),
                    source.bytes.get() + kIdentifierOffset) &&
         HeaderU32(source, kVersionOffset) == kFormatVersion && source.size == kCloneImageSize &&
         HeaderU32(source, kRadioBlockOffset) == kRadioBlock.offset;
}

std::optional<ChannelSummary> SourceSummary(const MergeSource& source, int s) {
  const auto entry = Entry(source, s, kSummaryTableOffset, kSummarySizeOffset, kSummaryEntrySize);
  return entry ? std::optional(DecodeSummary(entry->data())) : std::nullopt;
}

std::optional<std::span<const std::uint8_t>> SourceName(const MergeSource& source, int s) {
  return Entry(source, s, kNameTableOffset, kNameSizeOffset, 0);
}

std::optional<std::span<const std::uint8_t>> SourceComment(const MergeSource& source, int s) {
  return Entry(source, s, kCommentsOffset, kCommentSizeOffset, 0);
}

const std::uint8_t* SourceRecord(const MergeSource& source, int s) {
  if (!IsSameModel(source) || s < 1 || s > std::min(SourceChannelCount(source), kChannelCount)) {
    return nullptr;
  }
  return source.bytes.get() + kChannelRecords.offset +
         static_cast<std::size_t>(s - 1) * kRecordSize;
}

}  // namespace qz7
