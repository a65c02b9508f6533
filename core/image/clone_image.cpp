#include "core/image/clone_image.h"

#include <algorithm>
#include <cstring>
#include <optional>

#include "core/image/channel_record.h"

namespace qz7 {
namespace {

// The image offset of channel n's record, or nothing for an absent channel.
std::optional<std::size_t> RecordOffset(const CloneImage& image, int n) {
  if (IsSpecialSlot(n)) {
    const auto k = static_cast<std::size_t>(SlotOf(n));
    if (k < kBandCount) {
      return kVfoBankA.offset + k * kRecordSize;
    }
    if (k < 2 * kBandCount) {
      return kVfoBankB.offset + (k - kBandCount) * kRecordSize;
    }
    if (k < kSpecialSlotCount) {
      return kHomeRecords.offset + (k - 2 * kBandCount) * kRecordSize;
    }
    return std::nullopt;
  }
  if (n > GetChannelCount(image) || n > kChannelCount) {
    return std::nullopt;
  }
  // Channel 0 is not refused: it names the 22 bytes in front of channel 1.
  return kChannelRecords.offset + static_cast<std::size_t>(n) * kRecordSize - kRecordSize;
}

std::optional<std::size_t> FlagOffset(const CloneImage& image, int n) {
  if (IsSpecialSlot(n)) {
    const auto k = static_cast<std::size_t>(SlotOf(n));
    if (k < 2 * kBandCount) {
      return kSpecialFlags.offset + kBandCount + k;
    }
    if (k < kSpecialSlotCount) {
      return kSpecialFlags.offset + k - 2 * kBandCount;
    }
    return std::nullopt;
  }
  if (n > GetChannelCount(image) || n > kChannelCount) {
    return std::nullopt;
  }
  return kChannelFlags.offset + static_cast<std::size_t>(n) - 1;
}

std::optional<std::size_t> EntryOffset(const CloneImage& image, int n, Region table,
                                       std::size_t entry_size) {
  const auto index = static_cast<std::size_t>(ChannelIndex(image, n));
  if ((index + 1) * entry_size > table.size) {
    return std::nullopt;
  }
  return table.offset + index * entry_size;
}

template <typename Image>
auto At(Image& image, std::optional<std::size_t> offset) {
  return offset ? image.data() + *offset : nullptr;
}

bool HasFlag(const CloneImage& image, int n, std::uint8_t flag) {
  const std::uint8_t* flags = GetChannelFlagByte(image, n);
  return flags != nullptr && (*flags & flag) != 0;
}

void SetFlag(CloneImage& image, int n, std::uint8_t flag, bool on) {
  if (std::uint8_t* flags = GetChannelFlagByte(image, n)) {
    *flags = static_cast<std::uint8_t>(on ? *flags | flag : *flags & ~flag);
  }
}

}  // namespace

std::uint8_t* GetChannelRecord(CloneImage& image, int n) {
  return At(image, RecordOffset(image, n));
}
const std::uint8_t* GetChannelRecord(const CloneImage& image, int n) {
  return At(image, RecordOffset(image, n));
}

std::uint8_t* GetChannelFlagByte(CloneImage& image, int n) {
  return At(image, FlagOffset(image, n));
}
const std::uint8_t* GetChannelFlagByte(const CloneImage& image, int n) {
  return At(image, FlagOffset(image, n));
}

bool IsProgrammed(const CloneImage& image, int n) { return HasFlag(image, n, kFlagProgrammed); }
bool IsMasked(const CloneImage& image, int n) {
  return GetChannelFlagByte(image, n) != nullptr && !HasFlag(image, n, kFlagShown);
}
bool IsSkip(const CloneImage& image, int n) { return HasFlag(image, n, kFlagSkip); }
bool IsOptionSet(const CloneImage& image, int n) { return HasFlag(image, n, kFlagOption); }

void SetProgrammed(CloneImage& image, int n, bool programmed) {
  SetFlag(image, n, kFlagProgrammed, programmed);
}
void SetMasked(CloneImage& image, int n, bool masked) { SetFlag(image, n, kFlagShown, !masked); }
void SetSkip(CloneImage& image, int n, bool skip) { SetFlag(image, n, kFlagSkip, skip); }
void SetOption(CloneImage& image, int n, bool option) { SetFlag(image, n, kFlagOption, option); }

int ChannelIndex(const CloneImage& image, int n) {
  return n >= 1 && n <= GetChannelCount(image) ? n - 1 : 0;
}

bool IsVfoSlot(int n) { return IsSpecialSlot(n) && SlotOf(n) < 2 * kBandCount; }

ChannelName GetChannelName(const CloneImage& image, int n) {
  ChannelName name{};
  if (const std::uint8_t* record = GetChannelRecord(image, n)) {
    std::memcpy(name.data(), record + kRecordName, kNameLength);
  }
  return name;
}

void SetChannelName(CloneImage& image, int n, std::string_view text) {
  std::uint8_t* record = GetChannelRecord(image, n);
  if (record == nullptr) {
    return;
  }
  const std::string_view name = text.substr(0, std::min(text.find('\0'), kNameLength));
  std::memset(record + kRecordName, ' ', kNameLength);
  std::copy(name.begin(), name.end(), record + kRecordName);
}

std::string ChannelLabel(const CloneImage& image, int n) {
  const int count = GetChannelCount(image);
  const int pms = n - (count - kPmsChannelCount) - 1;
  if (IsSpecialSlot(n) && SlotOf(n) < kSpecialSlotCount) {
    return kBandNames[static_cast<std::size_t>(SlotBand(n))];
  }
  if (n <= 0 || n > count) {
    return {};
  }
  if (pms >= 0) {
    return (pms % 2 == 0 ? "L" : "U") + std::to_string(pms / 2 + 1);
  }
  return (n < 10 ? " " : "") + std::to_string(n);
}

std::uint8_t* SummaryEntry(CloneImage& image, int n) {
  return At(image, EntryOffset(image, n, kSummaryTable, kSummaryEntrySize));
}
const std::uint8_t* SummaryEntry(const CloneImage& image, int n) {
  return At(image, EntryOffset(image, n, kSummaryTable, kSummaryEntrySize));
}
std::uint8_t* NameEntry(CloneImage& image, int n) {
  return At(image, EntryOffset(image, n, kNameTable, kNameEntrySize));
}
const std::uint8_t* NameEntry(const CloneImage& image, int n) {
  return At(image, EntryOffset(image, n, kNameTable, kNameEntrySize));
}
char* ChannelComment(CloneImage& image, int n) {
  return reinterpret_cast<char*>(At(image, EntryOffset(image, n, kComments, kCommentSize)));
}
const char* ChannelComment(const CloneImage& image, int n) {
  return reinterpret_cast<const char*>(At(image, EntryOffset(image, n, kComments, kCommentSize)));
}

std::string_view FieldText(const char* field, std::size_t width) {
  return {field, static_cast<std::size_t>(std::find(field, field + width, '\0') - field)};
}

std::string_view ChannelCommentText(const CloneImage& image, int n) {
  const char* comment = ChannelComment(image, n);
  return comment != nullptr ? FieldText(comment, kCommentSize) : std::string_view{};
}

}  // namespace qz7
