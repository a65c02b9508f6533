#pragma once

#include <algorithm>
#include <cstdint>
#include <sstream>
#include <string>
#include <string_view>

#include "core/image/clone_image.h"
#include "core/interchange/merge_source.h"
#include "tests/unit/document_bytes.h"

namespace qz7::merge_fixture {

inline constexpr std::uint8_t kInUse = 0x01;
inline constexpr std::uint8_t kEncoder = 0x02;
inline constexpr std::uint8_t kSquelch = 0x04;
inline constexpr std::uint8_t kSkipped = 0x08;
inline constexpr std::uint8_t kMinusShift = 0x10;
inline constexpr std::uint8_t kPlusShift = 0x20;
inline constexpr std::uint8_t kSplitShift = 0x30;

// A file to merge from, put together byte by byte.
struct SourceFile {
  Bytes bytes;
  std::size_t summary = 180, summary_size = 12;
  std::size_t names = 11'202, name_size = 10;
  std::size_t comments = 13'602, comment_size = 32;

  void Put(std::size_t offset, std::uint64_t value, int width) {
    for (int i = 0; i < width; ++i) {
      bytes.at(offset + static_cast<std::size_t>(i)) = static_cast<std::uint8_t>(value >> (8 * i));
    }
  }
  void PutText(std::size_t offset, std::string_view text) {
    for (const char c : text) {
      bytes.at(offset++) = static_cast<std::uint8_t>(c);
    }
  }

  // Frequencies in 10 Hz, the tone in tenths of a hertz.
  void Channel(int s, int flags, std::uint32_t receive, std::uint32_t transmit, int tone = 1'000) {
    const std::size_t entry = summary + static_cast<std::size_t>(s - 1) * summary_size;
    Put(entry, static_cast<std::uint64_t>(flags), 2);
    Put(entry + 2, receive, 4);
    Put(entry + 6, transmit, 4);
    Put(entry + 10, static_cast<std::uint64_t>(tone), 2);
  }
  void Name(int s, std::string_view text) {
    PutText(names + static_cast<std::size_t>(s - 1) * name_size, text);
  }
  void Comment(int s, std::string_view text) {
    PutText(comments + static_cast<std::size_t>(s - 1) * comment_size, text);
  }
  void Record(int s, const Bytes& record) {
    std::copy(record.begin(), record.end(), bytes.begin() + 3656 + 22 * s);
  }

  // Writes the header's fields of the tables.
  void PutGeometry(int count) {
    Put(12, bytes.size(), 4);
    Put(56, static_cast<std::uint64_t>(count), 2);
    Put(58, summary_size, 2);
    Put(60, name_size, 2);
    Put(62, comment_size, 2);
    Put(64, summary, 4);
    Put(68, names, 4);
    Put(72, comments, 4);
  }
};

// A file of this radio without a channel.
inline SourceFile OwnFile() {
  SourceFile file;
  file.bytes.assign(21'282, 0);
  std::copy(kNewHeader.begin(), kNewHeader.end(), file.bytes.begin());
  return file;
}

// A file of the sibling radio with its own sizes: 20 channels, tables without gaps.
inline SourceFile SiblingFile() {
  SourceFile file;
  file.bytes.assign(2'000, 0);
  file.summary = 200;
  file.summary_size = 16;
  file.names = 600;
  file.name_size = 8;
  file.comments = 800;
  file.comment_size = 40;
  file.PutText(0, "RDF");
  file.PutText(4, "QZ2H");
  file.Put(8, 2, 4);
  file.PutText(16, "Tamro QZ-2H");
  file.PutGeometry(20);
  file.Put(76, 1'600, 4);
  return file;
}

// Loads it; the working copy's header is overwritten.
inline bool Load(MergeSource& source, CloneImage& working_copy, const Bytes& bytes) {
  std::istringstream stream(std::string(bytes.begin(), bytes.end()));
  return ReadMergeSource(source, working_copy, stream, "other.rdf");
}

}  // namespace qz7::merge_fixture
