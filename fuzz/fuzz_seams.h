#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <istream>
#include <span>
#include <streambuf>

#include "core/files/seams.h"
#include "core/image/clone_image.h"

namespace qz7 {

// Ends the run with a finding where something does not hold that always should.
inline void Check(bool holds) {
  if (!holds) {
    std::abort();
  }
}

// Takes bytes from the front of a fuzzer's input; 0 once it is used up.
class FuzzInput {
 public:
  FuzzInput(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
  bool IsEmpty() const { return size_ == 0; }
  std::uint8_t Byte() {
    if (size_ == 0) {
      return 0;
    }
    --size_;
    return *data_++;
  }
  std::size_t Word() {
    const std::size_t low = Byte();
    return low | static_cast<std::size_t>(Byte()) << 8;
  }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
};

// A file that lies in memory. The bytes outlive it.
class MemoryFile : private std::streambuf, public std::istream {
 public:
  explicit MemoryFile(std::span<const std::uint8_t> bytes)
      : std::istream(static_cast<std::streambuf*>(this)) {
    char* start = reinterpret_cast<char*>(const_cast<std::uint8_t*>(bytes.data()));
    setg(start, start, start + bytes.size());
  }
};

// A new document's image, made once; its derived tables are built.
const CloneImage& NewImage();

}  // namespace qz7
