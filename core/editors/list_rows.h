#pragma once

#include <span>
#include <vector>

#include "core/editors/memory_list.h"
#include "core/image/channel_copy.h"

namespace qz7 {

// The commands of the memory list on several rows. Rows are counted from 0 and stand in ascending
// order, each once.

// What the list shows of a command: a beep instead of it, or rows to write anew and rows to select.
// None of it (no rows, no beep) where nothing was done, because the user said no or was told why.
struct RowsChange {
  bool beep = false;
  int first_row = 0;
  int row_count = 0;
  std::vector<int> selection;
  bool operator==(const RowsChange&) const = default;
};

using Rows = std::span<const int>;

// Each is as many commands on single rows, in the order in which the rows keep out of each other's
// way. Without rows, or where one of the rows does not allow it, it beeps and nothing changes.
RowsChange MoveRowsUp(CloneImage& image, Rows rows);
RowsChange MoveRowsDown(CloneImage& image, Rows rows);
RowsChange ClearRows(CloneImage& image, Rows rows);
RowsChange DeleteRows(CloneImage& image, Rows rows);
// One empty channel before the first row.
RowsChange InsertBeforeRows(CloneImage& image, Rows rows);

// The channels of the rows, empty ones included; a row that shows no memory channel is left out.
std::vector<ChannelCopy> CopyRows(const CloneImage& image, Rows rows);

// Puts the channels from the first of the rows on, one below the other. They leave their own groups
// where they were copied from; what they replace leaves its groups, too, unless it is the same
// channel anyway. Asks once before programmed channels are replaced; refused with a message where
// they reach behind the last channel. Without a row or channels it beeps.
RowsChange PasteRows(CloneImage& image, Rows rows, std::span<const ChannelCopy> channels);

// The rows whose channels differ between two images, as a change that selects `selection`.
RowsChange RowsThatDiffer(const CloneImage& a, const CloneImage& b, Rows selection);

}  // namespace qz7
