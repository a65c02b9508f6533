#include "core/editors/list_history.h"

#include <algorithm>

namespace qz7 {
namespace {

RowsChange Show(CloneImage& image, const CloneImage& other, Rows selection) {
  RowsChange change = RowsThatDiffer(image, other, selection);
  image = other;
  return change;
}

}  // namespace

ListHistory StartHistory(const CloneImage& image) {
  ListHistory history;
  history.steps.push_back({.image = image, .rows_before = {}, .rows_after = {}});
  return history;
}

void RecordStep(ListHistory& history, const CloneImage& image, Rows rows_before, Rows rows_after) {
  if (history.steps[history.at].image == image) {
    return;
  }
  history.steps.resize(history.at + 1);
  history.steps.push_back({.image = image,
                           .rows_before = {rows_before.begin(), rows_before.end()},
                           .rows_after = {rows_after.begin(), rows_after.end()}});
  if (history.steps.size() > kMostSteps + 1) {
    history.steps.pop_front();
  }
  history.at = history.steps.size() - 1;
}

bool CanUndo(const ListHistory& history) { return history.at > 0; }

bool CanRedo(const ListHistory& history) { return history.at + 1 < history.steps.size(); }

RowsChange Undo(ListHistory& history, CloneImage& image) {
  if (!CanUndo(history)) {
    return {.beep = true, .selection = {}};
  }
  RowsChange change =
      Show(image, history.steps[history.at - 1].image, history.steps[history.at].rows_before);
  --history.at;
  return change;
}

RowsChange Redo(ListHistory& history, CloneImage& image) {
  if (!CanRedo(history)) {
    return {.beep = true, .selection = {}};
  }
  const ListStep& next = history.steps[history.at + 1];
  RowsChange change = Show(image, next.image, next.rows_after);
  ++history.at;
  return change;
}

}  // namespace qz7
