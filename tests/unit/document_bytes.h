#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/image/clone_image.h"
#include "tests/unit/temp_folder.h"

namespace qz7 {

// Files as bytes, put together without the program's own code.

// The first 180 bytes of a new document, written out by hand.
inline constexpr std::array<std::uint8_t, 180> kNewHeader = {
    0x52, 0x44, 0x46, 0x00,                                            // 0: "RDF"
    0x51, 0x5A, 0x37, 0x48,                                            // 4: "QZ7H"
    0x02, 0x00, 0x00, 0x00,                                            // 8: version 2
    0x22, 0x53, 0x00, 0x00,                                            // 12: 21282 bytes
    0x54, 0x61, 0x6D, 0x72, 0x6F, 0x20, 0x51, 0x5A, 0x2D, 0x37, 0x48,  // 16: "Tamro QZ-7H"
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,  // 27..55
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,  //
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,                          //
    0xF0, 0x00,                                                        // 56: 240 channels
    0x0C, 0x00,                                                        // 58: summary entry 12
    0x0A, 0x00,                                                        // 60: name entry 10
    0x20, 0x00,                                                        // 62: comment 32
    0xB4, 0x00, 0x00, 0x00,                                            // 64: summary at 180
    0xC2, 0x2B, 0x00, 0x00,                                            // 68: names at 11202
    0x22, 0x35, 0x00, 0x00,                                            // 72: comments at 13602
    0xF4, 0x0B, 0x00, 0x00,                                            // 76: radio block at 3060
    0x00, 0x00,                                                        // 80: checksums
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,              // 82: filler
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,              //
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,        // 100: file comment
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,        //
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,        //
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,        //
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,        //
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,        //
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,        //
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00};

// What byte 80 of these bytes ought to be.
inline std::uint8_t RightBlockChecksum(const std::uint8_t* document) {
  unsigned sum = 0;
  for (std::size_t i = 3060; i < 3060 + 8122; ++i) {
    sum += document[i];
  }
  return static_cast<std::uint8_t>(sum % 256);
}

// What byte 81 of these bytes ought to be: the filler counts as zeros, byte 81 itself too.
inline std::uint8_t RightFileChecksum(const std::uint8_t* document) {
  unsigned sum = 0;
  for (std::size_t i = 0; i < 21'282; ++i) {
    const bool counts = i < 81 || i >= 100;
    sum += counts ? document[i] : 0U;
  }
  return static_cast<std::uint8_t>((256 - sum % 256) % 256);
}

inline void FixBlockChecksum(Bytes& file) { file[80] = RightBlockChecksum(file.data()); }
inline void FixFileChecksum(Bytes& file) { file[81] = RightFileChecksum(file.data()); }
inline void FixChecksums(Bytes& file) {
  FixBlockChecksum(file);
  FixFileChecksum(file);
}

// An intact file with a different byte at almost every place and a file comment. `magic` is "RDF"
// or "TPL".
inline Bytes IntactFile(std::string_view magic) {
  Bytes file(21'282);
  for (std::size_t i = 180; i < file.size(); ++i) {
    file[i] = static_cast<std::uint8_t>(i * 37 + i / 256);
  }
  std::copy(kNewHeader.begin(), kNewHeader.end(), file.begin());
  std::copy(magic.begin(), magic.end(), file.begin());
  for (std::size_t i = 82; i < 100; ++i) {
    file[i] = static_cast<std::uint8_t>(i);
  }
  constexpr std::string_view kComment = "Club repeaters";
  std::copy(kComment.begin(), kComment.end(), file.begin() + 100);
  file[3068] = 0;  // not the Japanese version
  FixChecksums(file);
  return file;
}

inline CloneImage ImageOf(const Bytes& bytes) {
  CloneImage image{};
  std::copy_n(bytes.begin(), std::min(bytes.size(), image.size()), image.begin());
  return image;
}

inline Bytes BytesOf(const CloneImage& image) { return {image.begin(), image.end()}; }

// The first place where two documents differ, be it the end of one; -1 for none.
template <typename A, typename B>
int FirstDifference(const A& a, const B& b) {
  const auto place = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
  const bool same = place.first == a.end() && place.second == b.end();
  return same ? -1 : static_cast<int>(place.first - a.begin());
}

}  // namespace qz7
