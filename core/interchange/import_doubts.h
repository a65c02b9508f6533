#pragma once

#include <string>
#include <vector>

#include "core/image/clone_image.h"
#include "core/interchange/import_lines.h"
#include "core/interchange/import_session.h"

namespace qz7 {

// What import does without a word and its user may not have meant: a line left out, a value that is
// read otherwise than it was written. Import does the same with or without doubts.
struct ImportDoubt {
  int line = 0;        // of the file, from 1; 0 for the whole file
  std::string reason;  // in the radio's characters; a cell's text stands in quotation marks
  bool left_out = false;
};

// The doubts about the lines, in their order, by the session's options and columns as they are
// before the lines are listed. The lines are rewound.
std::vector<ImportDoubt> FindDoubts(const CloneImage& image, const ImportSession& session,
                                    ImportLines& lines);

// "line 7: no receive frequency; the line is left out"
std::string DoubtLine(const ImportDoubt& doubt);
// All of them in one line, those left out first: "2 lines left out: line 7, no receive frequency;
// line 9, ...". Empty without doubts.
std::string DoubtsSummary(const std::vector<ImportDoubt>& doubts);

}  // namespace qz7
