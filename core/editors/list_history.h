#pragma once

#include <cstddef>
#include <deque>
#include <vector>

#include "core/editors/list_rows.h"
#include "core/files/document.h"

namespace qz7 {

// What one visit of the memory list has done, to be taken back and done again: the image and the
// document's changed flag as they were at the start and behind each step, the editor's changes
// included.
inline constexpr std::size_t kMostSteps = 500;  // the steps before them are forgotten

struct ListStep {
  CloneImage image;              // behind the step
  bool changed;                  // the document's flag behind it
  std::vector<int> rows_before;  // selected before it
  std::vector<int> rows_after;   // and behind it
};

struct ListHistory {
  std::deque<ListStep> steps;  // the first is the start
  std::size_t at = 0;          // the one whose image is shown
};

ListHistory StartHistory(const Document& document);

// Behind every command: where the image has changed, it is a step, and steps taken back before it
// can no longer be done again.
void RecordStep(ListHistory& history, const Document& document, Rows rows_before, Rows rows_after);

bool CanUndo(const ListHistory& history);
bool CanRedo(const ListHistory& history);
// Each puts the image and the flag back and selects what was selected then; beeps where there is no
// such step.
RowsChange Undo(ListHistory& history, Document& document);
RowsChange Redo(ListHistory& history, Document& document);

}  // namespace qz7
