#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "core/image/clone_image.h"
#include "core/interchange/import_lines.h"
#include "core/interchange/import_reader.h"
#include "core/interchange/import_session.h"
#include "tests/unit/image_fixture.h"

// What the tests of import, export and merge share.
namespace qz7::interchange_fixture {

using image_fixture::Bytes;

// A document without a programmed channel, of a radio with wide coverage.
inline std::unique_ptr<CloneImage> MakeRadio(int count = 240) {
  auto image = image_fixture::MakeImage(count);
  (*image)[3073] = 1;
  return image;
}

inline void Program(CloneImage& image, int first, int last) {
  for (int n = first; n <= last; ++n) {
    image[static_cast<std::size_t>(3357 + n)] = 0x03;
  }
}

inline Bytes RecordBytes(const CloneImage& image, int n) {
  return image_fixture::BytesAt(image, static_cast<std::size_t>(3656 + 22 * n), 22);
}

inline int FlagByte(const CloneImage& image, int n) {
  return image[static_cast<std::size_t>(3357 + n)];
}

inline std::string NameInRecord(const CloneImage& image, int n) {
  const Bytes record = RecordBytes(image, n);
  return {record.begin() + 6, record.begin() + 14};
}

inline Bytes BytesOfText(std::string_view text) { return {text.begin(), text.end()}; }

inline ImportLines Lines(std::string_view text) { return LinesOf(BytesOfText(text)); }

using Column = std::pair<CsvColumn, std::uint32_t>;

inline ColumnAssignment Columns(std::initializer_list<Column> columns) {
  ColumnAssignment assignment{};
  for (const auto& [field, column] : columns) {
    assignment[static_cast<std::size_t>(field)] = column;
  }
  return assignment;
}

// A session whose file has these columns.
inline ImportSession SessionWith(std::initializer_list<Column> columns) {
  ImportSession session;
  session.columns = Columns(columns);
  return session;
}

}  // namespace qz7::interchange_fixture
