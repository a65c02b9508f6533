#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/files/seams.h"
#include "core/image/clone_image.h"
#include "core/image/derived_tables.h"
#include "core/image/region_variant.h"

namespace qz7 {

// The radio data file that channels are merged from, whole in memory; of this radio or another one.
// Its header (core/files/document_header.h) is believed as it stands, and whatever it names that
// would not lie wholly inside the file is absent.
struct MergeSource {
  std::unique_ptr<std::uint8_t[]> bytes;
  std::size_t size = 0;
  RegionVariant region;  // of the program: its bands tell what can be merged

  bool IsLoaded() const { return bytes != nullptr; }
  std::span<const std::uint8_t> View() const { return {bytes.get(), size}; }
};

// The sizes that a source's header may state.
inline constexpr std::uint32_t kSmallestSource = 180;
inline constexpr std::uint32_t kLargestSource = 16U << 20;

// The box that asks for the file.
FileBox MergeFileBox(const std::filesystem::path& folder);

// Loads a source; false after showing why not, and then it is empty. What was read of the header
// has overwritten the header of the working copy in every case.
bool ReadMergeSource(MergeSource& source, CloneImage& working_copy,
                     const std::filesystem::path& path);
// The same for a file that is open already; `name` is what its messages call it.
bool ReadMergeSource(MergeSource& source, CloneImage& working_copy, std::istream& file,
                     const std::string& name);

// The functions below want a loaded source. Its channels are s = 1..SourceChannelCount.
int SourceChannelCount(const MergeSource& source);
// Channels above this number have no summary, because the file ends before.
int SourceSummaryCount(const MergeSource& source);
// The name of the radio that the file is for, at most 40 characters.
std::string_view SourceRadioType(const MergeSource& source);
// Whether the file is for this radio and laid out like this program's own.
bool IsSameModel(const MergeSource& source);

std::optional<ChannelSummary> SourceSummary(const MergeSource& source, int s);
// Entries of the size that the header states; nothing for an absent one.
std::optional<std::span<const std::uint8_t>> SourceName(const MergeSource& source, int s);
std::optional<std::span<const std::uint8_t>> SourceComment(const MergeSource& source, int s);
// The 22-byte record of a source of the same model; null for an absent one.
const std::uint8_t* SourceRecord(const MergeSource& source, int s);

}  // namespace qz7
