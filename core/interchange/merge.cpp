#include "core/interchange/merge.h"

#include <algorithm>
#include <array>

#include "core/image/band_plan.h"
#include "core/image/channel_record.h"

namespace qz7 {
namespace {

constexpr std::uint32_t kMegahertzIn10Hz = 100'000;

std::string UpperCase(std::string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(), [](char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  });
  return upper;
}

// 144 to 148 and 430 to 450 MHz, both ends included.
bool IsHam(std::uint32_t receive_10hz) {
  return (receive_10hz >= 144 * kMegahertzIn10Hz && receive_10hz <= 148 * kMegahertzIn10Hz) ||
         (receive_10hz >= 430 * kMegahertzIn10Hz && receive_10hz <= 450 * kMegahertzIn10Hz);
}

bool MatchesKey(const MergeSource& source, const MergeOptions& options, int s) {
  constexpr std::size_t kSearchedLength = 80;
  const auto comment = SourceComment(source, s);
  if (!comment) {
    return false;
  }
  const std::string_view text =
      FieldText(reinterpret_cast<const char*>(comment->data()), comment->size());
  return UpperCase(text.substr(0, kSearchedLength)).find(options.upper_key) != std::string::npos;
}

Frequency In100Hz(std::int64_t frequency_10hz) {
  return static_cast<Frequency>(frequency_10hz / 10);
}

// The offset field of a channel of another model; for an odd split its transmit frequency.
Frequency OffsetField(const ChannelSummary& channel) {
  constexpr Frequency kUhfOffset = 50'000;
  constexpr Frequency kVhfOffset = 6'000;
  switch (channel.shift) {
    case kMinus:
      return In100Hz(std::int64_t{channel.receive_10hz} - channel.transmit_10hz);
    case kPlus:
      return In100Hz(std::int64_t{channel.transmit_10hz} - channel.receive_10hz);
    case kOddSplit:
      return In100Hz(channel.transmit_10hz);
    default:
      return InBand(kVHam, In100Hz(channel.receive_10hz)) ? kVhfOffset : kUhfOffset;
  }
}

void SetBits(std::uint8_t& byte, int mask, int bits) {
  byte = static_cast<std::uint8_t>((byte & ~mask) | bits);
}

// A tone that the radio does not have leaves the base record's tone and tone mode.
void StoreTone(ChannelRecord& record, const ChannelSummary& channel) {
  const std::optional<int> index = FindTone(channel.tone);
  if (!index) {
    return;
  }
  const int encode = channel.tone_encoder ? kToneEncode : kToneNone;
  const int mode = channel.tone_squelch ? kToneSquelch : encode;
  record[kRecordTone] = static_cast<std::uint8_t>(*index);
  SetBits(record[kRecordShiftPowerTone], 0xF0, mode << 4);
}

// A channel of another model: what the summary tells, on a record of this radio.
ChannelRecord BuildRecord(const CloneImage& working_copy, const ChannelSummary& channel) {
  ChannelRecord record{};
  if (const std::uint8_t* base = GetChannelRecord(working_copy, 1)) {
    std::copy_n(base, kRecordSize, record.begin());
  }
  EncodeBcdFrequency(record.data() + kRecordReceive, In100Hz(channel.receive_10hz),
                     kFrequencyDigits);
  EncodeBcdFrequency(record.data() + kRecordOffset, OffsetField(channel), kFrequencyDigits);
  SetBits(record[kRecordShiftPowerTone], 0x03, channel.shift);
  StoreTone(record, channel);
  return record;
}

// Fills the target from an entry, whose last copied byte becomes the end of the text.
void CopyText(std::uint8_t* target, std::size_t target_size, std::span<const std::uint8_t> entry) {
  const std::size_t size = std::min(entry.size(), target_size);
  if (size != 0) {
    std::copy_n(entry.begin(), size, target);
    target[size - 1] = 0;
  }
}

void CopyTexts(CloneImage& image, int t, const MergeSource& source, int s) {
  if (const auto name = SourceName(source, s)) {
    std::uint8_t* entry = NameEntry(image, t);
    CopyText(entry, kNameEntrySize, *name);
    SetChannelName(image, t, FieldText(reinterpret_cast<const char*>(entry), kNameEntrySize));
  }
  if (const auto comment = SourceComment(source, s)) {
    CopyText(reinterpret_cast<std::uint8_t*>(ChannelComment(image, t)), kCommentSize, *comment);
  }
}

// The record that channel s becomes; nothing for a channel of the same model whose record is
// absent.
std::optional<ChannelRecord> MergedRecord(const CloneImage& working_copy, const MergeSource& source,
                                          int s) {
  if (!IsSameModel(source)) {
    return BuildRecord(working_copy, *SourceSummary(source, s));
  }
  const std::uint8_t* stored = SourceRecord(source, s);
  if (stored == nullptr) {
    return std::nullopt;
  }
  ChannelRecord record;
  std::copy_n(stored, kRecordSize, record.begin());
  return record;
}

}  // namespace

void SetMergeKey(MergeOptions& options, std::string_view text) {
  options.key = text.substr(0, kMergeKeyLength);
  options.upper_key = UpperCase(options.key);
}

bool IsAvailable(const MergeSource& source, int s) {
  const std::optional<ChannelSummary> channel = SourceSummary(source, s);
  return channel && channel->in_use && BandOf(In100Hz(channel->receive_10hz)) <= kAir;
}

bool IsSelectedForMerge(const MergeSource& source, const MergeOptions& options, int s) {
  if (!IsAvailable(source, s)) {
    return false;
  }
  if (options.only_ham && !IsHam(SourceSummary(source, s)->receive_10hz)) {
    return false;
  }
  return !options.use_key || options.upper_key.empty() || MatchesKey(source, options, s);
}

int CountAvailable(const MergeSource& source) {
  int count = 0;
  for (int s = 1; s <= SourceChannelCount(source); ++s) {
    count += IsAvailable(source, s) ? 1 : 0;
  }
  return count;
}

int CountSelected(const MergeSource& source, const MergeOptions& options) {
  int count = 0;
  for (int s = 1; s <= SourceChannelCount(source); ++s) {
    count += IsSelectedForMerge(source, options, s) ? 1 : 0;
  }
  return count;
}

void MergeChannels(CloneImage& image, const CloneImage& working_copy, const MergeSource& source,
                   const MergeOptions& options) {
  int t = options.start;
  for (int s = 1; s <= SourceChannelCount(source); ++s) {
    if (!IsSelectedForMerge(source, options, s)) {
      continue;
    }
    std::uint8_t* target = GetChannelRecord(image, t);
    if (target == nullptr) {
      return;
    }
    const std::optional<ChannelRecord> record = MergedRecord(working_copy, source, s);
    if (!record) {
      continue;
    }
    std::copy(record->begin(), record->end(), target);
    if (!IsSameModel(source)) {
      SetSkip(image, t, SourceSummary(source, s)->skip);
    }
    SetProgrammed(image, t, true);
    SetMasked(image, t, false);
    CopyTexts(image, t, source, s);
    ++t;
  }
}

}  // namespace qz7
