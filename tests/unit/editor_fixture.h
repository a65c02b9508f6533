#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <numeric>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "tests/unit/image_fixture.h"

// What the tests of the editors share. Offsets stand here as plain numbers, worked out from the
// radio's tables apart from the program's names.
namespace qz7::editor_fixture {

using namespace image_fixture;

// Random numbers that are the same on every machine.
class Dice {
 public:
  explicit Dice(unsigned seed) : engine_(seed) {}
  // 0..count - 1
  int Below(int count) { return static_cast<int>(engine_() % static_cast<unsigned>(count)); }
  bool Heads() { return Below(2) == 0; }
  std::uint8_t Byte() { return static_cast<std::uint8_t>(engine_()); }

 private:
  std::mt19937 engine_;
};

// An image of a radio that takes every frequency of a wide-coverage model: version type 0.
inline void MakeWide(CloneImage& image) {
  image[3067] = 1;
  image[3068] = 0;
  image[3073] = 1;
}

inline std::unique_ptr<CloneImage> MakeWideImage() {
  auto image = MakeImage();
  MakeWide(*image);
  return image;
}

// Random bytes behind the header, with 240 channels.
inline std::unique_ptr<CloneImage> MakeRandomImage(Dice& dice) {
  auto image = MakeImage();
  for (std::size_t i = 180; i < image->size(); ++i) {
    (*image)[i] = dice.Byte();
  }
  return image;
}

// The groups as lists of channel indices, used entries in front.
using Groups = std::vector<std::vector<int>>;

inline void PutGroups(CloneImage& image, const Groups& groups) {
  for (std::size_t g = 0; g < groups.size(); ++g) {
    image[3102 + g] = groups[g].empty() ? 255 : 0;
    for (std::size_t i = 0; i < 24; ++i) {
      const bool used = i < groups[g].size();
      image[3110 + g * 48 + i * 2] = used ? 0 : 255;
      image[3111 + g * 48 + i * 2] = used ? static_cast<std::uint8_t>(groups[g][i]) : 255;
    }
  }
}

inline Groups GroupsOf(const CloneImage& image) {
  Groups groups(5);
  for (std::size_t g = 0; g < 5; ++g) {
    for (std::size_t i = 0; i < 24; ++i) {
      if (image[3110 + g * 48 + i * 2] != 255) {
        groups[g].push_back(image[3111 + g * 48 + i * 2]);
      }
    }
  }
  return groups;
}

inline Groups NoGroups() { return Groups(5); }

// `count` numbers from `first` on.
inline std::vector<int> Numbers(int first, int count) {
  std::vector<int> numbers(static_cast<std::size_t>(count));
  std::iota(numbers.begin(), numbers.end(), first);
  return numbers;
}

inline std::uint8_t Bcd(int value) {
  return static_cast<std::uint8_t>(value / 10 % 10 << 4 | value % 10);
}

// A BCD frequency field.
inline Bytes Kilohertz(int khz) { return {Bcd(khz / 10000), Bcd(khz / 100), Bcd(khz)}; }

// The offset of a record: channel 0, the bytes in front of channel 1, up to 240; VFO slots -1..-20
// and home channels -21..-30.
inline std::size_t RecordPlace(int n) {
  const int place = n >= 0 ? 3656 + 22 * n : n >= -20 ? 9178 + 22 * ~n : 8958 + 22 * (~n - 20);
  return static_cast<std::size_t>(place);
}

// The flag byte of memory channel n.
inline std::size_t FlagPlace(int n) {
  const int place = 3357 + n;
  return static_cast<std::size_t>(place);
}

// Everything of channel 1..240 that travels with it.
struct ChannelBytes {
  Bytes record;
  std::uint8_t flags = 0;
  Bytes name;
  Bytes comment;
  bool operator==(const ChannelBytes&) const = default;
};

inline ChannelBytes ChannelOf(const CloneImage& image, int n) {
  const auto index = static_cast<std::size_t>(n - 1);
  return {BytesAt(image, 3678 + 22 * index, 22), image[3358 + index],
          BytesAt(image, 11202 + 10 * index, 10), BytesAt(image, 13602 + 32 * index, 32)};
}

inline void PutChannelBytes(CloneImage& image, int n, const ChannelBytes& channel) {
  const auto index = static_cast<std::size_t>(n - 1);
  PutBytes(image, 3678 + 22 * index, channel.record);
  image[3358 + index] = channel.flags;
  PutBytes(image, 11202 + 10 * index, channel.name);
  PutBytes(image, 13602 + 32 * index, channel.comment);
}

// A channel whose every byte tells its number: byte 2 of the record, the flags' upper half, the
// first byte of name and comment.
inline ChannelBytes MarkedChannel(int n) {
  const auto mark = static_cast<std::uint8_t>(n);
  ChannelBytes channel;
  channel.record.assign(22, mark);
  channel.flags = static_cast<std::uint8_t>((n % 16) << 4 | 0x03);
  channel.name.assign(10, mark);
  channel.comment.assign(32, mark);
  return channel;
}

inline std::unique_ptr<CloneImage> MakeMarkedImage() {
  auto image = MakeWideImage();
  for (int n = 1; n <= 240; ++n) {
    PutChannelBytes(*image, n, MarkedChannel(n));
  }
  PutGroups(*image, NoGroups());
  return image;
}

using Offsets = std::set<std::size_t>;

inline void AddRange(Offsets& offsets, std::size_t first, std::size_t size) {
  for (std::size_t i = first; i < first + size; ++i) {
    offsets.insert(i);
  }
}

// The places where two images differ, but for the ones that may.
inline std::vector<std::size_t> Unexpected(const CloneImage& a, const CloneImage& b,
                                           const Offsets& allowed) {
  std::vector<std::size_t> unexpected;
  for (const std::size_t offset : DifferingOffsets(a, b)) {
    if (allowed.count(offset) == 0) {
      unexpected.push_back(offset);
    }
  }
  return unexpected;
}

}  // namespace qz7::editor_fixture
