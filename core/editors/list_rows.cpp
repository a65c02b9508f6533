#include "core/editors/list_rows.h"

#include <algorithm>
#include <memory>
#include <numeric>
#include <string>

#include "core/editors/group_table.h"
#include "core/files/seams.h"

namespace qz7 {
namespace {

using RowCommand = ListChange (*)(CloneImage& image, std::optional<int> row);

RowsChange Beep() { return {.beep = true, .selection = {}}; }

void Include(RowsChange& change, const ListChange& single) {
  const int first = change.row_count == 0 ? single.first_row : change.first_row;
  const int end =
      std::max(change.first_row + change.row_count, single.first_row + single.row_count);
  change.first_row = std::min(first, single.first_row);
  change.row_count = end - change.first_row;
  change.selection.push_back(*single.selection);
}

// Tries it on a copy, so that a row that refuses leaves no half of it.
template <typename Iterator>
RowsChange RunOnEach(CloneImage& image, RowCommand command, Iterator first, Iterator last) {
  const auto trial = std::make_unique<CloneImage>(image);
  RowsChange change;
  for (; first != last; ++first) {
    const ListChange single = command(*trial, *first);
    if (single.beep) {
      return Beep();
    }
    Include(change, single);
  }
  if (change.selection.empty()) {
    return Beep();
  }
  image = *trial;
  std::sort(change.selection.begin(), change.selection.end());
  return change;
}

std::string ReplaceQuestion(int programmed, int n) {
  return programmed == 1
             ? "Memory channel " + std::to_string(n) + " is active and will be replaced\nProceed?"
             : std::to_string(programmed) +
                   " memory channels are active and will be replaced\nProceed?";
}

bool MayReplace(const CloneImage& image, int first, int count) {
  int programmed = 0;
  int last_programmed = 0;
  for (int n = first; n < first + count; ++n) {
    if (IsProgrammed(image, n)) {
      ++programmed;
      last_programmed = n;
    }
  }
  return programmed == 0 || ShowMessage(ReplaceQuestion(programmed, last_programmed), kProgramTitle,
                                        Buttons::kYesNo, Icon::kQuestion) == Answer::kYes;
}

// The last memory channel that there is, whatever count a file states.
int LastChannel(const CloneImage& image) { return std::min(GetChannelCount(image), kChannelCount); }

}  // namespace

RowsChange MoveRowsUp(CloneImage& image, Rows rows) {
  return RunOnEach(image, MoveRowUp, rows.begin(), rows.end());
}

RowsChange MoveRowsDown(CloneImage& image, Rows rows) {
  return RunOnEach(image, MoveRowDown, rows.rbegin(), rows.rend());
}

RowsChange ClearRows(CloneImage& image, Rows rows) {
  return RunOnEach(image, ClearRow, rows.begin(), rows.end());
}

RowsChange DeleteRows(CloneImage& image, Rows rows) {
  RowsChange change = RunOnEach(image, DeleteRow, rows.rbegin(), rows.rend());
  change.selection.resize(std::min<std::size_t>(1, change.selection.size()));
  return change;
}

RowsChange InsertBeforeRows(CloneImage& image, Rows rows) {
  const ListChange single =
      InsertRow(image, rows.empty() ? std::nullopt : std::optional(rows.front()));
  RowsChange change{.beep = single.beep, .selection = {}};
  if (single.row_count > 0) {
    Include(change, single);
  }
  return change;
}

std::vector<ChannelCopy> CopyRows(const CloneImage& image, Rows rows) {
  std::vector<ChannelCopy> channels;
  for (const int row : rows) {
    if (const auto channel = CopyOfChannel(image, row + 1)) {
      channels.push_back(*channel);
    }
  }
  return channels;
}

RowsChange PasteRows(CloneImage& image, Rows rows, std::span<const ChannelCopy> channels) {
  if (rows.empty() || channels.empty() || !CopyOfChannel(image, rows.front() + 1)) {
    return Beep();
  }
  const int first = rows.front() + 1;
  const int count = static_cast<int>(channels.size());
  if (count > LastChannel(image) - first + 1) {
    ShowMessage("The " + std::to_string(count) + " channels reach behind the last memory channel.",
                kProgramTitle, Buttons::kOk, Icon::kStop);
    return {};
  }
  if (!MayReplace(image, first, count)) {
    return {};
  }
  int n = first;
  for (const ChannelCopy& channel : channels) {
    if (CopyOfChannel(image, n) != channel) {
      RemoveFromEveryGroup(image, ChannelIndex(image, n));
      PlaceCopy(image, n, channel);
    }
    ++n;
  }
  RowsChange change{.first_row = first - 1, .row_count = count, .selection = {}};
  change.selection.resize(channels.size());
  std::iota(change.selection.begin(), change.selection.end(), first - 1);
  return change;
}

RowsChange RowsThatDiffer(const CloneImage& a, const CloneImage& b, Rows selection) {
  int first = LastChannel(b);
  int end = 0;
  for (int row = 0; row < LastChannel(b); ++row) {
    if (CopyOfChannel(a, row + 1) != CopyOfChannel(b, row + 1)) {
      first = std::min(first, row);
      end = row + 1;
    }
  }
  return {.first_row = std::min(first, end),
          .row_count = std::max(0, end - first),
          .selection = {selection.begin(), selection.end()}};
}

}  // namespace qz7
