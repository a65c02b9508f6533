#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "core/interchange/import_doubts.h"
#include "core/interchange/import_session.h"

namespace qz7 {

// A list of a public directory or of another program, made into one that import reads: the ten
// columns in the order in which export writes them, no header line, commas and double quotation
// marks.
struct RecognisedList {
  bool is_recognised = false;  // whether a header line names a receive frequency
  std::string text;
  std::vector<int> lines;  // of the file, for each line of `text`
  std::vector<ImportDoubt> doubts;
};
RecognisedList RecogniseList(std::span<const std::uint8_t> bytes);

// The columns by which import reads its text, with the usual separators.
inline constexpr ColumnAssignment kRecognisedColumns = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};

// The doubts of the recognition and those of import about its text, by the lines of the file.
std::vector<ImportDoubt> AllDoubts(const RecognisedList& list,
                                   const std::vector<ImportDoubt>& of_import);

}  // namespace qz7
