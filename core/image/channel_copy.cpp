#include "core/image/channel_copy.h"

#include <algorithm>

namespace qz7 {
namespace {

constexpr std::size_t kCountSize = 2;
constexpr std::size_t kCopySize = kRecordSize + 1 + kNameEntrySize + kCommentSize;

template <typename Field>
void TakeField(std::string_view& bytes, Field& field) {
  std::copy_n(bytes.begin(), field.size(), field.begin());
  bytes.remove_prefix(field.size());
}

}  // namespace

std::optional<ChannelCopy> CopyOfChannel(const CloneImage& image, int n) {
  if (n < 1 || GetChannelRecord(image, n) == nullptr) {
    return std::nullopt;
  }
  ChannelCopy channel;
  std::copy_n(GetChannelRecord(image, n), kRecordSize, channel.record.begin());
  channel.flags = *GetChannelFlagByte(image, n);
  std::copy_n(NameEntry(image, n), kNameEntrySize, channel.name.begin());
  std::copy_n(ChannelComment(image, n), kCommentSize, channel.comment.begin());
  return channel;
}

void PlaceCopy(CloneImage& image, int n, const ChannelCopy& channel) {
  if (n < 1 || GetChannelRecord(image, n) == nullptr) {
    return;
  }
  std::copy(channel.record.begin(), channel.record.end(), GetChannelRecord(image, n));
  *GetChannelFlagByte(image, n) = channel.flags;
  std::copy(channel.name.begin(), channel.name.end(), NameEntry(image, n));
  std::copy(channel.comment.begin(), channel.comment.end(), ChannelComment(image, n));
}

std::string BytesOfCopies(std::span<const ChannelCopy> channels) {
  std::string bytes(kCountSize, '\0');
  WriteU16(reinterpret_cast<std::uint8_t*>(bytes.data()),
           static_cast<std::uint16_t>(channels.size()));
  for (const ChannelCopy& channel : channels) {
    bytes.append(channel.record.begin(), channel.record.end());
    bytes += static_cast<char>(channel.flags);
    bytes.append(channel.name.begin(), channel.name.end());
    bytes.append(channel.comment.begin(), channel.comment.end());
  }
  return bytes;
}

std::optional<std::vector<ChannelCopy>> CopiesOfBytes(std::string_view bytes) {
  if (bytes.size() < kCountSize) {
    return std::nullopt;
  }
  const std::size_t count = ReadU16(reinterpret_cast<const std::uint8_t*>(bytes.data()));
  bytes.remove_prefix(kCountSize);
  if (count > kChannelCount || bytes.size() < count * kCopySize) {
    return std::nullopt;
  }
  std::vector<ChannelCopy> channels(count);
  for (ChannelCopy& channel : channels) {
    TakeField(bytes, channel.record);
    channel.flags = static_cast<std::uint8_t>(bytes.front());
    bytes.remove_prefix(1);
    TakeField(bytes, channel.name);
    TakeField(bytes, channel.comment);
  }
  return channels;
}

}  // namespace qz7
