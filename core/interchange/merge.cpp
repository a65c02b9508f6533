#include "core/interchange/merge.h"

#include <algorithm>
#include <array>

#include "core/image/band_plan.h"
#include "core/image/channel_record.h"
#include "core/image/text_codec.h"

namespace qz7 {
namespace {

constexpr std::uint32_t kMegahertzIn10Hz = 100'000;

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

// The offset field of a channel of another model; for an odd split its transmit frequency.
Frequency OffsetField(const ChannelSummary& channel, const RegionVariant& region) {
  const std::int64_t receive = channel.receive_10hz;
  const std::int64_t transmit = channel.transmit_10hz;
  switch (channel.shift) {
    case Shift::kMinus:
      return TensOfHertz(receive - transmit);
    case Shift::kPlus:
      return TensOfHertz(transmit - receive);
    case Shift::kOddSplit:
      return TensOfHertz(transmit);
    default:
      return InBand(Band::kVHam, TensOfHertz(receive), region) ? Kilohertz(600) : Megahertz(5);
  }
}

// A tone that the radio does not have leaves the base record's tone and tone mode.
void StoreTone(ChannelRecord& record, const ChannelSummary& channel) {
  const std::optional<int> index = FindTone(channel.tone);
  if (!index) {
    return;
  }
  const ToneMode encode = channel.tone_encoder ? ToneMode::kEncode : ToneMode::kNone;
  const ToneMode mode = channel.tone_squelch ? ToneMode::kSquelch : encode;
  record[kRecordTone] = static_cast<std::uint8_t>(*index);
  WriteBits(record, kRecordToneModeBits, PlaceOf(mode));
}

// A channel of another model: what the summary tells, on a record of this radio.
ChannelRecord BuildRecord(const CloneImage& working_copy, const ChannelSummary& channel,
                          const RegionVariant& region) {
  ChannelRecord record{};
  if (const std::uint8_t* base = GetChannelRecord(working_copy, 1)) {
    std::copy_n(base, kRecordSize, record.begin());
  }
  StoreReceive(record.data(), TensOfHertz(channel.receive_10hz));
  StoreOffset(record.data(), OffsetField(channel, region));
  WriteBits(record, kRecordShiftBits, PlaceOf(channel.shift));
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
    return BuildRecord(working_copy, *SourceSummary(source, s), source.region);
  }
  const std::uint8_t* stored = SourceRecord(source, s);
  if (stored == nullptr) {
    return std::nullopt;
  }
  ChannelRecord record;
  std::copy_n(stored, kRecordSize, record.begin());
  return record;
}

bool IsAvailable(const MergeSource& source, const std::optional<ChannelSummary>& channel) {
  return channel && channel->in_use &&
         BandOf(TensOfHertz(channel->receive_10hz), source.region) <= Band::kAir;
}

}  // namespace

void SetMergeKey(MergeOptions& options, std::string_view text) {
  options.key = text.substr(0, kMergeKeyLength);
  options.upper_key = UpperCase(options.key);
}

bool IsAvailable(const MergeSource& source, int s) {
  return IsAvailable(source, SourceSummary(source, s));
}

bool IsSelectedForMerge(const MergeSource& source, const MergeOptions& options, int s) {
  const std::optional<ChannelSummary> channel = SourceSummary(source, s);
  if (!IsAvailable(source, channel) || (options.only_ham && !IsHam(channel->receive_10hz))) {
    return false;
  }
  return !options.use_key || options.upper_key.empty() || MatchesKey(source, options, s);
}

int CountAvailable(const MergeSource& source) {
  int count = 0;
  for (int s = 1; s <= SourceSummaryCount(source); ++s) {
    count += IsAvailable(source, s) ? 1 : 0;
  }
  return count;
}

int CountSelected(const MergeSource& source, const MergeOptions& options) {
  int count = 0;
  for (int s = 1; s <= SourceSummaryCount(source); ++s) {
    count += IsSelectedForMerge(source, options, s) ? 1 : 0;
  }
  return count;
}

void MergeChannels(CloneImage& image, const CloneImage& working_copy, const MergeSource& source,
                   const MergeOptions& options) {
  int t = options.start;
  for (int s = 1; s <= SourceSummaryCount(source); ++s) {
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
