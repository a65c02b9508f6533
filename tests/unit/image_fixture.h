#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "core/image/clone_image.h"
#include "tests/unit/plain_numbers.h"

// What the tests of the clone image share. Offsets and tables stand here and in the tests as plain
// numbers on purpose: they are worked out from the radio's tables, apart from the program's names.
namespace qz7::image_fixture {

using Bytes = std::vector<std::uint8_t>;

// A clone image of zero bytes with this channel count. It stands alone on the heap, where a
// sanitizer sees every access beside it.
inline std::unique_ptr<CloneImage> MakeImage(int count = 240) {
  auto image = std::make_unique<CloneImage>();
  image->fill(0);
  (*image)[56] = static_cast<std::uint8_t>(count & 0xFF);
  (*image)[57] = static_cast<std::uint8_t>(count >> 8);
  return image;
}

// The same with a different byte at every turn, so that bytes out of place show.
inline std::unique_ptr<CloneImage> MakePatternImage() {
  auto image = MakeImage();
  for (std::size_t i = 180; i < image->size(); ++i) {
    (*image)[i] = static_cast<std::uint8_t>((i * 37 + i / 256) & 0xFF);
  }
  return image;
}

inline void PutBytes(CloneImage& image, std::size_t offset, const Bytes& bytes) {
  std::copy(bytes.begin(), bytes.end(), image.begin() + static_cast<std::ptrdiff_t>(offset));
}

inline Bytes BytesAt(const CloneImage& image, std::size_t offset, std::size_t size) {
  const auto first = image.begin() + static_cast<std::ptrdiff_t>(offset);
  return {first, first + static_cast<std::ptrdiff_t>(size)};
}

// Offsets where two images differ.
inline std::vector<std::size_t> DifferingOffsets(const CloneImage& a, const CloneImage& b) {
  std::vector<std::size_t> offsets;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (a[i] != b[i]) {
      offsets.push_back(i);
    }
  }
  return offsets;
}

// Makes channel 1..240 programmed and shown, with this record.
inline void PutChannel(CloneImage& image, int n, const Bytes& record, std::uint8_t flags = 0x03) {
  const auto number = static_cast<std::size_t>(n);
  image[3357 + number] = flags;
  PutBytes(image, 3656 + 22 * number, record);
}

// Puts other band limits into use for as long as it lives.
class RegionGuard {
 public:
  explicit RegionGuard(const RegionVariant& variant) : saved_(test_region) {
    test_region = variant;
  }
  ~RegionGuard() { test_region = saved_; }
  RegionGuard(const RegionGuard&) = delete;
  RegionGuard& operator=(const RegionGuard&) = delete;

 private:
  RegionVariant saved_;
};

inline std::vector<std::string> Words(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> words;
  for (std::string word; stream >> word;) {
    words.push_back(word);
  }
  return words;
}

// The 39 tones as the radio shows them, by index.
inline std::vector<std::string> ToneTexts() {
  return Words(
      "67.0 69.3 71.9 74.4 77.0 79.7 82.5 85.4 88.5 91.5 94.8 97.4 100.0 103.5 107.2 110.9 114.8 "
      "118.8 123.0 127.3 131.8 136.5 141.3 146.2 151.4 156.7 162.2 167.9 173.8 179.9 186.2 192.8 "
      "203.5 210.7 218.1 225.7 233.6 241.8 250.3");
}

// The 104 codes as the radio shows them, by index.
inline std::vector<std::string> DcsTexts() {
  return Words(
      "023 025 026 031 032 036 043 047 051 053 054 065 071 072 073 074 114 115 116 122 125 131 132 "
      "134 143 145 152 155 156 162 165 172 174 205 212 223 225 226 243 244 245 246 251 252 255 261 "
      "263 265 266 271 274 306 311 315 325 331 332 343 346 351 356 364 365 371 411 412 413 423 431 "
      "432 445 446 452 454 455 462 464 465 466 503 506 516 523 526 532 546 565 606 612 624 627 631 "
      "632 654 662 664 703 712 723 731 732 734 743 754");
}

}  // namespace qz7::image_fixture
