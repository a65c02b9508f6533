#include "core/editors/list_history.h"

#include <algorithm>

namespace qz7 {
namespace {

RowsChange Show(Document& document, const ListStep& step, Rows selection) {
  RowsChange change = RowsThatDiffer(document.image, step.image, selection);
  document.image = step.image;
  document.changed = step.changed;
  return change;
}

}  // namespace

ListHistory StartHistory(const Document& document) {
  ListHistory history;
  history.steps.push_back(
      {.image = document.image, .changed = document.changed, .rows_before = {}, .rows_after = {}});
  return history;
}

void RecordStep(ListHistory& history, const Document& document, Rows rows_before, Rows rows_after) {
  if (history.steps[history.at].image == document.image) {
    return;
  }
  history.steps.resize(history.at + 1);
  history.steps.push_back({.image = document.image,
                           .changed = document.changed,
                           .rows_before = {rows_before.begin(), rows_before.end()},
                           .rows_after = {rows_after.begin(), rows_after.end()}});
  if (history.steps.size() > kMostSteps + 1) {
    history.steps.pop_front();
  }
  history.at = history.steps.size() - 1;
}

bool CanUndo(const ListHistory& history) { return history.at > 0; }

bool CanRedo(const ListHistory& history) { return history.at + 1 < history.steps.size(); }

RowsChange Undo(ListHistory& history, Document& document) {
  if (!CanUndo(history)) {
    return {.beep = true, .selection = {}};
  }
  RowsChange change =
      Show(document, history.steps[history.at - 1], history.steps[history.at].rows_before);
  --history.at;
  return change;
}

RowsChange Redo(ListHistory& history, Document& document) {
  if (!CanRedo(history)) {
    return {.beep = true, .selection = {}};
  }
  const ListStep& next = history.steps[history.at + 1];
  RowsChange change = Show(document, next, next.rows_after);
  ++history.at;
  return change;
}

}  // namespace qz7
